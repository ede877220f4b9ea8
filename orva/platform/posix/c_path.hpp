/// A native path as a system call takes it.
#pragma once

#include "orva/platform/native_path.hpp"

namespace ORVA_NAMESPACE::platform::posix {

/// The terminated bytes of `path`. A path that holds a zero byte gives the empty path, which names nothing:
/// the system would stop reading at that byte and act on another file.
inline const char* c_path(const native_string& path) {
  return path.find('\0') == path.npos ? path.c_str() : "";
}

}  // namespace ORVA_NAMESPACE::platform::posix
