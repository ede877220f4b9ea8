cmake_minimum_required(VERSION 3.22)
# The component "tools" has the programs with all that belongs to them, and they work where they are installed.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
if(NOT HAS_PROGRAMS)
  return()
endif()
set(expected bin/orva-config${suffix} share/orva/programs/orva-config.xmc)
if(HAS_PAGES)
  list(APPEND expected
    share/bash-completion/completions/orva-config
    share/fish/vendor_completions.d/orva-config.fish
    share/man/man1/orva-config.1
    share/zsh/vendor-completions/_orva-config)
endif()

set(tools ${WORK_DIR}/tools)
file(REMOVE_RECURSE ${tools})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${tools} --config ${CONFIG} --component tools)
file(GLOB_RECURSE installed RELATIVE ${tools} ${tools}/*)
list(SORT expected)
list(SORT installed)
if(NOT installed STREQUAL expected)
  message(FATAL_ERROR "the component tools has ${installed}, and should have ${expected}")
endif()
foreach(file ${expected})
  if(NOT EXISTS ${PREFIX}/${file})
    message(FATAL_ERROR "${file} is not installed")
  endif()
endforeach()

# The program finds its library and its catalogs.
set(ENV{WINEPATH} "${PREFIX}/bin")
set(program ${EMULATOR} ${PREFIX}/bin/orva-config${suffix})
set(file ${WORK_DIR}/programs.cfg)
file(WRITE ${file} "[window]\nwidth = 640\n")
execute_process(COMMAND ${program} get ${file} window.width RESULT_VARIABLE result OUTPUT_VARIABLE output)
if(NOT result EQUAL 0 OR NOT output STREQUAL "640\n")
  message(FATAL_ERROR "orva-config get ended with ${result} and printed: ${output}")
endif()
execute_process(COMMAND ${program} --language de --help RESULT_VARIABLE result OUTPUT_VARIABLE output)
if(NOT result EQUAL 0 OR NOT output MATCHES "^Aufruf: orva-config.*Konfigurationsdateien")
  message(FATAL_ERROR "orva-config --language de --help ended with ${result} and printed: ${output}")
endif()
