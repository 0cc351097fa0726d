# tamberline_layer(<name> [SOURCES ...] [APART ...] [LINKS ...] [PRIVATE_LINKS ...]): makes a folder under
# src/ a static library, or a header-only one without SOURCES. LINKS lists every layer whose headers it
# includes, as scripts/check-layers verifies, and the external libraries that its headers need.
# PRIVATE_LINKS lists what only its sources or the linker need. APART lists sources with local names that
# clash with those of another source; unity builds compile them separately.
function(tamberline_layer name)
  cmake_parse_arguments(LAYER "" "" "SOURCES;APART;LINKS;PRIVATE_LINKS" ${ARGN})
  set(target tamberline_${name})
  if(LAYER_SOURCES)
    add_library(${target} STATIC ${LAYER_SOURCES} ${LAYER_APART})
    target_link_libraries(${target}
      PUBLIC tamberline_options ${LAYER_LINKS}
      PRIVATE ${LAYER_PRIVATE_LINKS})
  else()
    add_library(${target} INTERFACE)
    target_link_libraries(${target} INTERFACE ${LAYER_LINKS})
  endif()
  if(LAYER_APART)
    set_source_files_properties(${LAYER_APART} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  endif()
  # Background work may still run while the program exits, so nothing that it could read may be destroyed
  # at exit.
  if(LAYER_SOURCES AND CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    target_compile_options(${target} PRIVATE -Wexit-time-destructors)
  endif()
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR
    BASE_DIRECTORY ${PROJECT_SOURCE_DIR}/src OUTPUT_VARIABLE folder)
  string(REGEX REPLACE "/.*" "" folder ${folder})
  list(FILTER LAYER_LINKS INCLUDE REGEX "^tamberline_")
  set_target_properties(${target} PROPERTIES
    TAMBERLINE_FOLDER ${folder} TAMBERLINE_LINKS "${LAYER_LINKS}")
  set_property(GLOBAL APPEND PROPERTY TAMBERLINE_LAYERS ${target})
endfunction()

# tamberline_write_layers(<file>): writes a line for each layer defined so far: its folder and the folders
# of the layers that it links.
function(tamberline_write_layers file)
  get_property(layers GLOBAL PROPERTY TAMBERLINE_LAYERS)
  set(text "")
  foreach(layer IN LISTS layers)
    get_target_property(folder ${layer} TAMBERLINE_FOLDER)
    string(APPEND text ${folder})
    get_target_property(links ${layer} TAMBERLINE_LINKS)
    foreach(link IN LISTS links)
      get_target_property(linked_folder ${link} TAMBERLINE_FOLDER)
      string(APPEND text " ${linked_folder}")
    endforeach()
    string(APPEND text "\n")
  endforeach()
  file(GENERATE OUTPUT ${file} CONTENT "${text}")
endfunction()
