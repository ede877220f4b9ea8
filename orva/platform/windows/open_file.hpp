/// An open file handle.
#pragma once

#include <utility>

#include "orva/platform/windows/c_path.hpp"
#include "orva/platform/windows/system_calls.hpp"

namespace ORVA_NAMESPACE::platform::windows {

/// Closes the handle at its end; INVALID_HANDLE_VALUE is none.
class open_file {
 public:
  explicit open_file(HANDLE file) : file_(file) {}
  /// Lets other readers and writers in. The flag for links keeps one that takes the file's place after
  /// someone looked for links from being followed.
  open_file(const native_string& path, DWORD access, DWORD creation)
      : file_(calls::create_file(c_path(path), access, FILE_SHARE_READ | FILE_SHARE_WRITE, creation,
                                 FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT)) {}
  open_file(const open_file&) = delete;
  open_file& operator=(const open_file&) = delete;
  ~open_file() { close(); }

  HANDLE get() const { return file_; }
  bool is_open() const { return file_ != INVALID_HANDLE_VALUE; }
  HANDLE release() { return std::exchange(file_, INVALID_HANDLE_VALUE); }
  void close() {
    if (is_open()) calls::close_handle(release());
  }
  /// REQUIRES: !is_open().
  void reset(HANDLE file) { file_ = file; }

  /// A file of a disk, no link, pipe or console.
  bool is_plain() const {
    BY_HANDLE_FILE_INFORMATION found = {};
    return is_open() && calls::get_file_type(file_) == FILE_TYPE_DISK &&
           calls::get_file_information(file_, &found) != 0 &&
           (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
  }

 private:
  HANDLE file_;
};

}  // namespace ORVA_NAMESPACE::platform::windows
