# run_program(<output> <error> <code> <program> [<arguments>...]): runs a program, by EMULATOR if that is set,
# and returns what it writes and its exit code. If the variable WINDOWS is true, line ends become line feeds.
function(run_program output error code)
  execute_process(COMMAND ${EMULATOR} ${ARGN} OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE result)
  if(WINDOWS)
    string(REPLACE "\r\n" "\n" out "${out}")
    string(REPLACE "\r\n" "\n" err "${err}")
  endif()
  set(${output} "${out}" PARENT_SCOPE)
  set(${error} "${err}" PARENT_SCOPE)
  set(${code} "${result}" PARENT_SCOPE)
endfunction()

# has_text(<result> <wanted> <found>): whether `found` contains the text `wanted`. On Windows, / and \ count
# as equal.
function(has_text result wanted found)
  if(WINDOWS)
    string(REPLACE "\\" "/" wanted "${wanted}")
    string(REPLACE "\\" "/" found "${found}")
  endif()
  string(FIND "${found}" "${wanted}" at)
  if(at EQUAL -1)
    set(${result} FALSE PARENT_SCOPE)
  else()
    set(${result} TRUE PARENT_SCOPE)
  endif()
endfunction()
