/// The flags of an array's node.
///
/// Internal: not installed.
#pragma once

#include "orva/config/config_tree.hpp"

namespace ORVA_NAMESPACE::config::_private {

inline constexpr unsigned int array_flags = config_tree::NODE_VALUE_SET | config_tree::NODE_ARRAY;

}  // namespace ORVA_NAMESPACE::config::_private
