cmake_minimum_required(VERSION 3.22)
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
set(build ${WORK_DIR}/find_package)
file(REMOVE_RECURSE ${build})
set(configure ${CMAKE_COMMAND} -S ${HERE}/consumer -B ${build} -G ${GENERATOR} -DCMAKE_PREFIX_PATH=${PREFIX}
  ${compiler} "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}")
run(${configure} -DORVA_WANTED_VERSION=2.18)
run(${CMAKE_COMMAND} --build ${build})
expect_message(${build}/consumer${suffix})

# Another minor version has another namespace: asking for it must not find this one.
foreach(version 2.17 2.19 3.0)
  execute_process(COMMAND ${configure} -DORVA_WANTED_VERSION=${version} RESULT_VARIABLE result
    OUTPUT_QUIET ERROR_QUIET)
  if(result EQUAL 0)
    message(FATAL_ERROR "version ${version} was asked for and 2.18 was accepted")
  endif()
endforeach()
