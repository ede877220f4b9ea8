# Reads the version from orva/version.hpp, the only place that has it. ORVA_VERSION is
# "<major>.<minor>.<patch>", ORVA_NAMESPACE the namespace that the header makes of it.
set(header ${CMAKE_CURRENT_LIST_DIR}/../orva/version.hpp)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${header})
foreach(part MAJOR MINOR PATCH)
  file(STRINGS ${header} line REGEX "^#define ORVA_VERSION_${part} [0-9]+$")
  if(NOT line)
    message(FATAL_ERROR "${header} does not define ORVA_VERSION_${part}")
  endif()
  string(REGEX REPLACE ".* " "" ${part} "${line}")
endforeach()
set(ORVA_VERSION ${MAJOR}.${MINOR}.${PATCH})
set(ORVA_NAMESPACE ORVA_${MAJOR}_${MINOR})
