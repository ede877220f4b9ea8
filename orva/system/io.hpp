/// Single operations of the file system.
///
///     if (!system::io::is_directory("logs")) system::io::mkdir("logs");
///     system::io::move("logs/old.txt", "logs/new.txt");          // the new name is the first
///
/// Paths are a `std::filesystem::path` or text of any of the three widths, see `path_argument`. A path that
/// contains a zero unit names nothing. Symbolic links are followed, except by `remove_file` and `move`, which
/// act on the link itself. Only `std::bad_alloc` is thrown. Any thread may call.
///
/// Edge cases: docs/edges.md#files
#pragma once

#include "orva/export.hpp"
#include "orva/system/path_argument.hpp"

namespace ORVA_NAMESPACE::system::io {

/// Whether the path names something of any kind that can be reached.
ORVA_API bool exists(const path_argument& path);

/// Whether the path names a directory.
ORVA_API bool is_directory(const path_argument& path);

/// Whether the path names a regular file, not a directory, pipe, socket or device.
ORVA_API bool is_file(const path_argument& path);

// The following four report neither success nor failure. Call `exists` afterwards where it matters.

/// Creates a directory, whose parent must exist. `system::create_directory` creates parents too.
ORVA_API void mkdir(const path_argument& path);

/// Renames the file or directory `from` to `to`. Note the order: the new name is first. If `to` exists,
/// nothing changes.
ORVA_API void move(const path_argument& to, const path_argument& from);

/// Removes a file or a symbolic link, but not a directory.
ORVA_API void remove_file(const path_argument& path);

/// Removes an empty directory, and nothing else.
ORVA_API void remove_dir(const path_argument& path);

}  // namespace ORVA_NAMESPACE::system::io
