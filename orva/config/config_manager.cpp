#include "orva/config/config_manager.hpp"

#include <algorithm>
#include <ostream>
#include <set>
#include <string>

#include "orva/config/internal/array_flags.hpp"
#include "orva/config/internal/lower_case_key.hpp"
#include "orva/config/internal/unformatted_output.hpp"

namespace ORVA_NAMESPACE::config {

using _private::array_flags;
using _private::lower_case_key;
using _private::write_unformatted;
using types::variant;

namespace {

bool is_array_node(const config_tree::node_type* node) {
  return node != nullptr && (node->first & array_flags) == array_flags;
}

variant first_element(const base_config_item& item, std::string_view key) {
  const auto* const element = item.get_value(std::string(key) + ".0");
  return element != nullptr ? element->second : variant();
}

}  // namespace

config_manager::~config_manager() = default;

void config_manager::init(const config_dispatch& dispatch) {
  const std::shared_ptr<const config_dispatch> own(dispatch.clone());
  item_list items;
  own->setup(items);
  items_.swap(items);
  dispatch_ = own;
}

bool config_manager::load() {
  if (dispatch_ == nullptr) return false;
  dispatch_->load(items_);
  return true;
}

bool config_manager::unload() {
  if (dispatch_ == nullptr) return false;
  dispatch_->unload(items_);
  return true;
}

bool config_manager::save() {
  if (dispatch_ == nullptr) return false;
  dispatch_->save(items_);
  return true;
}

config_manager::found_node config_manager::find(std::string_view key) const {
  const lower_case_key lower_case(key);
  for (const auto& item : items_) {
    if (const auto* const node = item->get_value(lower_case)) return {item.get(), node};
  }
  return {};
}

const base_config_item* config_manager::find_array(std::string_view key) const {
  const lower_case_key lower_case(key);
  for (const auto& item : items_) {
    if (is_array_node(item->get_value(lower_case))) return item.get();
  }
  return nullptr;
}

variant config_manager::get_value(std::string_view key, const variant& default_value) const {
  std::set<std::string, std::less<>> visited;
  std::string target;
  for (std::string_view current = key;; current = target) {
    const auto [item, node] = find(current);
    if (node == nullptr) return default_value;
    if (is_array_node(node)) return first_element(*item, current);
    if ((node->first & config_tree::NODE_LINK) == 0) return node->second;
    // Names are compared as they are spelled: a circle through a key in two spellings ends when a spelling
    // repeats.
    visited.emplace(current);
    target = node->second.as_string();
    if (visited.contains(target)) return node->second;
  }
}

bool config_manager::value_exist(std::string_view key) const { return !(get_value(key) == types::nil); }

bool config_manager::is_array(std::string_view key) const { return find_array(key) != nullptr; }

void config_manager::get_array(std::string_view key, std::vector<variant>& out) const {
  const base_config_item* const item = find_array(key);
  if (item == nullptr) return;
  std::vector<base_config_item::value_entry> elements;
  item->get_array(key, elements);
  for (auto& element : elements) out.push_back(std::move(element.second.second));
}

void config_manager::get_key_value_array(std::string_view key,
                                         std::vector<std::pair<strings::ustring8, variant>>& out,
                                         bool recursive) const {
  const base_config_item* const item = find(key).item;
  if (item == nullptr) return;
  std::vector<base_config_item::value_entry> entries;
  item->get_value_pair_array(key, entries, recursive);
  for (auto& [name, node] : entries) out.emplace_back(std::move(name), std::move(node.second));
}

memory::pointers::rc_pointer<base_config_item> config_manager::get_config_item(std::string_view id) const {
  const auto found =
      std::find_if(items_.begin(), items_.end(), [id](const auto& item) { return item->get_id() == id; });
  if (found == items_.end()) return {};
  return *found;
}

void config_manager::dump(std::ostream& stream) const {
  write_unformatted(stream, "config_manager:\n");
  for (const auto& item : items_) {
    write_unformatted(stream, "\nconfig_item:\n");
    item->dump(stream);
  }
  write_unformatted(stream, "\nno more config_items!\n\nending output\n");
}

std::ostream& operator<<(std::ostream& stream, const config_manager& manager) {
  manager.dump(stream);
  return stream;
}

}  // namespace ORVA_NAMESPACE::config
