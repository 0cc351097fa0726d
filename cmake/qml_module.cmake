# tamberline_qml_module(<layer> <URI> [DEPENDENCIES ...]): makes what a layer registers for QML, and the
# files in its folder qml/, a QML module. A static library does not register itself: see
# src/panel/panel_window.cpp.
function(tamberline_qml_module layer uri)
  cmake_parse_arguments(MODULE "" "" "DEPENDENCIES" ${ARGN})
  set(target tamberline_${layer})
  string(REPLACE "." "/" folder ${uri})

  file(GLOB_RECURSE qml_files CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} qml/*.qml)
  foreach(file IN LISTS qml_files)
    get_filename_component(name ${file} NAME)
    set_source_files_properties(${file} PROPERTIES QT_RESOURCE_ALIAS ${name})
  endforeach()
  set_target_properties(${target} PROPERTIES AUTOMOC ON)
  qt_add_qml_module(${target}
    URI ${uri}
    VERSION 1.0
    NO_PLUGIN
    DEPENDENCIES ${MODULE_DEPENDENCIES}
    RESOURCE_PREFIX /qml
    OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/qml/${folder}
    QML_FILES ${qml_files})
  target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}) # as Qt's tools include

  # To read Qt's headers is nearly all of the work for each source that is made of a QML file, so these
  # are compiled together in every build. Newer versions of Qt want to know all objects of the library
  # before they make these sources, so there they stay in it.
  get_target_property(sources ${target} SOURCES)
  if(Qt6_VERSION VERSION_LESS 6.5 AND qml_files)
    set(compiled_qml ${sources})
    list(FILTER compiled_qml INCLUDE REGEX "/qmlcache/.*_qml\\.cpp$")
    list(REMOVE_ITEM sources ${compiled_qml})
    set_target_properties(${target} PROPERTIES SOURCES "${sources}")
    add_library(${target}_compiled_qml OBJECT ${compiled_qml})
    set_target_properties(${target}_compiled_qml PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 64)
    target_link_libraries(${target}_compiled_qml PRIVATE tamberline_options Qt6::Quick)
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:${target}_compiled_qml>)
  endif()

  # What Qt's tools write is not held to our warnings.
  list(FILTER sources INCLUDE REGEX "^${CMAKE_CURRENT_BINARY_DIR}/.*\\.cpp$")
  set_source_files_properties(${sources} PROPERTIES
    COMPILE_OPTIONS -w
    SKIP_UNITY_BUILD_INCLUSION ON)
  get_directory_property(generated_targets BUILDSYSTEM_TARGETS)
  list(FILTER generated_targets INCLUDE
    REGEX "^${target}_(compiled_qml|qmlcache|resources_[0-9]+)$")
  foreach(generated IN LISTS generated_targets)
    target_compile_options(${generated} PRIVATE -w)
  endforeach()
endfunction()
