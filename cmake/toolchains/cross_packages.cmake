# Libraries and headers come from the folders of the target system, never from those of the build machine.
# tools/cross_packages builds there what Debian has no package of.
set(ORVA_CROSS_PACKAGES ${CMAKE_CURRENT_LIST_DIR}/../../build/cross-packages/${ORVA_TRIPLET}
  CACHE PATH "Boost.Filesystem and GoogleTest for ${ORVA_TRIPLET}")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ORVA_TRIPLET ORVA_CROSS_PACKAGES)
list(APPEND CMAKE_FIND_ROOT_PATH ${ORVA_CROSS_PACKAGES})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
