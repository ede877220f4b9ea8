/// Whether a path names a symbolic link, which is asked before a file is opened.
///
/// Internal: not installed.
#pragma once

#include "orva/platform/native_path.hpp"

namespace ORVA_NAMESPACE::platform {

/// Whether the last component of `path` is a symbolic link. A path that names nothing is no link; a status
/// that cannot be read is reported by `boost::filesystem::filesystem_error`.
bool is_symbolic_link(const native_string& path);

}  // namespace ORVA_NAMESPACE::platform
