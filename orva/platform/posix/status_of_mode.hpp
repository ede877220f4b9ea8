/// A file mode of the system as a `file_status`.
#pragma once

#include <sys/stat.h>

#include "orva/platform/file_operations.hpp"

namespace ORVA_NAMESPACE::platform::posix {

inline file_status status_of_mode(mode_t mode) {
  return {true, S_ISDIR(mode), S_ISREG(mode), (mode & S_IRUSR) != 0};
}

}  // namespace ORVA_NAMESPACE::platform::posix
