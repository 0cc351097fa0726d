# Runs deploy.cmake with a tool that prints what the real one prints, and checks what becomes of it.
file(MAKE_DIRECTORY ${FOLDER})

function(expect_deployment name script is_success wanted)
  set(tool "${FOLDER}/macdeployqt ${name}")
  file(WRITE ${tool} "#!/bin/sh\n${script}\n")
  file(CHMOD ${tool} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -DTOOL=${tool} "-DBUNDLE=/a folder/X.app" "-DQML_FOLDERS=/q 1;/q2" -P ${DEPLOY}
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(status EQUAL 0)
    set(was_success TRUE)
  else()
    set(was_success FALSE)
  endif()
  if(NOT was_success STREQUAL is_success)
    message(SEND_ERROR "${name}: status ${status}\n${output}")
  endif()
  string(REGEX REPLACE "[ \n]+" " " output "${output}") # long messages are wrapped
  string(FIND "${output}" "${wanted}" place)
  if(place EQUAL -1)
    message(SEND_ERROR "${name}: no '${wanted}' in\n${output}")
  endif()
endfunction()

expect_deployment(arguments [[printf '<%s>' "$@"]] TRUE "</a folder/X.app><-qmldir=/q 1><-qmldir=/q2>")
expect_deployment(repetition [[echo 'ERROR: "QtCore" already deployed, skipping.' >&2]] TRUE "already deployed")
expect_deployment(unresolved
  [[echo 'ERROR: Cannot resolve rpath "@rpath/QtPdf.framework/Versions/A/QtPdf"' >&2]] FALSE
  "would not start")
expect_deployment(unresolved_on_output
  [[echo 'ERROR: Cannot resolve rpath "@rpath/QtPdf.framework/Versions/A/QtPdf"']] FALSE
  [[rpath "@rpath/QtPdf.framework/Versions/A/QtPdf"]])
expect_deployment(absent [[echo 'ERROR: no file at "/lib/libx.dylib"' >&2]] FALSE [[no file at "/lib/libx.dylib"]])
expect_deployment(failure "exit 3" FALSE "failed: 3")
