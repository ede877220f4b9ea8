/// What the dumps of trees, items and managers have in common.
///
/// Internal: not installed.
#pragma once

#include <string_view>

#include "orva/config/internal/unformatted_output.hpp"
#include "orva/version.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// The line between a node, or the name of an item, and its children.
inline constexpr std::string_view children_line = "|---------------\\\n";

}  // namespace ORVA_NAMESPACE::config::_private
