# The end of an installation that is not made for a package: the desktop learns of the new files, and
# uninstall.cmake is put beside a list of what has been installed. Where the programs are missing that would
# tell the desktop, there is none to be told.

if(NOT "$ENV{DESTDIR}" STREQUAL "")
    return()
endif()
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_PREFIX NORMALIZE OUTPUT_VARIABLE prefix)
foreach(update update-mime-database:mime update-desktop-database:applications)
    string(REPLACE ":" ";${prefix}/share/" command ${update})
    execute_process(COMMAND ${command})
endforeach()

set(list)
foreach(file ${CMAKE_INSTALL_MANIFEST_FILES})
    cmake_path(ABSOLUTE_PATH file NORMALIZE)
    if(IS_SYMLINK ${file})
        set(hash link)
    else()
        file(SHA256 ${file} hash)
    endif()
    cmake_path(RELATIVE_PATH file BASE_DIRECTORY ${prefix})
    string(APPEND list "${hash} ${file}\n")
endforeach()
file(COPY ${CMAKE_CURRENT_LIST_DIR}/uninstall.cmake DESTINATION ${prefix}/share/pstyle)
file(WRITE ${prefix}/share/pstyle/installed_files "${list}")
message(STATUS "To uninstall: cmake -P ${prefix}/share/pstyle/uninstall.cmake")
