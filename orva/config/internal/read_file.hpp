/// The text of a configuration file.
///
/// Internal: not installed.
#pragma once

#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// False for a file that cannot be read, whatever the reason: configuration never fails.
bool read_file(const strings::ustring8& name, strings::ustring8& contents);

/// The path that `name` leads to through symbolic links, or `name` where they cannot be followed.
strings::ustring8 linked_file(const strings::ustring8& name);

/// The same as `read_file` for the file that `name` leads to.
bool read_linked_file(const strings::ustring8& name, strings::ustring8& contents);

}  // namespace ORVA_NAMESPACE::config::_private
