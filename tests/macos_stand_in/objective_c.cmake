# The sources in Objective-C. They need clang, because they contain blocks.
set(compile ${clang} -x objective-c++ -std=c++20 -fPIC
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wold-style-cast -Wshadow -Werror
  -isystem ${CMAKE_CURRENT_SOURCE_DIR}/frameworks)

# All are checked for errors as a Mac compiles them.
set(headers $<TARGET_PROPERTY:tamberline_symbols,INCLUDE_DIRECTORIES>)
set(headers $<FILTER:${headers},EXCLUDE,^/usr/include$>) # must stay last in the search path
foreach(source native_application native_panel symbol_drawing)
  add_test(NAME MacObjectiveC.UsesCallsThatTheSystemDocuments.${source}
    COMMAND ${compile} -fsyntax-only -fobjc-runtime=macosx-13.0 -fblocks
      "-isystem$<JOIN:${headers},;-isystem>" ${macos}/${source}.mm
    COMMAND_EXPAND_LISTS)
endforeach()

# All but the symbols, which the stand-ins cannot draw, also run, with the Objective-C runtime that is
# installed with clang.
set(objects "")
foreach(source ${macos}/native_application.mm ${macos}/native_panel.mm
    ${CMAKE_CURRENT_SOURCE_DIR}/fake_app_kit.mm)
  get_filename_component(name ${source} NAME_WE)
  set(object ${CMAKE_CURRENT_BINARY_DIR}/${name}.o)
  add_custom_command(OUTPUT ${object}
    COMMAND ${compile} -g -fobjc-runtime=gcc -fblocks
      -I${PROJECT_SOURCE_DIR}/src -I${PROJECT_SOURCE_DIR}/tests
      -MD -MF ${object}.d -c ${source} -o ${object}
    DEPENDS ${source} DEPFILE ${object}.d
    COMMENT "Compiling ${name}.mm")
  list(APPEND objects ${object})
endforeach()
tamberline_test(macos_objective_c_test
  SOURCES native_application_test.cpp native_panel_test.cpp ${objects}
  LINKS tamberline_options objc)
