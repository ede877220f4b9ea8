/// How both parsers write their errors to a stream.
///
/// Internal.
#pragma once

#include <iosfwd>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::parser::_private {

/// The name of the error, its place, and, where they are not empty, its data and the open element.
///
///     mismatched_tag at byte 41: "menu", open element "entry"
std::ostream& write_error(std::ostream& stream, std::string_view name, long long offset,
                          std::string_view data, std::string_view open_element);

}  // namespace ORVA_NAMESPACE::parser::_private
