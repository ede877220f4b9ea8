# The common part of the toolchains for Windows. They use the variant of the compiler with POSIX threads, as
# only that one has std::mutex and the like.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${ORVA_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ORVA_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${ORVA_TRIPLET}-windres)
list(APPEND CMAKE_FIND_ROOT_PATH /usr/${ORVA_TRIPLET})
include(${CMAKE_CURRENT_LIST_DIR}/cross_packages.cmake)

# The programs of the build run under Wine, with this library and those of the compiler on their path.
# Debian's Wine runs 64-bit programs only.
if(ORVA_TRIPLET STREQUAL "x86_64-w64-mingw32")
  get_filename_component(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../../tools/run_windows_program ABSOLUTE)
endif()
