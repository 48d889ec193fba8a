# Plays one scenario and compares its transcript, byte for byte, with the expected one beside it.
# Wants RUNNER, PLATFORM and SCENARIO.
get_filename_component(name ${SCENARIO} NAME_WE)
string(REGEX REPLACE "[.]txt$" ".expected" expected ${SCENARIO})
set(actual ${CMAKE_CURRENT_BINARY_DIR}/${name}.${PLATFORM}.actual)
execute_process(
  COMMAND ${RUNNER} --platform ${PLATFORM} --lines ${SCENARIO}
  OUTPUT_FILE ${actual}
  RESULT_VARIABLE status)
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${expected} ${actual} RESULT_VARIABLE differs)
if(differs)
  execute_process(COMMAND diff -u ${expected} ${actual})
  message(FATAL_ERROR "The transcript is not the expected one.")
endif()
if(NOT status EQUAL 0)
  message(FATAL_ERROR "An expectation does not hold, or the runner failed: ${status}.")
endif()
