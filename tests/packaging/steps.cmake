# run(<command>...): the command must succeed; its output is told when it does not.
function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGV} ended with ${result}:\n${output}")
  endif()
endfunction()

# expect_message(<program> ...): the consumer must run beside its catalog and tell its message.
function(expect_message)
  execute_process(COMMAND ${ARGV} WORKING_DIRECTORY ${HERE}/consumer RESULT_VARIABLE result OUTPUT_VARIABLE output)
  if(NOT result EQUAL 0 OR NOT output STREQUAL "Frei: 53.7 GB\n")
    message(FATAL_ERROR "${ARGV} ended with ${result} and said: ${output}")
  endif()
endfunction()
