# Copies the libraries that a bundle needs into it:
#   cmake -DTOOL=<macdeployqt> -DBUNDLE=<bundle> -DQML_FOLDERS=<folders> -P deploy.cmake
# The tool ends with status 0 even if it did not find a library, so its output decides. Not every line
# with "ERROR:" is a failure: it also writes that a library is already there.
set(folders ${QML_FOLDERS})
list(TRANSFORM folders PREPEND "-qmldir=")
execute_process(COMMAND ${TOOL} ${BUNDLE} ${folders}
  RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output
  ECHO_OUTPUT_VARIABLE ECHO_ERROR_VARIABLE)
string(REGEX MATCHALL "ERROR: *\"?(Cannot resolve rpath|no file at)[^\n]*" missing "${output}")
if(missing)
  list(JOIN missing "\n  " missing)
  message(FATAL_ERROR "The bundle would not start on another computer, because libraries are missing:\n"
    "  ${missing}")
endif()
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${TOOL} failed: ${status}")
endif()
