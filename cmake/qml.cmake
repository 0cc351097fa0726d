# tamberline_qml_module(<layer> <URI> [DEPENDENCIES ...]): makes what a layer registers for QML, and the
# files in its folder qml/, a QML module. A static library does not register itself: see
# src/panel/qml_modules.cpp.
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
  # What Qt's tools write includes headers by their bare names.
  target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  if(qml_files)
    tamberline_compile_qml(${target})
  else()
    get_target_property(sources ${target} SOURCES)
    tamberline_allow_generated_warnings(${target} "${sources}")
  endif()
endfunction()

# The sources that Qt makes of QML files are compiled as one, since reading Qt's headers is nearly all of the
# work for each.
# They get a library of their own, which whoever links the target links too. In the target, CMake would
# compile each alone, because what Qt's tools write is not held to our warnings, and the target cannot link
# that library: newer versions of Qt make these sources when they know all types of the target.
function(tamberline_compile_qml target)
  get_target_property(sources ${target} SOURCES)
  set(compiled ${sources})
  list(FILTER compiled INCLUDE REGEX "/qmlcache/.*_qml\\.cpp$")
  list(REMOVE_ITEM sources ${compiled})
  set_target_properties(${target} PROPERTIES SOURCES "${sources}")
  add_library(${target}_qml STATIC ${compiled})
  set_target_properties(${target}_qml PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
  target_compile_options(${target}_qml PRIVATE -w)
  target_link_libraries(${target}_qml PRIVATE tamberline_options Qt6::Quick)
  target_link_libraries(${target} INTERFACE ${target}_qml)
  tamberline_allow_generated_warnings(${target} "${sources}")
endfunction()

# What Qt's tools write besides: some of the target's sources, and libraries of objects beside it.
function(tamberline_allow_generated_warnings target sources)
  list(FILTER sources INCLUDE REGEX "^${CMAKE_CURRENT_BINARY_DIR}/.*\\.cpp$")
  set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS -w)
  get_directory_property(targets BUILDSYSTEM_TARGETS)
  list(FILTER targets INCLUDE REGEX "^${target}_(qmlcache|resources_[0-9]+)$")
  foreach(generated IN LISTS targets)
    target_compile_options(${generated} PRIVATE -w)
  endforeach()
endfunction()
