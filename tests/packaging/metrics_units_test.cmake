# Installs the units for the figures below a prefix and lets systemd read them. systemd-analyze also looks
# for the program that the service names.
set(prefix ${FOLDER}/prefix)
set(units ${prefix}/lib/systemd/user)
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${prefix}/bin ${FOLDER}/home)
execute_process(
  COMMAND ${CMAKE_COMMAND} --install ${BUILD} --component metrics --prefix ${prefix}
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

file(STRINGS ${units}/tamberline-metrics.service command REGEX "^ExecStart=")
if(NOT command STREQUAL "ExecStart=${prefix}/bin/tamberline-inspect metrics --output \${TAMBERLINE_METRICS}")
  message(FATAL_ERROR "The service runs: ${command}")
endif()

find_program(SYSTEMD_ANALYZE systemd-analyze)
if(NOT SYSTEMD_ANALYZE)
  message(STATUS "skipped: systemd-analyze is missing")
  return()
endif()

# verify(<variable>): what systemd says about both units; empty if they are right.
function(verify variable)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env HOME=${FOLDER}/home XDG_RUNTIME_DIR=${FOLDER}/home
      ${SYSTEMD_ANALYZE} verify --user --man=no
      ${units}/tamberline-metrics.service ${units}/tamberline-metrics.timer
    OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE status)
  if(NOT status EQUAL 0 AND output STREQUAL "")
    set(output "status ${status}")
  endif()
  set(${variable} "${output}" PARENT_SCOPE)
endfunction()

verify(complaint)
if(NOT complaint MATCHES "tamberline-inspect is not executable")
  message(FATAL_ERROR "Without the program systemd should complain, but says: ${complaint}")
endif()
file(COPY ${PROGRAM} DESTINATION ${prefix}/bin)
verify(complaint)
if(NOT complaint STREQUAL "")
  message(FATAL_ERROR "${complaint}")
endif()
