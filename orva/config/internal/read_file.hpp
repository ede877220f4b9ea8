/// The text of a configuration file.
///
/// Internal: not installed.
#pragma once

#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// False for a file that cannot be read, whatever the reason: configuration never fails.
bool read_file(const strings::ustring8& name, strings::ustring8& contents);

}  // namespace ORVA_NAMESPACE::config::_private
