cmake_minimum_required(VERSION 3.22)

# Runs a program and compares what comes out of it.
#   PROGRAM, ARGUMENTS     what is run; the arguments are separated by "|"
#   CODE                   the exit code it must end with
#   OUTPUT                 a file that holds its whole standard output (empty output if not given)
#   ERROR                  the text of its standard error without the last line end, in which @FOLDER@ stands for FOLDER
string(REPLACE "|" ";" arguments "${ARGUMENTS}")
execute_process(COMMAND ${PROGRAM} ${arguments}
  OUTPUT_VARIABLE output ERROR_VARIABLE error RESULT_VARIABLE code)
string(REGEX REPLACE "\n$" "" error "${error}")

set(expected "")
if(OUTPUT)
  file(READ ${OUTPUT} expected)
endif()
string(REPLACE "@FOLDER@" "${FOLDER}" expected_error "${ERROR}")

function(compare what wanted found)
  if(NOT wanted STREQUAL found)
    message(SEND_ERROR "${what} should be\n${wanted}\nand is\n${found}")
  endif()
endfunction()
compare("exit code" "${CODE}" "${code}")
compare("standard output" "${expected}" "${output}")
compare("standard error" "${expected_error}" "${error}")
