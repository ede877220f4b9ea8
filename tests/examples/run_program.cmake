cmake_minimum_required(VERSION 3.22)

# Runs a program and compares what comes out of it.
#   PROGRAM, ARGUMENTS     what is run; the arguments are separated by "|"
#   CODE                   the exit code it must end with
#   OUTPUT                 a file that holds its whole standard output (empty output if not given)
#   ERROR                  the text of its standard error without the last line end, in which @FOLDER@ stands for FOLDER
include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/RunProgram.cmake)
string(REPLACE "|" ";" arguments "${ARGUMENTS}")
run_program(output error code ${PROGRAM} ${arguments})
string(REGEX REPLACE "\n$" "" error "${error}")

set(expected "")
if(OUTPUT)
  file(READ ${OUTPUT} expected)
endif()
string(REPLACE "@FOLDER@" "${FOLDER}" expected_error "${ERROR}")

function(compare what wanted found)
  has_text(has_all "<${wanted}>" "<${found}>")
  if(NOT has_all)
    message(SEND_ERROR "${what} should be\n${wanted}\nand is\n${found}")
  endif()
endfunction()
compare("exit code" "${CODE}" "${code}")
compare("standard output" "${expected}" "${output}")
compare("standard error" "${expected_error}" "${error}")
