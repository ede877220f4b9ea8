/// The system calls that are the same on every system, since a library makes them: one function each.
///
/// As with `posix/system_calls.hpp` and `windows/system_calls.hpp`, a test links others in their place.
///
/// Internal: not installed.
#pragma once

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::platform::calls {

/// What `path` itself names, a symbolic link not followed. A status that cannot be read is reported by
/// `boost::filesystem::filesystem_error`.
boost::filesystem::file_type symlink_status(const boost::filesystem::path& path);

}  // namespace ORVA_NAMESPACE::platform::calls
