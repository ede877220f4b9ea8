# 32-bit Linux on x86 with Debian's own compiler and its 32-bit libraries (package g++-multilib). The programs
# run on the build machine.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER gcc)
set(CMAKE_CXX_COMPILER g++)
set(CMAKE_C_FLAGS_INIT -m32)
set(CMAKE_CXX_FLAGS_INIT -m32)
set(ORVA_TRIPLET i686-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/cross_packages.cmake)
