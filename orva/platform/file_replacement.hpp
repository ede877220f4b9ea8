/// Replaces a file as a whole, so that a crash leaves the old file or the new one.
///
/// Internal: not installed. Any thread may call. A port provides:
///
///     contents      a new file, complete and on the disk before it gets the name
///     replacing     one step of the file system; the name never is missing or names a part
///     kept          who may use the file: mode and owner, or the access control list
///     failure       the old file, and nothing beside it
#pragma once

#include <string_view>

#include "orva/platform/native_path.hpp"

namespace ORVA_NAMESPACE::platform {

/// What a replacement does, in this order.
enum class replacement_step {
  none,
  follow_links,
  check_kind,
  check_permission,
  open_directory,
  create,
  write,
  keep_owner,
  sync,
  rename,
  sync_directory,
};

/// The step that failed, and the number by which the system says why. `none`: all is done.
struct replacement_outcome {
  replacement_step failed = replacement_step::none;
  int system_error = 0;
};

/// Makes `contents` the whole file that `path` reaches through any symbolic links. A file that does not exist
/// is created. Only a directory that fails to sync is reported after the new file has the name.
replacement_outcome replace_file(const native_string& path, std::string_view contents);

// What a port uses.

/// A name that no other file is likely to have, another one for each attempt.
native_string unlikely_name(unsigned int attempt);

// What a port implements.

/// The same for a path whose last component is no link.
replacement_outcome replace_plain_file(const native_string& path, std::string_view contents);

}  // namespace ORVA_NAMESPACE::platform
