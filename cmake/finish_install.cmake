# The end of an installation that is not made for a package: the desktop learns of the new files, and
# what has been installed is listed for uninstall.cmake. Where the programs are missing that would
# tell the desktop, there is none to be told.

if(NOT "$ENV{DESTDIR}" STREQUAL "")
    return()
endif()
foreach(update update-mime-database:mime update-desktop-database:applications)
    string(REPLACE ":" ";${CMAKE_INSTALL_PREFIX}/share/" command ${update})
    execute_process(COMMAND ${command})
endforeach()

set(list)
foreach(file ${CMAKE_INSTALL_MANIFEST_FILES})
    if(IS_SYMLINK ${file})
        set(hash link)
    else()
        file(SHA256 ${file} hash)
    endif()
    cmake_path(RELATIVE_PATH file BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX})
    string(APPEND list "${hash} ${file}\n")
endforeach()
file(WRITE ${CMAKE_INSTALL_PREFIX}/share/pstyle/installed_files "${list}")
message(STATUS "To uninstall: cmake -P ${CMAKE_INSTALL_PREFIX}/share/pstyle/uninstall.cmake")
