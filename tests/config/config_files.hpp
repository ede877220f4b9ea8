/// Helpers that read configuration text in tests, through a file.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "orva/config/file_item.hpp"
#include "tests/support/config_item.hpp"
#include "tests/support/temporary_directory.hpp"

namespace orva_test {

/// An item that has loaded a file with this text.
inline std::unique_ptr<ORVA_NAMESPACE::config::file_item> load_text(std::string_view text) {
  static const temporary_directory directory;
  auto item = std::make_unique<ORVA_NAMESPACE::config::file_item>(directory.write("test.cfg", text));
  item->load();
  return item;
}

/// The nodes that have a value, as "name=value", or "name[]" for the header of an array.
inline std::string keys_of_text(std::string_view text) {
  std::vector<ORVA_NAMESPACE::config::base_config_item::value_entry> entries;
  load_text(text)->get_value_pair_array("", entries, true);
  std::string keys;
  for (const auto& [name, node] : entries) {
    if (node.first == 0) continue;
    if (!keys.empty()) keys += ' ';
    keys += name + (node.first == 3 ? "[]" : "=" + node.second.as_string());
  }
  return keys;
}

}  // namespace orva_test
