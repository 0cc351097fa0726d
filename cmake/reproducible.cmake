# Qt's compiler of QML writes some declarations in the order of hashes and of addresses. With a fixed seed and
# without random addresses, the code that Qt's tools generate is always the same. Some containers do not allow
# turning off random addresses; builds there can differ.
set(tamberline_launcher ${CMAKE_COMMAND} -E env QT_HASH_SEED=0)
find_program(TAMBERLINE_SETARCH setarch)
mark_as_advanced(TAMBERLINE_SETARCH)
if(TAMBERLINE_SETARCH)
  execute_process(COMMAND ${TAMBERLINE_SETARCH} --addr-no-randomize true
    RESULT_VARIABLE status OUTPUT_QUIET ERROR_QUIET)
  if(status EQUAL 0)
    list(PREPEND tamberline_launcher ${TAMBERLINE_SETARCH} --addr-no-randomize)
  endif()
endif()
list(JOIN tamberline_launcher " " tamberline_launcher)
set_property(GLOBAL PROPERTY RULE_LAUNCH_CUSTOM ${tamberline_launcher})
