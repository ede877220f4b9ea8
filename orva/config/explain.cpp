#include "orva/config/explain.hpp"

#include <algorithm>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "orva/config/commandline_item.hpp"
#include "orva/config/enviroment_item.hpp"
#include "orva/config/file_item.hpp"
#include "orva/config/internal/argument_values.hpp"
#include "orva/config/internal/array_flags.hpp"
#include "orva/config/internal/lower_case_key.hpp"
#include "orva/config/internal/read_file.hpp"
#include "orva/config/internal/value_places.hpp"
#include "orva/config/linked_file_item.hpp"
#include "orva/config/user_item.hpp"

namespace ORVA_NAMESPACE::config {

using _private::array_flags;
using _private::canonical_key;
using node_type = base_config_item::node_type;
using item_pointer = memory::pointers::rc_pointer<base_config_item>;

namespace {

/// A value that a source had when it was read again.
struct located_value {
  strings::ustring8 text;
  bool is_array = false;
  /// Of a variable; others have none.
  strings::ustring8 name;
  std::size_t argument = 0;
  diagnostics::place at;
};

/// By canonical key.
using located_values = std::unordered_map<std::string, located_value>;

located_values values_of(const commandline_item& item) {
  located_values values;
  for (auto& [key, argument, text, is_array] : _private::values_of_arguments(item))
    values[key] = {std::move(text), is_array, item.get_argv()[argument], argument, {}};
  return values;
}

located_values values_of(const file_item& item) {
  located_values values;
  strings::ustring8 text;
  if (item.get_filename().empty()) return values;
  const bool follows_links = dynamic_cast<const linked_file_item*>(&item) != nullptr;
  const auto read = follows_links ? _private::read_linked_file : _private::read_file;
  if (!read(item.get_filename(), text)) return values;
  const _private::value_places places(text);
  for (const _private::value_place& found : places.all())
    values[canonical_key(found.name)] = {found.text, found.is_array, {}, 0, found.value};
  return values;
}

located_values values_of(const enviroment_item& item) {
  located_values values;
  if (item.get_envp() == nullptr) return values;
  for (const char* const* entry = item.get_envp(); *entry != nullptr; ++entry) {
    const auto [key, value] = item.make_key_value(*entry, config_token::T_EQ);
    const std::string_view whole = *entry;
    values[canonical_key(key)] = {
        value.as_string(), false, strings::ustring8(whole.substr(0, whole.find('='))), 0, {}};
  }
  return values;
}

/// Whether a node has what the source had for it. A link has been set by the program.
bool is_same(const node_type& node, const located_value& located) {
  if (located.is_array) return node.first == array_flags;
  return node.first == config_tree::NODE_VALUE_SET && node.second.as_string() == located.text;
}

}  // namespace

/// An item of the manager, and where its values are.
class explainer::source {
 public:
  explicit source(item_pointer item) : item_(std::move(item)) {
    origin_.source = item_->get_id();
    provider_ = dynamic_cast<const origin_provider*>(item_.get());
    if (provider_ != nullptr) return;
    if (const auto* const arguments = dynamic_cast<const commandline_item*>(item_.get())) {
      locate(origin_kind::argument, *arguments);
    } else if (const auto* const file = dynamic_cast<const file_item*>(item_.get())) {
      origin_.name = file->get_filename();
      locate(origin_kind::file, *file);
    } else if (const auto* const environment = dynamic_cast<const enviroment_item*>(item_.get())) {
      locate(origin_kind::variable, *environment);
    } else {
      const bool is_user_item = dynamic_cast<const user_item*>(item_.get()) != nullptr;
      origin_.kind = is_user_item ? origin_kind::program : origin_kind::other;
    }
  }

  const base_config_item& item() const { return *item_; }

  value_origin origin_of(std::string_view key, const node_type& node) const {
    if (provider_ != nullptr) {
      value_origin origin = provider_->origin_of(key);
      if (origin.source.empty()) origin.source = origin_.source;
      return origin;
    }
    value_origin origin = origin_;
    const auto found = located_.find(canonical_key(key));
    if (found == located_.end() || !is_same(node, found->second)) return origin;
    if (!found->second.name.empty()) origin.name = found->second.name;
    origin.argument = found->second.argument;
    origin.at = found->second.at;
    return origin;
  }

 private:
  template <typename Item>
  void locate(origin_kind kind, const Item& item) {
    origin_.kind = kind;
    located_ = values_of(item);
  }

  item_pointer item_;
  const origin_provider* provider_ = nullptr;
  /// What the origins of all values have in common.
  value_origin origin_;
  located_values located_;
};

namespace {

node_kind kind_of(const node_type& node) {
  if ((node.first & array_flags) == array_flags) return node_kind::array;
  if ((node.first & config_tree::NODE_LINK) != 0) return node_kind::link;
  return (node.first & config_tree::NODE_VALUE_SET) != 0 ? node_kind::value : node_kind::section;
}

std::size_t count_elements(const base_config_item& item, std::string_view key) {
  std::vector<base_config_item::value_entry> elements;
  item.get_array(key, elements);
  return elements.size();
}

/// Makes the steps of one explanation, as `config_manager::get_value` goes.
template <typename Source>
class step_maker {
 public:
  step_maker(const std::vector<Source>& sources, explanation& explained)
      : sources_(sources), explained_(explained) {}

  void make(std::string_view key, const types::variant& default_value) {
    std::set<std::string, std::less<>> visited;
    std::string target;
    for (std::string_view current = key;; current = target) {
      const std::size_t first = explained_.steps.size();
      const Source* const winner = add_sources(current);
      if (winner == nullptr) return add_default(current, default_value);
      explained_step& step = explained_.steps[first];
      explained_.value = step.value;
      if (step.kind == node_kind::array) {
        step.result = step_result::first_element;
        return add_first_element(*winner, current);
      }
      if (step.kind != node_kind::link) return;
      visited.emplace(current);
      target = step.value.as_string();
      step.result = step_result::closes_circle;
      if (visited.contains(target)) return;
      step.result = step_result::followed;
    }
  }

 private:
  /// The first source that has the key, or null.
  const Source* add_sources(std::string_view key) {
    const Source* winner = nullptr;
    for (const Source& source : sources_) {
      const node_type* const node = source.item().get_value(key);
      if (node == nullptr) continue;
      const auto result = winner == nullptr ? step_result::used : step_result::hidden;
      if (winner == nullptr) winner = &source;
      const node_kind kind = kind_of(*node);
      const std::size_t elements = kind == node_kind::array ? count_elements(source.item(), key) : 0;
      explained_.steps.push_back(
          {strings::ustring8(key), source.origin_of(key, *node), kind, node->second, elements, result});
    }
    return winner;
  }

  void add_first_element(const Source& source, std::string_view array) {
    const auto key = strings::ustring8(array) + ".0";
    explained_.value = types::variant();
    if (const node_type* const node = source.item().get_value(key)) {
      explained_.value = node->second;
      explained_.steps.push_back(
          {key, source.origin_of(key, *node), kind_of(*node), node->second, 0, step_result::used});
    } else {
      explained_.steps.push_back({key, {}, node_kind::none, {}, 0, step_result::used});
    }
  }

  void add_default(std::string_view key, const types::variant& default_value) {
    explained_.value = default_value;
    explained_.steps.push_back(
        {strings::ustring8(key), {}, node_kind::none, default_value, 0, step_result::defaulted});
  }

  const std::vector<Source>& sources_;
  explanation& explained_;
};

}  // namespace

explainer::explainer(const config_manager& manager) {
  auto sources = std::make_shared<std::vector<source>>();
  for (const item_pointer& item : manager.items_) sources->emplace_back(item);
  sources_ = std::move(sources);
}

explainer::explainer(const explainer& other) = default;
explainer& explainer::operator=(const explainer& other) = default;
explainer::~explainer() = default;

explanation explainer::explain(std::string_view key, const types::variant& default_value) const {
  explanation explained;
  explained.key = strings::ustring8(key);
  step_maker(*sources_, explained).make(key, default_value);
  return explained;
}

std::vector<strings::ustring8> explainer::keys() const {
  std::vector<strings::ustring8> names;
  for (const source& from : *sources_) from.item().append_keys(names, max_listed_key);
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

explanation explain(const config_manager& manager, std::string_view key,
                    const types::variant& default_value) {
  return explainer(manager).explain(key, default_value);
}

}  // namespace ORVA_NAMESPACE::config
