/// `plain_item`: an item that reads nothing, for tests of the base class, and helpers to look at items.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "orva/config/base_config_item.hpp"
#include "tests/support/reference_config.hpp"

namespace orva_test {

class plain_item : public ORVA_NAMESPACE::config::base_config_item {
 public:
  using base_config_item::get_token;

  plain_item* clone() const override {
    return ORVA_NAMESPACE::generic::abilities::create_dynamic<plain_item>(*this);
  }

  ORVA_NAMESPACE::config::config_tree& tree() { return tree_; }
  void name(std::string_view id) { id_.assign(id); }
};

/// The text as a part of a test's name: other characters than letters, digits and `=` become `_`.
inline std::string test_name(std::string text) {
  for (char& c : text) {
    const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '=';
    if (!plain) c = '_';
  }
  return text;
}

/// All tokens of a text, as the library reads them.
inline std::vector<reference_token> tokens_of(const std::string& source) {
  using ORVA_NAMESPACE::config::config_token;
  const plain_item item;
  std::vector<reference_token> tokens;
  config_token token;
  unsigned int position = 0;
  while (item.get_token(source, position, token) != config_token::T_END) {
    tokens.push_back({token.type, token.text, token.start_position, token.end_position});
  }
  return tokens;
}

/// The value of a key as text, or "(none)" if there is no such key.
inline std::string value_of(const ORVA_NAMESPACE::config::base_config_item& item, std::string_view key) {
  const auto* const node = item.get_value(key);
  return node == nullptr ? "(none)" : std::string(node->second.as_string());
}

/// The flags of a key, or -1 if there is no such key.
inline int flags_of(const ORVA_NAMESPACE::config::base_config_item& item, std::string_view key) {
  const auto* const node = item.get_value(key);
  return node == nullptr ? -1 : static_cast<int>(node->first);
}

/// The elements of an array.
inline std::vector<std::string> array_of(const ORVA_NAMESPACE::config::base_config_item& item,
                                         std::string_view key) {
  std::vector<ORVA_NAMESPACE::config::base_config_item::value_entry> elements;
  item.get_array(key, elements);
  std::vector<std::string> values;
  for (const auto& element : elements) values.push_back(element.second.second.as_string());
  return values;
}

}  // namespace orva_test
