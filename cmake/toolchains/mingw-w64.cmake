# What the toolchains for Windows have in common. The variant of the compiler with POSIX threads has std::mutex and its kin.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${ORVA_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ORVA_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${ORVA_TRIPLET}-windres)
list(APPEND CMAKE_FIND_ROOT_PATH /usr/${ORVA_TRIPLET})
include(${CMAKE_CURRENT_LIST_DIR}/cross_packages.cmake)

# Programs of the build run under Wine, with the library and the compiler's own on their path. Debian's Wine runs 64 bits.
if(ORVA_TRIPLET STREQUAL "x86_64-w64-mingw32")
  get_filename_component(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../../tools/run_windows_program ABSOLUTE)
endif()
