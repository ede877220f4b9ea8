/// A native path as a system call takes it.
#pragma once

#include "orva/platform/native_path.hpp"

namespace ORVA_NAMESPACE::platform::windows {

/// The terminated units of `path`. A path that holds a zero unit gives the empty path, which names nothing:
/// the system would stop reading at that unit and act on another file.
inline const wchar_t* c_path(const native_string& path) {
  return path.find(L'\0') == path.npos ? path.c_str() : L"";
}

}  // namespace ORVA_NAMESPACE::platform::windows
