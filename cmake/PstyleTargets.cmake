# What the targets of the project share: warnings, instrumentation, headers, installation.

include(CheckCXXCompilerFlag)

# What the compiler has against attacks on the memory; some of it is for certain processors only.
set(pstyle_hardening)
foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection
        -mbranch-protection=standard)
    string(MAKE_C_IDENTIFIER "has${flag}" has)
    check_cxx_compiler_flag(${flag} ${has})
    if(${has})
        list(APPEND pstyle_hardening ${flag})
    endif()
endforeach()
# The checks of the C library's functions need an optimised build.
list(APPEND pstyle_hardening "$<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")

# Applies the project's warnings, instrumentation and hardening to a target. The code of a TEST is
# compiled quickly: it is neither optimised nor hardened, and of the sanitizers only the address one
# looks at it.
function(pstyle_target_defaults target)
    cmake_parse_arguments(arg "TEST" "" "" ${ARGN})
    # What ships does not tell in which folder it was built.
    target_compile_options(${target} PRIVATE
        -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion
        $<$<BOOL:${PSTYLE_WERROR}>:-Werror>
        $<$<BOOL:${arg_TEST}>:-O0>)
    if(PSTYLE_SANITIZE)
        target_compile_options(${target} PRIVATE -fno-omit-frame-pointer -fsanitize=address)
        if(NOT arg_TEST)
            target_compile_options(${target} PRIVATE
                -fsanitize=undefined -fno-sanitize-recover=undefined)
        endif()
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    else()
        target_link_options(${target} PRIVATE -Wl,--no-undefined)
        if(NOT arg_TEST)
            target_compile_options(${target} PRIVATE ${pstyle_hardening})
            target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now)
        endif()
    endif()
    if(PSTYLE_BUILD_FUZZ)
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
    if(PSTYLE_COVERAGE)
        target_compile_options(${target} PRIVATE --coverage)
        target_link_options(${target} PRIVATE --coverage)
    endif()
endfunction()

# Installs a library with its public headers, for the package's users under the name pstyle::NAME.
# LIBDIR is where it is put.
function(pstyle_install_library name libdir)
    install(TARGETS ${name} EXPORT pstyle
        LIBRARY DESTINATION ${libdir} NAMELINK_COMPONENT development
        FILE_SET HEADERS DESTINATION ${PSTYLE_INCLUDE_DIR} COMPONENT development)
endfunction()

# Adds a shared library of the bundled platform or host: SOURCES are its files, HEADERS those that
# others include, LINK the targets that its headers need, PRIVATE_LINK those that only its sources
# need. Its headers are included with the library's folder name (odps/od_ps.h).
function(pstyle_add_library name)
    cmake_parse_arguments(arg "" "" "SOURCES;HEADERS;LINK;PRIVATE_LINK" ${ARGN})
    add_library(${name} SHARED ${arg_SOURCES})
    cmake_path(GET CMAKE_CURRENT_SOURCE_DIR PARENT_PATH include_root)
    target_sources(${name} PUBLIC
        FILE_SET HEADERS BASE_DIRS ${include_root} FILES ${arg_HEADERS})
    target_link_libraries(${name} PUBLIC ${arg_LINK} PRIVATE ${arg_PRIVATE_LINK})
    # Nobody replaces single functions of these libraries, so calls within a file may be inlined.
    target_compile_options(${name} PRIVATE -fno-semantic-interposition)
    foreach(needed ${arg_LINK} ${arg_PRIVATE_LINK})
        if(TARGET ${needed})
            get_target_property(type ${needed} TYPE)
            if(type STREQUAL SHARED_LIBRARY)
                set_target_properties(${name} PROPERTIES INSTALL_RPATH $ORIGIN)
            endif()
        endif()
    endforeach()
    # Their names are a host's own, and too common for the folder that all programs share.
    set_target_properties(${name} PROPERTIES
        VERSION ${PROJECT_VERSION} SOVERSION ${PSTYLE_SOVERSION}
        LIBRARY_OUTPUT_DIRECTORY ${CMAKE_LIBRARY_OUTPUT_DIRECTORY}/pstyle)
    pstyle_target_defaults(${name})
    pstyle_install_library(${name} ${CMAKE_INSTALL_LIBDIR}/pstyle)
endfunction()

# Makes the target test_support, where the tests have not done it: their makers of table files.
function(pstyle_need_test_support)
    if(NOT TARGET test_support)
        find_package(GTest REQUIRED)
        add_subdirectory(${PROJECT_SOURCE_DIR}/tests/support ${PROJECT_BINARY_DIR}/tests/support)
    endif()
endfunction()
