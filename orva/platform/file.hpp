/// File streams by native path: a file that is read at any position, and a file that is written whole.
///
/// Internal: not installed. An object belongs to one thread at a time. A port provides:
///
///     sharing       binary files, open to other readers and writers, closed in programs that the process starts
///     waiting       an open never waits for the other end of a pipe; it does wait for a lease to be given up
///     interrupts    a call that a signal interrupts is repeated
///     paths         one with a zero unit names no file; a symbolic link as the last component is not opened
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "orva/platform/native_path.hpp"

namespace ORVA_NAMESPACE::platform {

class input_file {
 public:
  /// What is a directory, or has no size (a pipe, a socket, a terminal), is not opened.
  explicit input_file(const native_string& path);
  input_file(const input_file&) = delete;
  input_file& operator=(const input_file&) = delete;
  ~input_file();

  bool is_open() const { return handle_ != closed; }

  /// The position of the end when the file was opened.
  ///
  /// REQUIRES: is_open().
  std::int64_t size() const { return size_; }

  /// Reads `count` bytes from `offset` on. Fewer are returned only where the file ends or the system refuses
  /// to go on, and the bytes after those returned stay untouched.
  ///
  /// REQUIRES: is_open().
  std::size_t read(std::int64_t offset, char* to, std::size_t count);

 private:
  static constexpr std::intptr_t closed = -1;

  std::intptr_t handle_ = closed;
  std::int64_t size_ = 0;
};

/// Why `input_file` does not open a file, by the number of the system. 0: it does.
int open_error(const native_string& path);

/// Makes `contents` the whole file. False if the file cannot be opened; a write that fails later is not
/// reported, and leaves what was written before it.
bool write_file(const native_string& path, std::string_view contents);

}  // namespace ORVA_NAMESPACE::platform
