# How the targets of this project are made. Each folder lists its own files by calling these.

set(ORVA_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
# GCC 12 warns of its own std::string where a literal is joined to one: https://gcc.gnu.org/PR105651.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  list(APPEND ORVA_WARNINGS -Wno-restrict)
endif()

# Options that every target of the project has, the library included.
function(orva_compile_options target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE ${ORVA_WARNINGS}
    # No path of the building machine in __FILE__, and so none in a message or in the library.
    "-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=")
  if(ORVA_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

# orva_component(<name> [HEADERS <public headers>] [INSTALLED_INTERNALS <headers>] [SOURCES <sources>]): called in a folder of the
# library with names relative to that folder, once or in several folders for one component. A component is an object library,
# orva_<name>; the shared library is made of all of them. Public headers are installed, checked to compile alone and included by
# orva.hpp. An internal header is installed where a public template needs it, and stays inside otherwise.
function(orva_component name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HEADERS;INSTALLED_INTERNALS;SOURCES")
  list(TRANSFORM arg_SOURCES PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  list(TRANSFORM arg_HEADERS PREPEND ${folder}/)
  list(TRANSFORM arg_INSTALLED_INTERNALS PREPEND ${folder}/)
  set_property(GLOBAL APPEND PROPERTY ORVA_PUBLIC_HEADERS ${arg_HEADERS})
  set_property(GLOBAL APPEND PROPERTY ORVA_INSTALLED_INTERNALS ${arg_INSTALLED_INTERNALS})
  if(NOT arg_SOURCES)
    return()
  endif()
  set(component orva_${name})
  if(NOT TARGET ${component})
    add_library(${component} OBJECT)
    orva_compile_options(${component})
    target_link_libraries(${component} PRIVATE orva_component_options)
    set_target_properties(${component} PROPERTIES
      CXX_VISIBILITY_PRESET hidden
      VISIBILITY_INLINES_HIDDEN ON
      POSITION_INDEPENDENT_CODE ON)
    set_property(GLOBAL APPEND PROPERTY ORVA_COMPONENTS ${component})
  endif()
  target_sources(${component} PRIVATE ${arg_SOURCES})
endfunction()

# orva_source_options(<component> <option> <sources>...): compiles some sources of a component with one more option.
function(orva_source_options component option)
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  set_property(SOURCE ${ARGN} TARGET_DIRECTORY orva_${component} APPEND PROPERTY COMPILE_OPTIONS ${option})
endfunction()

# orva_test(<name> [INTERNALS] SOURCES <files> [LIBRARIES <libraries>]): one test program, each of its tests a test of CTest. With
# INTERNALS the program links the components themselves, so that it can call what the library does not export, and can put
# functions of its own in place of a source of the library.
function(orva_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "INTERNALS" "" "SOURCES;LIBRARIES")
  add_executable(${name} ${arg_SOURCES})
  orva_compile_options(${name})
  if(arg_INTERNALS)
    set(library orva_internals)
  else()
    set(library orva::orva)
  endif()
  target_link_libraries(${name} PRIVATE ${library} orva_test_support GTest::gmock GTest::gtest_main ${arg_LIBRARIES})
  if(TARGET orva_test_headers AND NOT arg_INTERNALS)
    target_precompile_headers(${name} REUSE_FROM orva_test_headers)
  endif()
  if(CMAKE_CROSSCOMPILING_EMULATOR)
    # To start the emulator takes longer than most tests do.
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 900)
  else()
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
  endif()
endfunction()

# orva_test_elsewhere(<name> <why>): stands for a test that the system built for cannot run. CTest shows it as skipped, and why
# with -V.
function(orva_test_elsewhere name why)
  add_test(NAME ${name} COMMAND ${CMAKE_COMMAND} -E echo "${why}")
  set_tests_properties(${name} PROPERTIES SKIP_REGULAR_EXPRESSION ".")
endfunction()

# orva_benchmark(<name> SOURCES <files> [LIBRARIES <libraries>]): one benchmark program.
function(orva_benchmark name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
  add_executable(${name} ${arg_SOURCES})
  orva_compile_options(${name})
  target_link_libraries(${name} PRIVATE orva::orva benchmark::benchmark benchmark::benchmark_main ${arg_LIBRARIES})
endfunction()

# orva_fuzz_target(<name> [INTERNALS] SOURCES <files>): a libFuzzer program <name> where ORVA_BUILD_FUZZERS is on, and in the
# test build <name>_replay, which runs the inputs kept in fuzz/corpus/<name> and fuzz/regressions/<name>.
function(orva_fuzz_target name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "INTERNALS" "" "SOURCES;LIBRARIES")
  if(arg_INTERNALS)
    set(library orva_internals)
  else()
    set(library orva::orva)
  endif()
  if(ORVA_BUILD_FUZZERS)
    add_executable(${name} ${arg_SOURCES})
    orva_compile_options(${name})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    target_link_libraries(${name} PRIVATE ${library} ${arg_LIBRARIES})
  endif()
  if(ORVA_BUILD_TESTS)
    add_executable(${name}_replay ${arg_SOURCES} ${PROJECT_SOURCE_DIR}/fuzz/replay.cpp)
    orva_compile_options(${name}_replay)
    target_include_directories(${name}_replay PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name}_replay PRIVATE ${library} ${arg_LIBRARIES})
    add_test(NAME fuzz.${name}.replay
      COMMAND ${name}_replay ${PROJECT_SOURCE_DIR}/fuzz/corpus/${name} ${PROJECT_SOURCE_DIR}/fuzz/regressions/${name})
  endif()
endfunction()
