#include "orva/config/base_config_item.hpp"

#include <ostream>

#include "orva/config/internal/dump_format.hpp"
#include "orva/config/internal/lower_case_key.hpp"
#include "orva/config/internal/token_scanner.hpp"

namespace ORVA_NAMESPACE::config {

using _private::scan_token;
using _private::scanned_token;
using _private::write_unformatted;
using tok_types = config_token::tok_types;

base_config_item& base_config_item::operator=(const base_config_item& other) {
  id_ = other.id_;
  tree_ = other.tree_;
  return *this;
}

base_config_item::~base_config_item() = default;

bool base_config_item::load() { return true; }

bool base_config_item::load(const item_list&) { return load(); }

bool base_config_item::save() { return true; }

bool base_config_item::save(const item_list&) { return true; }

void base_config_item::unload() {}

const base_config_item::node_type* base_config_item::get_value(const _private::lower_case_key& key) const {
  const config_tree* const node = tree_.find(key);
  return node != nullptr ? &node->node_ : nullptr;
}

void base_config_item::set(const std::pair<strings::ustring8, types::variant>& entry, unsigned int flags) {
  set(entry.first, entry.second, flags);
}

void base_config_item::set(std::string_view key, const types::variant& value, unsigned int flags) {
  tree_.set_node(key, value, flags);
}

void base_config_item::set(std::string_view expression, unsigned int flags) {
  set(make_key_value(expression, tok_types::T_EQ), flags);
}

std::pair<strings::ustring8, types::variant> base_config_item::make_key_value(std::string_view expression,
                                                                              tok_types separator) const {
  unsigned int position = 0;
  scanned_token token;
  strings::ustring8 key;
  while (scan_token(expression, position, token) != tok_types::T_END && token.type != separator) {
    if (!token.is_white_space()) key += token.text;
  }
  strings::ustring8 value;
  while (scan_token(expression, position, token) != tok_types::T_END && token.type != tok_types::T_NEWLINE) {
    if (!token.is_white_space()) value += token.text;
  }
  return {std::move(key), std::move(value)};
}

void base_config_item::set_array(std::string_view key, const generic::varg_list& values,
                                 const generic::varg_list& flags) {
  tree_.set_node(key, types::nil, config_tree::NODE_ARRAY);
  // Without elements no node is made for them: it differs from that of the key where this ends in a
  // separator.
  if (!values.empty()) tree_.ensure_parent(key).store_elements(values, flags);
}

void base_config_item::dump(std::ostream& stream) const {
  write_unformatted(stream, "object : ");
  write_unformatted(stream, id_);
  write_unformatted(stream, "\n");
  write_unformatted(stream, _private::children_line);
  tree_.dump(stream, 1);
  write_unformatted(stream, "end\n");
}

tok_types base_config_item::get_token(std::string_view source, unsigned int& position,
                                      config_token& token) const {
  scanned_token scanned;
  const tok_types result = scan_token(source, position, scanned);
  token.type = scanned.type;
  if (scanned.type == tok_types::T_END) return result;
  token.start_position = scanned.start_position;
  token.end_position = scanned.end_position;
  if (scanned.type != tok_types::T_SPACE) token.text.assign(scanned.text);
  return result;
}

std::ostream& operator<<(std::ostream& stream, const base_config_item& item) {
  item.dump(stream);
  return stream;
}

}  // namespace ORVA_NAMESPACE::config
