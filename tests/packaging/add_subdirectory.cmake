cmake_minimum_required(VERSION 3.22)
# The library as part of another project and as its next minor version: a copy of the tree in which only the
# version differs.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
set(build ${WORK_DIR}/add_subdirectory)
set(next ${WORK_DIR}/next_version)
file(REMOVE_RECURSE ${build} ${next})
file(COPY ${SOURCE_DIR}/CMakeLists.txt ${SOURCE_DIR}/cmake ${SOURCE_DIR}/orva DESTINATION ${next})
file(READ ${next}/orva/version.hpp version)
string(REGEX MATCH "#define ORVA_VERSION_MINOR ([0-9]+)" found "${version}")
math(EXPR minor "${CMAKE_MATCH_1} + 1")
string(REPLACE "${found}" "#define ORVA_VERSION_MINOR ${minor}" version "${version}")
file(WRITE ${next}/orva/version.hpp "${version}")

# Not optimised: the test is only that it builds and runs as part of another project.
run(${CMAKE_COMMAND} -S ${HERE}/subproject -B ${build} -G ${GENERATOR} -DORVA_SOURCE_DIR=${next}
  -DOTHER_SOURCE_DIR=${SOURCE_DIR} -DOTHER_LIBRARY=${LIBRARY}
  -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} -DCMAKE_CXX_FLAGS=-O0)
run(${CMAKE_COMMAND} --build ${build} --parallel 2)
expect_message(${build}/consumer${suffix})
