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

# tamberline_objective_c_test(<name> SOURCES ... OBJECTIVE_C ... LINKS ...): a test program for which sources
# in Objective-C are compiled for the runtime that is installed with clang.
function(tamberline_objective_c_test name)
  cmake_parse_arguments(TEST "" "" "SOURCES;OBJECTIVE_C;LINKS" ${ARGN})
  foreach(source IN LISTS TEST_OBJECTIVE_C)
    get_filename_component(source_name ${source} NAME_WE)
    set(object ${CMAKE_CURRENT_BINARY_DIR}/${source_name}.o)
    add_custom_command(OUTPUT ${object}
      COMMAND ${compile} -g -fobjc-runtime=gcc -fblocks
        -I${PROJECT_SOURCE_DIR}/src -I${PROJECT_SOURCE_DIR}/tests "-isystem$<JOIN:${headers},;-isystem>"
        -MD -MF ${object}.d -c ${source} -o ${object}
      DEPENDS ${source} DEPFILE ${object}.d COMMAND_EXPAND_LISTS
      COMMENT "Compiling ${source_name}.mm")
    list(APPEND TEST_SOURCES ${object})
  endforeach()
  tamberline_test(${name} SOURCES ${TEST_SOURCES} leak_suppressions.cpp LINKS ${TEST_LINKS} objc)
endfunction()

tamberline_objective_c_test(macos_application_test
  SOURCES native_application_test.cpp native_panel_test.cpp
  OBJECTIVE_C ${macos}/native_application.mm ${macos}/native_panel.mm
    ${CMAKE_CURRENT_SOURCE_DIR}/fake_app_kit.mm
  LINKS tamberline_options)
tamberline_objective_c_test(macos_symbols_test
  SOURCES symbol_drawing_test.cpp
  OBJECTIVE_C ${macos}/symbol_drawing.mm ${CMAKE_CURRENT_SOURCE_DIR}/fake_drawing.mm
  LINKS tamberline_options Qt6::Gui)
