/// Why a text is not wholly a size or a duration.
///
///     quantity_finding("size", "", "4 KiB, or less", 5, "a.txt")      // "size.rest", at line 1, column 6
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string_view>

#include "orva/diagnostics/finding.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// `area` is that of the codes, and the name of the argument. `error` is the name of an error, empty for
/// none. `length` is that of the quantity at the front of the text.
diagnostics::finding quantity_finding(const char* area, std::string_view error, std::string_view text,
                                      std::size_t length, std::string_view file);

}  // namespace ORVA_NAMESPACE::config::_private
