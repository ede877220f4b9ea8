# Windows x86 with Debian's mingw-w64 (package g++-mingw-w64-i686-posix).
set(CMAKE_SYSTEM_PROCESSOR x86)
set(ORVA_TRIPLET i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
