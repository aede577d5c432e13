# The beginning of an installation, before anything is installed: the prefix is made absolute, and must
# not have characters that CMake's lists take for their own, which would end it half way.

cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_PREFIX NORMALIZE)
if(CMAKE_INSTALL_PREFIX MATCHES "[][;\\]")
    message(FATAL_ERROR "A prefix must not contain any of [ ] ; \\ : ${CMAKE_INSTALL_PREFIX}")
endif()
