cmake_minimum_required(VERSION 3.22)

# Runs a program and checks how it ends and what it prints.
#   PROGRAM, ARGUMENTS     the program and its arguments, separated by "|"
#   CODE                   the exit code expected
#   OUTPUT                 a file with the standard output expected (without it, no output is expected)
#   ERROR                  the standard error expected, without the last line end; @FOLDER@ is replaced by FOLDER
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
