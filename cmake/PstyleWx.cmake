# Finds the toolkit and gives its libraries the name pstyle::wx. Installed with the package, whose
# targets refer to that name.

# In a function, since the search's variables may already hold a host's own choice of libraries.
function(pstyle_find_wx)
    if(TARGET pstyle::wx)
        return()
    endif()
    find_package(wxWidgets 3.2 ${ARGN} COMPONENTS xrc xml adv core base)
    if(NOT wxWidgets_FOUND)
        return()
    endif()
    add_library(pstyle::wx INTERFACE IMPORTED)
    # Its headers count as system headers.
    target_include_directories(pstyle::wx SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
    target_compile_options(pstyle::wx INTERFACE ${wxWidgets_CXX_FLAGS})
    target_compile_definitions(pstyle::wx INTERFACE ${wxWidgets_DEFINITIONS})
    target_link_libraries(pstyle::wx INTERFACE ${wxWidgets_LIBRARIES})
endfunction()
