/// The system calls that are the same on every system, since a library makes them: one function each.
///
/// As with `posix/system_calls.hpp` and `windows/system_calls.hpp`, a test links others in their place.
///
/// Internal: not installed.
#pragma once

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::platform::calls {

/// What `path` itself names, a symbolic link not followed. A status that cannot be read is reported by
/// `boost::filesystem::filesystem_error`.
boost::filesystem::file_type symlink_status(const boost::filesystem::path& path);
/// The same, with the status `status_error` and `error` where it cannot be read.
boost::filesystem::file_type symlink_status(const boost::filesystem::path& path,
                                            boost::system::error_code& error);

/// The path that a symbolic link holds.
boost::filesystem::path read_symlink(const boost::filesystem::path& path, boost::system::error_code& error);

}  // namespace ORVA_NAMESPACE::platform::calls
