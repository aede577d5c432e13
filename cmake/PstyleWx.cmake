# Finds the toolkit and gives its libraries the name wx::wx. Installed with the package, whose
# targets refer to that name.

find_package(wxWidgets 3.2 REQUIRED COMPONENTS xrc xml adv core base)
if(NOT TARGET wx::wx)
    add_library(wx::wx INTERFACE IMPORTED)
    # Its headers count as system headers.
    target_include_directories(wx::wx SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
    target_compile_options(wx::wx INTERFACE ${wxWidgets_CXX_FLAGS})
    target_compile_definitions(wx::wx INTERFACE ${wxWidgets_DEFINITIONS})
    target_link_libraries(wx::wx INTERFACE ${wxWidgets_LIBRARIES})
endif()
