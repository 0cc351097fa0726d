# The code that Qt's tools generate must not differ from one build to the next.
if(UNIX)
  set_property(GLOBAL PROPERTY RULE_LAUNCH_CUSTOM "sh \"${PROJECT_SOURCE_DIR}/cmake/run_generator.sh\"")
endif()
