cmake_minimum_required(VERSION 3.22)
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
run(${WORK_DIR}/add_subdirectory/two_versions)
