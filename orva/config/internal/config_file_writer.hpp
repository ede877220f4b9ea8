/// `file_item::save`: the nodes of a tree as the text of a configuration file.
///
/// Internal: not installed.
#pragma once

#include <vector>

#include "orva/config/config_tree.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// `entries` are all nodes with their full names, as `config_tree::get_value_pair_array` returns them.
strings::ustring8 write_config_file(const std::vector<config_tree::value_entry>& entries);

}  // namespace ORVA_NAMESPACE::config::_private
