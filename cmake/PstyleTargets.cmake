# What every target of the project shares: warnings, instrumentation, include roots.

# Gives the toolkit's libraries the name wx::wx; its headers count as system headers.
function(pstyle_import_wx)
    add_library(wx::wx INTERFACE IMPORTED GLOBAL)
    target_include_directories(wx::wx SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
    target_compile_options(wx::wx INTERFACE ${wxWidgets_CXX_FLAGS})
    target_compile_definitions(wx::wx INTERFACE ${wxWidgets_DEFINITIONS})
    target_link_libraries(wx::wx INTERFACE ${wxWidgets_LIBRARIES})
endfunction()

# Applies the project's warnings and instrumentation to a target.
function(pstyle_target_defaults target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion
        $<$<BOOL:${PSTYLE_WERROR}>:-Werror>)
    if(PSTYLE_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    else()
        target_link_options(${target} PRIVATE -Wl,--no-undefined)
    endif()
    if(PSTYLE_BUILD_FUZZ)
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
    if(PSTYLE_COVERAGE)
        target_compile_options(${target} PRIVATE --coverage)
        target_link_options(${target} PRIVATE --coverage)
    endif()
endfunction()

# Adds a shared library of the bundled platform or host: SOURCES are its files, LINK the targets
# that its headers need, PRIVATE_LINK those that only its sources need. Its headers are included
# with the library's folder name (odps/od_ps.h).
function(pstyle_add_library name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
    add_library(${name} SHARED ${arg_SOURCES})
    cmake_path(GET CMAKE_CURRENT_SOURCE_DIR PARENT_PATH include_root)
    target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${include_root}>)
    target_link_libraries(${name} PUBLIC ${arg_LINK} PRIVATE ${arg_PRIVATE_LINK})
    set_target_properties(${name} PROPERTIES
        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
    pstyle_target_defaults(${name})
    install(TARGETS ${name} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} NAMELINK_SKIP)
endfunction()

# Makes the target test_support, where the tests have not done it: their makers of table files.
function(pstyle_need_test_support)
    if(NOT TARGET test_support)
        find_package(GTest REQUIRED)
        add_subdirectory(${PROJECT_SOURCE_DIR}/tests/support ${PROJECT_BINARY_DIR}/tests/support)
    endif()
endfunction()
