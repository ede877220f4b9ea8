# The functions that make the targets of this project. Each folder lists its own files by calling them.

set(ORVA_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
# GCC 12 warns about its own std::string where a literal is appended to one: https://gcc.gnu.org/PR105651.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  list(APPEND ORVA_WARNINGS -Wno-restrict)
endif()

# The options of every target of the project, the library included.
function(orva_compile_options target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE ${ORVA_WARNINGS}
    # Keeps paths of the build machine out of __FILE__, and so out of messages and of the library.
    "-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=")
  if(ORVA_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

# orva_component(<name> [HEADERS <public headers>] [INSTALLED_INTERNALS <headers>] [SOURCES <sources>]): adds
# files of the calling folder to a component; several folders can share one. A component is an object library,
# orva_<name>, and the shared library is made of all components. Public headers are installed, tested to
# compile alone, and included by orva.hpp. An internal header is installed only if a public template needs it.
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

# orva_source_options(<component> <option> <sources>...): compiles some sources of a component with one
# additional option.
function(orva_source_options component option)
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  set_property(SOURCE ${ARGN} TARGET_DIRECTORY orva_${component} APPEND PROPERTY COMPILE_OPTIONS ${option})
endfunction()

# orva_overwriting_sources(<component> <sources>...): conversions that write into strings which were not cleared before. The
# standard library offers that from C++23 on. Nothing else needs it, and the headers stay C++20. Clang before 15 takes
# `if consteval` of C++23 for true where it folds a condition: functions of std::string that its objects share with all others
# would then run as in a constant expression, and copy all for each change.
function(orva_overwriting_sources component)
  if(NOT (CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 15))
    orva_source_options(${component} ${CMAKE_CXX23_STANDARD_COMPILE_OPTION} ${ARGN})
  endif()
endfunction()

# orva_choose_library(<variable> <internals>): the shared library, or, if <internals> is true, its components,
# so that a program can call what the library does not export, and can replace a source of the library by
# functions of its own.
function(orva_choose_library variable internals)
  if(internals)
    set(${variable} orva_internals PARENT_SCOPE)
  else()
    set(${variable} orva::orva PARENT_SCOPE)
  endif()
endfunction()

# orva_test(<name> [INTERNALS] SOURCES <files> [LIBRARIES <libraries>]): one test program, whose tests are
# tests of CTest.
function(orva_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "INTERNALS" "" "SOURCES;LIBRARIES")
  add_executable(${name} ${arg_SOURCES})
  orva_compile_options(${name})
  orva_choose_library(library "${arg_INTERNALS}")
  target_link_libraries(${name} PRIVATE ${library} orva_test_support GTest::gmock GTest::gtest_main ${arg_LIBRARIES})
  if(TARGET orva_test_headers AND NOT arg_INTERNALS)
    target_precompile_headers(${name} REUSE_FROM orva_test_headers)
  endif()
  if(CMAKE_CROSSCOMPILING_EMULATOR OR ORVA_TEST_WHOLE_PROGRAMS)
    # Starting the emulator, or a program with sanitizers, takes longer than most tests.
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 900)
  else()
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
  endif()
endfunction()

# orva_test_elsewhere(<name> <reason>): lists a test that the target system cannot run. CTest shows it as
# skipped, and the reason with -V.
function(orva_test_elsewhere name reason)
  add_test(NAME ${name} COMMAND ${CMAKE_COMMAND} -E echo "${reason}")
  set_tests_properties(${name} PROPERTIES SKIP_REGULAR_EXPRESSION ".")
endfunction()

# orva_benchmark(<name> SOURCES <files> [LIBRARIES <libraries>]): one benchmark program.
function(orva_benchmark name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
  add_executable(${name} ${arg_SOURCES})
  orva_compile_options(${name})
  target_link_libraries(${name} PRIVATE orva::orva benchmark::benchmark benchmark::benchmark_main ${arg_LIBRARIES})
endfunction()

# orva_fuzz_program(<name> <libraries> <sources>...): what the two programs of a fuzz target have in common.
function(orva_fuzz_program name libraries)
  add_executable(${name} ${ARGN})
  orva_compile_options(${name})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE ${libraries})
endfunction()

# orva_fuzz_target(<name> [INTERNALS] SOURCES <files> [LIBRARIES <libraries>]): a libFuzzer program <name> if
# ORVA_BUILD_FUZZERS is on. A test runs the inputs in fuzz/corpus/<name> and fuzz/regressions/<name>, with that
# program or, without libFuzzer, with <name>_replay.
function(orva_fuzz_target name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "INTERNALS" "" "SOURCES;LIBRARIES")
  orva_choose_library(library "${arg_INTERNALS}")
  set(libraries ${library} ${arg_LIBRARIES})
  if(ORVA_BUILD_FUZZERS)
    orva_fuzz_program(${name} "${libraries}" ${arg_SOURCES})
    set(fuzzer -fsanitize=fuzzer)
    target_compile_options(${name} PRIVATE ${fuzzer})
    target_link_options(${name} PRIVATE ${fuzzer})
    set(replay ${name} -runs=0)
  elseif(ORVA_BUILD_TESTS)
    orva_fuzz_program(${name}_replay "${libraries}" ${arg_SOURCES} ${PROJECT_SOURCE_DIR}/fuzz/replay.cpp)
    set(replay ${name}_replay)
  endif()
  if(ORVA_BUILD_TESTS)
    file(GLOB inputs LIST_DIRECTORIES true ${PROJECT_SOURCE_DIR}/fuzz/corpus/${name} ${PROJECT_SOURCE_DIR}/fuzz/regressions/${name})
    if(NOT inputs)
      message(FATAL_ERROR "fuzz/corpus/${name} has no inputs")
    endif()
    add_test(NAME fuzz.${name}.replay COMMAND ${replay} ${inputs})
  endif()
endfunction()
