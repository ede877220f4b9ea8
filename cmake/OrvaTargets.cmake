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

# orva_library_files(HEADERS <public headers> SOURCES <sources>): called in a folder of the library with names
# relative to that folder. Public headers are installed and checked to compile alone; whatever is not listed as
# public stays inside.
function(orva_library_files)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "" "HEADERS;SOURCES")
  list(TRANSFORM arg_SOURCES PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  target_sources(orva PRIVATE ${arg_SOURCES})
  file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  list(TRANSFORM arg_HEADERS PREPEND ${folder}/)
  set_property(GLOBAL APPEND PROPERTY ORVA_PUBLIC_HEADERS ${arg_HEADERS})
endfunction()

# orva_test(<name> SOURCES <files> [LIBRARY_SOURCES <files below orva/>] [LIBRARIES <libraries>]): one test program, each of its
# tests a test of CTest. Internal headers of the library may be included, but only exported names link; what else a
# test is about, it compiles for itself as LIBRARY_SOURCES.
function(orva_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARY_SOURCES;LIBRARIES")
  list(TRANSFORM arg_LIBRARY_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/orva/)
  add_executable(${name} ${arg_SOURCES} ${arg_LIBRARY_SOURCES})
  orva_compile_options(${name})
  if(arg_LIBRARY_SOURCES)
    # To Windows, what a program defines cannot be what it imports.
    target_compile_definitions(${name} PRIVATE ORVA_BUILDING_LIBRARY)
  endif()
  target_link_libraries(${name} PRIVATE orva::orva orva_test_support GTest::gmock GTest::gtest_main ${arg_LIBRARIES})
  if(TARGET orva_test_headers)
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

# orva_fuzz_target(<name> SOURCES <files>): a libFuzzer program <name> where ORVA_BUILD_FUZZERS is on, and in the
# test build <name>_replay, which runs the inputs kept in fuzz/corpus/<name> and fuzz/regressions/<name>.
function(orva_fuzz_target name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
  if(ORVA_BUILD_FUZZERS)
    add_executable(${name} ${arg_SOURCES})
    orva_compile_options(${name})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    target_link_libraries(${name} PRIVATE orva::orva ${arg_LIBRARIES})
  endif()
  if(ORVA_BUILD_TESTS)
    add_executable(${name}_replay ${arg_SOURCES} ${PROJECT_SOURCE_DIR}/fuzz/replay.cpp)
    orva_compile_options(${name}_replay)
    target_include_directories(${name}_replay PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name}_replay PRIVATE orva::orva ${arg_LIBRARIES})
    add_test(NAME fuzz.${name}.replay
      COMMAND ${name}_replay ${PROJECT_SOURCE_DIR}/fuzz/corpus/${name} ${PROJECT_SOURCE_DIR}/fuzz/regressions/${name})
  endif()
endfunction()
