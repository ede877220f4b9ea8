# 32-bit Linux on x86 with the other half of Debian's own compiler (package g++-multilib). Its programs run where they
# are built.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER gcc)
set(CMAKE_CXX_COMPILER g++)
set(CMAKE_C_FLAGS_INIT -m32)
set(CMAKE_CXX_FLAGS_INIT -m32)
set(ORVA_TRIPLET i686-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/cross_packages.cmake)
