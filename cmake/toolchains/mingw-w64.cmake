# What the toolchains for Windows have in common. The variant of the compiler with POSIX threads has std::mutex and its kin.
set(CMAKE_C_COMPILER ${ORVA_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ORVA_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${ORVA_MINGW}-windres)
# tools/windows_packages puts the libraries that Debian does not build for Windows there.
set(ORVA_WINDOWS_PACKAGES ${CMAKE_CURRENT_LIST_DIR}/../../build/windows-packages/${ORVA_MINGW}
  CACHE PATH "Boost.Filesystem and GoogleTest for Windows")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ORVA_MINGW ORVA_WINDOWS_PACKAGES)
set(CMAKE_FIND_ROOT_PATH /usr/${ORVA_MINGW} ${ORVA_WINDOWS_PACKAGES})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs of the build run under Wine, with the library and the compiler's own on their path.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../../tools/run_windows_program)
