/// Checks the bytes of a configuration file: its encoding, and bytes that do not belong in a text.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "orva/config/internal/finding_list.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// Returns where the text begins, after a byte order mark. Nothing for UTF-16 and UTF-32: there are no
/// lines to check.
std::optional<std::size_t> check_encoding(std::string_view text, finding_list& found);

}  // namespace ORVA_NAMESPACE::config::_private
