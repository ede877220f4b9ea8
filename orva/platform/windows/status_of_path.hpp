/// A status of the runtime as a `file_status`.
#pragma once

#include "orva/platform/file_operations.hpp"
#include "orva/platform/windows/system_calls.hpp"

namespace ORVA_NAMESPACE::platform::windows {

inline file_status status_of_path(const wchar_t* path) {
  struct _stat64i32 found = {};
  if (calls::stat(path, &found) != 0) return {};
  const auto mode = found.st_mode;
  return {true, (mode & _S_IFMT) == _S_IFDIR, (mode & _S_IFMT) == _S_IFREG, (mode & _S_IREAD) != 0};
}

}  // namespace ORVA_NAMESPACE::platform::windows
