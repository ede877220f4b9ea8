# run(<command>...): the command must succeed; its output is told when it does not.
function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGV} ended with ${result}:\n${output}")
  endif()
endfunction()

# expect_greeting(<program> ...): the consumer must run and say what it says when everything works.
function(expect_greeting)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output)
  if(NOT result EQUAL 0 OR NOT output STREQUAL "orva caught\n")
    message(FATAL_ERROR "${ARGV} ended with ${result} and said: ${output}")
  endif()
endfunction()
