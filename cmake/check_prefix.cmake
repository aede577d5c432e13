# The beginning of an installation: characters that CMake's lists take for their own would end it half
# way.

if(CMAKE_INSTALL_PREFIX MATCHES "[][;\\]")
    message(FATAL_ERROR "A prefix must not contain any of [ ] ; \\ : ${CMAKE_INSTALL_PREFIX}")
endif()
