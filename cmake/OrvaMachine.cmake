# Options for every target of the project that depend on the machine.

if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  # The x87 unit computes in 80 bits and rounds only when a value is stored, so that results would depend on
  # what the optimiser keeps in registers.
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "86|AMD64")
    add_compile_options(-msse2 -mfpmath=sse)
  endif()
  # Without these, files of 2 GB and large inode numbers are errors, and times end in 2038.
  if(UNIX)
    add_compile_definitions(_FILE_OFFSET_BITS=64 _TIME_BITS=64)
  endif()
endif()
