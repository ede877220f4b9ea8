/// Whether a path names a symbolic link, which is asked before a file is opened, and where links lead.
///
/// Internal: not installed.
#pragma once

#include "orva/platform/native_path.hpp"

namespace ORVA_NAMESPACE::platform {

/// Whether the last component of `path` is a symbolic link. A path that names nothing is no link; a status
/// that cannot be read is reported by `boost::filesystem::filesystem_error`.
bool is_symbolic_link(const native_string& path);

/// A path, or the number by which the system says why there is none.
struct followed_path {
  native_string path;
  int system_error = 0;
};

/// The path to which any links at the end of `path` lead; nothing need be there. A path with a zero unit
/// names nothing, and leads to itself.
followed_path follow_links(const native_string& path);

// What a port implements.

/// The number by which the system says that links form a circle.
extern const int too_many_links;

}  // namespace ORVA_NAMESPACE::platform
