/// Single file system calls by a path of any width.
///
/// Paths are text of any of the three widths, as `path_argument` tells; symbolic links are followed, except
/// by `remove_file` and `move`, which act on the link. A path that holds a zero unit names nothing. Nothing
/// throws but for want of memory, and nothing is shared, so any thread may call.
#pragma once

#include "orva/export.hpp"
#include "orva/system/path_argument.hpp"

namespace ORVA_NAMESPACE::system::io {

/// Whether the path names anything that can be reached.
ORVA_API bool exists(const path_argument& path);

/// Whether it is a directory. Where the path names nothing, neither this nor `is_file` is true.
ORVA_API bool is_directory(const path_argument& path);

/// Whether it is a regular file: no directory, pipe, socket or device.
ORVA_API bool is_file(const path_argument& path);

// The following four report nothing, neither success nor failure. Ask with `exists` afterwards where it
// matters.

/// Makes one directory, whose parent must exist. `system::create_directory` makes parents too.
ORVA_API void mkdir(const path_argument& path);

/// Gives the file or directory `from` the name `to`: the new name comes first. A name that is taken already
/// is not replaced, and both stay as they are.
ORVA_API void move(const path_argument& to, const path_argument& from);

/// Removes a file, or the symbolic link itself. A directory stays.
ORVA_API void remove_file(const path_argument& path);

/// Removes an empty directory. Anything else stays.
ORVA_API void remove_dir(const path_argument& path);

}  // namespace ORVA_NAMESPACE::system::io
