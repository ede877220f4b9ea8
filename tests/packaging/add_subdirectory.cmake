cmake_minimum_required(VERSION 3.22)
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
set(build ${WORK_DIR}/add_subdirectory)
file(REMOVE_RECURSE ${build})
# Not optimised: what is tested is that it builds and runs from a foreign project.
run(${CMAKE_COMMAND} -S ${HERE}/subproject -B ${build} -G ${GENERATOR} -DORVA_SOURCE_DIR=${SOURCE_DIR}
  -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_CXX_FLAGS=-O0)
run(${CMAKE_COMMAND} --build ${build} --parallel 2)
expect_message(${build}/consumer${suffix})
