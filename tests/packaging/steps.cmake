# run(<command>...): the command must succeed; its output is shown when it does not.
function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGV} ended with ${result}:\n${output}")
  endif()
endfunction()

# expect_message(<program>): the consumer must find its catalog and print its message.
function(expect_message program)
  set(ENV{WINEPATH} "${PREFIX}/bin")
  execute_process(COMMAND ${EMULATOR} ${program} WORKING_DIRECTORY ${HERE}/consumer RESULT_VARIABLE result OUTPUT_VARIABLE output)
  string(REPLACE "\r\n" "\n" output "${output}")
  if(NOT result EQUAL 0 OR NOT output STREQUAL "Frei: 53.7 GB\n")
    message(FATAL_ERROR "${program} ended with ${result} and printed: ${output}")
  endif()
endfunction()

if(WINDOWS)
  set(suffix .exe)
endif()

# The compiler of the other project: by its path, or by the toolchain file of a build for another system,
# which finds packages under the given roots.
if(TOOLCHAIN)
  set(compiler -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -DCMAKE_FIND_ROOT_PATH=${PREFIX})
else()
  set(compiler -DCMAKE_CXX_COMPILER=${CXX})
endif()
