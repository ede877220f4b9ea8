/// Status of a path, make, rename and remove: one system call each.
///
/// Internal: not installed. Any thread may call these. A path that holds a zero unit names nothing: cut short
/// at that unit, it would name something else.
#pragma once

#include <cstdint>

#include "orva/platform/native_path.hpp"

namespace ORVA_NAMESPACE::platform {

/// What a path names, symbolic links followed. All false: nothing that can be reached.
struct file_status {
  bool exists = false;
  bool is_directory = false;
  /// A regular file: no directory, pipe, socket or device.
  bool is_file = false;
  /// The read permission of the file's owner, not of the process.
  bool owner_may_read = false;
};

file_status status(const native_string& path);

/// What tells one state of a file from another, symbolic links followed. Times are counted in the units of
/// the system; a file system may record them in steps of up to two seconds.
struct file_stamp {
  bool exists = false;
  std::uint64_t device = 0;
  std::uint64_t file = 0;
  std::uint64_t size = 0;
  std::int64_t modified = 0;
  /// The last change of the file or of what is recorded of it. 0 where the system has no such time.
  std::int64_t changed = 0;

  bool operator==(const file_stamp&) const = default;
};

file_stamp stamp_of(const native_string& path);

/// True if this call made the directory: not if it was there, not if its parent is missing.
bool make_directory(const native_string& path);

/// The same by the call of the C runtime, which leaves in `errno` why it failed.
void runtime_mkdir(const native_string& path);

/// Gives `from` the name `to`, which must be free: nothing is replaced.
bool rename(const native_string& from, const native_string& to);

/// Removes one name of a file, a symbolic link itself, never a directory.
bool remove_file(const native_string& path);

/// Removes an empty directory.
bool remove_directory(const native_string& path);

}  // namespace ORVA_NAMESPACE::platform
