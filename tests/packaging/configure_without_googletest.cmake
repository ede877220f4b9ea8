cmake_minimum_required(VERSION 3.22)
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
# README's build needs no GoogleTest. The presets do need it: where it is missing they fail instead of testing
# nothing.
set(build ${WORK_DIR}/configure_without_googletest)
set(configure ${CMAKE_COMMAND} -S ${SOURCE_DIR} -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON)
file(REMOVE_RECURSE ${build})
run(${configure} -B ${build} -G ${GENERATOR} -DCMAKE_BUILD_TYPE=Release ${compiler})

file(REMOVE_RECURSE ${build})
execute_process(COMMAND ${configure} --preset dev -B ${build} WORKING_DIRECTORY ${SOURCE_DIR}
  RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE error)
if(result EQUAL 0 OR NOT error MATCHES "GTest")
  message(FATAL_ERROR "the preset without GoogleTest ended with ${result}:\n${error}")
endif()
