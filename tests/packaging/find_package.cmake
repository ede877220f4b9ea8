cmake_minimum_required(VERSION 3.22)
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
set(build ${WORK_DIR}/find_package)
file(REMOVE_RECURSE ${build})
set(configure ${CMAKE_COMMAND} -S ${HERE}/consumer -B ${build} -G ${GENERATOR} -DCMAKE_PREFIX_PATH=${PREFIX}
  ${compiler} "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}")
string(REGEX MATCHALL "[0-9]+" version ${VERSION})
list(GET version 0 major)
list(GET version 1 minor)
math(EXPR next_minor "${minor} + 1")
math(EXPR previous_minor "${minor} - 1")
math(EXPR next_major "${major} + 1")
run(${configure} -DORVA_WANTED_VERSION=${major}.${minor})
run(${CMAKE_COMMAND} --build ${build})
expect_message(${build}/consumer${suffix})

# Another minor version has another namespace: a request for it must not find this one.
foreach(version ${major}.${previous_minor} ${major}.${next_minor} ${next_major}.0)
  execute_process(COMMAND ${configure} -DORVA_WANTED_VERSION=${version} RESULT_VARIABLE result
    OUTPUT_QUIET ERROR_QUIET)
  if(result EQUAL 0)
    message(FATAL_ERROR "version ${version} was requested and ${VERSION} was accepted")
  endif()
endforeach()
