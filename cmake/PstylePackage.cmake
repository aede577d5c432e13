# What a host needs to build against the installed library, and the Debian packages.

include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/pstyle)
install(EXPORT pstyle NAMESPACE pstyle:: FILE pstyleTargets.cmake
    DESTINATION ${package_dir} COMPONENT development)
configure_package_config_file(cmake/pstyleConfig.cmake.in
    ${PROJECT_BINARY_DIR}/cmake/pstyleConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/cmake/pstyleConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES cmake/PstyleWx.cmake ${PROJECT_BINARY_DIR}/cmake/pstyleConfig.cmake
        ${PROJECT_BINARY_DIR}/cmake/pstyleConfigVersion.cmake
    DESTINATION ${package_dir} COMPONENT development)

# The toolkit has no pkg-config file to refer to.
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH prefix_from_pc /${pkgconfig_dir} /)
set(wx_components xrc,xml,adv,core,base)
execute_process(COMMAND ${wxWidgets_CONFIG_EXECUTABLE} --cxxflags ${wx_components}
    OUTPUT_VARIABLE wx_cflags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${wxWidgets_CONFIG_EXECUTABLE} --libs ${wx_components}
    OUTPUT_VARIABLE wx_libs OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
configure_file(cmake/libpstyle.pc.in ${PROJECT_BINARY_DIR}/cmake/libpstyle.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/cmake/libpstyle.pc
    DESTINATION ${pkgconfig_dir} COMPONENT development)

# --- Debian packages -----------------------------------------------------------------------
# The program with all it needs, and what a host needs to build against the library.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pstyle)
set(CPACK_PACKAGE_CONTACT "The pstyle developers <pstyle@localhost>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${CMAKE_LIBRARY_OUTPUT_DIRECTORY} ${CMAKE_LIBRARY_OUTPUT_DIRECTORY}/pstyle)

# The documents that Debian wants in every package.
set(debian ${PROJECT_BINARY_DIR}/cmake/debian)
string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(cmake/debian/changelog.in ${debian}/changelog @ONLY)
configure_file(cmake/debian/shlibs.in ${debian}/shlibs @ONLY)
configure_file(cmake/debian/add_documents.cmake.in ${debian}/add_documents.cmake @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${debian}/add_documents.cmake)

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME pstyle)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_CONTROL_EXTRA
    ${PROJECT_SOURCE_DIR}/cmake/debian/triggers ${debian}/shlibs)
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION
    "Opens, edits and saves plot style tables: the .ctb and .stb files that tell
a plotter how to draw the objects of a CAD drawing.")
# Translated texts of the toolkit, and the symbols of the desktop's theme.
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS "librsvg2-common, shared-mime-info, wx3.2-i18n")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libpstyle-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "Headers, CMake package and pkg-config file for hosts that embed the editor
of plot style tables.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "pstyle (= ${PROJECT_VERSION}), libwxgtk3.2-dev")
include(CPack)
cpack_add_component(program GROUP program)
cpack_add_component(desktop GROUP program)
cpack_add_component(development GROUP development)
