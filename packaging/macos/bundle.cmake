# Makes the program `tamberline` the application Tamberline.app: a menu-bar-only application (its
# Info.plist says so), with its icon and its manuals as resources, that brings its libraries along when
# it is installed. Included beside the program.
set(here ${CMAKE_CURRENT_LIST_DIR})
set(icon ${here}/Tamberline.icns)
target_sources(tamberline PRIVATE ${icon} ${TAMBERLINE_MANUALS})
set_source_files_properties(${icon} ${TAMBERLINE_MANUALS} PROPERTIES
  MACOSX_PACKAGE_LOCATION Resources)
if(TAMBERLINE_MANUALS)
  add_dependencies(tamberline manuals)
endif()
foreach(language en de fr it es)
  set(strings ${here}/${language}.lproj/InfoPlist.strings)
  target_sources(tamberline PRIVATE ${strings})
  set_source_files_properties(${strings} PROPERTIES
    MACOSX_PACKAGE_LOCATION Resources/${language}.lproj)
endforeach()

include(${here}/oldest_release.cmake)
get_target_property(qt_core Qt6::Core LOCATION)
get_target_property(qt_pdf Qt6::Pdf LOCATION)
tamberline_oldest_release(TAMBERLINE_OLDEST_MACOS ${CMAKE_OSX_DEPLOYMENT_TARGET} ${qt_core} ${qt_pdf})

# The installed program lists the folders of its libraries, in which macdeployqt looks for them. Qt's
# modules can be in several folders.
set_target_properties(tamberline PROPERTIES
  INSTALL_RPATH_USE_LINK_PATH TRUE
  MACOSX_BUNDLE TRUE
  OUTPUT_NAME Tamberline
  MACOSX_BUNDLE_INFO_PLIST ${here}/Info.plist.in
  MACOSX_BUNDLE_GUI_IDENTIFIER org.tamberline.Tamberline
  MACOSX_BUNDLE_ICON_FILE Tamberline
  MACOSX_BUNDLE_BUNDLE_VERSION ${PROJECT_VERSION}
  MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION})

install(TARGETS tamberline BUNDLE DESTINATION .)
find_program(macdeployqt macdeployqt HINTS ${QT6_INSTALL_PREFIX}/bin REQUIRED)
install(CODE "execute_process(
  COMMAND ${CMAKE_COMMAND} -DTOOL=${macdeployqt} \"-DBUNDLE=\${CMAKE_INSTALL_PREFIX}/Tamberline.app\"
    \"-DQML_FOLDERS=${PROJECT_SOURCE_DIR}/src/controls/qml;${PROJECT_SOURCE_DIR}/src/panel/qml\"
    -P ${here}/deploy.cmake
  COMMAND_ERROR_IS_FATAL ANY)")
