/// The files that the items of a manager name.
///
/// Internal: not installed.
#pragma once

#include <string_view>
#include <vector>

#include "orva/config/base_config_item.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// The key by which a source names a file.
inline constexpr std::string_view named_file_key = "cfg_file";
/// The key of the program's name, and what is added to it.
inline constexpr std::string_view program_file_key = "application.name.raw";
inline constexpr std::string_view program_file_ending = ".cfg";

/// The name that each item has by `key`, with `ending`, in the order of the items.
std::vector<strings::ustring8> names_by(const item_list& items, std::string_view key,
                                        std::string_view ending);

/// Every file that a `file_item` of the list may read, existing or not. A name may be there twice.
std::vector<strings::ustring8> files_to_watch(const item_list& items);

}  // namespace ORVA_NAMESPACE::config::_private
