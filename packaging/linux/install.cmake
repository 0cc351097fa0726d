# What is installed beside the programs on a desktop that follows freedesktop.org, and the Debian package
# made of it (target `package`). Included by the top CMakeLists.txt.
include(GNUInstallDirs)
set(here ${CMAKE_CURRENT_LIST_DIR})
set(id org.tamberline.Tamberline)

install(TARGETS tamberline tamberline-inspect tamberline-replay)
install(FILES ${TAMBERLINE_MANUALS} DESTINATION ${CMAKE_INSTALL_DATADIR}/tamberline/manual)
install(FILES ${here}/${id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${here}/${id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/icons/tamberline.svg
  DESTINATION ${icons}/scalable/apps RENAME ${id}.svg)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/icons/tamberline-symbolic.svg
  DESTINATION ${icons}/symbolic/apps RENAME ${id}-symbolic.svg)

foreach(tool tamberline-inspect tamberline-replay)
  install(FILES ${here}/completions/${tool}.bash RENAME ${tool}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES ${here}/completions/_${tool}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
  install(FILES ${here}/completions/${tool}.fish
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
endforeach()

# tamberline_install_compressed(<file> <folder> <name>): without a time in it, so that builds compare.
function(tamberline_install_compressed file folder name)
  set(compressed ${CMAKE_CURRENT_BINARY_DIR}/packaging/${name}.gz)
  add_custom_command(OUTPUT ${compressed}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/packaging
    COMMAND gzip --best --no-name --stdout ${file} > ${compressed}
    DEPENDS ${file} VERBATIM)
  add_custom_target(compressed_${name} ALL DEPENDS ${compressed})
  install(FILES ${compressed} DESTINATION ${folder})
endfunction()
foreach(program tamberline tamberline-inspect tamberline-replay)
  tamberline_install_compressed(${here}/man/${program}.1 ${CMAKE_INSTALL_MANDIR}/man1 ${program}.1)
endforeach()
set(documents ${CMAKE_INSTALL_DATADIR}/doc/tamberline)
tamberline_install_compressed(${here}/debian/changelog ${documents} changelog)
install(FILES ${here}/debian/copyright DESTINATION ${documents})
install(FILES ${here}/autostart.desktop
  ${PROJECT_SOURCE_DIR}/packaging/metrics/tamberline.rules.yml
  ${PROJECT_SOURCE_DIR}/packaging/metrics/tamberline-dashboard.json
  ${PROJECT_SOURCE_DIR}/packaging/schemas/expectations.schema.json
  DESTINATION ${documents}/examples)
# Nothing turns the timer on. Units of users are in lib, whatever the folder of libraries is. The service
# names its program by the whole path, which is known when it is installed.
set(units lib/systemd/user)
install(FILES ${here}/systemd/tamberline-metrics.timer DESTINATION ${units} COMPONENT metrics)
install(CODE "
  set(TAMBERLINE_INSPECT \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/tamberline-inspect\")
  set(service \"${CMAKE_CURRENT_BINARY_DIR}/packaging/tamberline-metrics.service\")
  configure_file(\"${here}/systemd/tamberline-metrics.service.in\" \"\${service}\" @ONLY)
  file(INSTALL \"\${service}\" DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${units}\")"
  COMPONENT metrics)

# tamberline_files_at_run_time(<variable>): what is opened and not linked, one file for each package. The
# modules that the panel's QML imports, and Wayland's plugins.
function(tamberline_files_at_run_time variable)
  get_target_property(qmake Qt6::qmake IMPORTED_LOCATION)
  foreach(folder PLUGINS QML)
    execute_process(COMMAND ${qmake} -query QT_INSTALL_${folder} OUTPUT_VARIABLE QT_INSTALL_${folder}
      OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
  set(files
    ${QT_INSTALL_PLUGINS}/platforms/libqwayland-generic.so
    ${QT_INSTALL_QML}/Qt/labs/qmlmodels/qmldir
    ${QT_INSTALL_QML}/QtQml/WorkerScript/qmldir
    ${QT_INSTALL_QML}/QtQuick/qmldir
    ${QT_INSTALL_QML}/QtQuick/Window/qmldir)
  if(TARGET LayerShellQt::Interface)
    list(APPEND files ${QT_INSTALL_PLUGINS}/wayland-shell-integration/liblayer-shell.so)
  endif()
  set(${variable} ${files} PARENT_SCOPE)
endfunction()

set(CPACK_GENERATOR DEB)
# With DESTDIR, so that files that name their place name the one after installation.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_CONTACT "The Tamberline authors <hello@tamberline.org>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://tamberline.org/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "show what is attached to USB-C and Thunderbolt ports")
set(CPACK_PACKAGE_DESCRIPTION
"A panel behind an icon in the tray shows, port by port, what is attached to a
computer's USB-C and Thunderbolt ports: chains, hubs, devices and volumes, the
speed of each link against the fastest that the port supports, and the power
that devices draw. Volumes can be tested for their speed and ejected.
.
tamberline-inspect prints the same as text or JSON; tamberline-replay shows
saved reports of another machine.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_PROJECT_CONFIG_FILE ${here}/package_dependencies.cmake)
tamberline_files_at_run_time(CPACK_TAMBERLINE_FILES_AT_RUN_TIME)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-inter, udisks2")
include(CPack)
