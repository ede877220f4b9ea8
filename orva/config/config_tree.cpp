#include "orva/config/config_tree.hpp"

#include <array>
#include <cstddef>
#include <iterator>
#include <ostream>
#include <utility>

#include "orva/config/internal/lower_case_key.hpp"
#include "orva/generic/convert/x_to_str.hpp"
#include "orva/generic/varg_list.hpp"

namespace ORVA_NAMESPACE::config {

using _private::lower_case_key;
using _private::next_segment;
using generic::abilities::create_dynamic;

namespace {

/// What a node holds before a value is set: one payload, shared by all nodes. Never destroyed, because the
/// destructors of a program's static objects may make trees, too.
const config_tree::node_type& default_node() {
  static const config_tree::node_type& node = *new config_tree::node_type(0, true);
  return node;
}

/// A number as the name of an array's element.
class element_name {
 public:
  explicit element_name(unsigned long number) { generic::convert::ultoa(number, digits_.data(), 10); }
  operator std::string_view() const { return digits_.data(); }

 private:
  std::array<char, generic::convert::number_buffer_size> digits_;
};

}  // namespace

config_tree::config_tree() : node_(default_node()) {}

config_tree::config_tree(const config_tree& other)
    : generic::abilities::clone_ability(other),
      generic::abilities::reference_count_pointer_ability<config_tree>(other),
      node_(other.node_) {
  copy_children(other);
}

config_tree& config_tree::operator=(const config_tree& other) {
  if (this == &other) return *this;
  config_tree copy(other);
  erase();
  children_.swap(copy.children_);
  node_ = other.node_;
  return *this;
}

config_tree::~config_tree() { erase(); }

config_tree* config_tree::clone() const { return create_dynamic<config_tree>(*this); }

/// Moves the children that have children of their own; the others stay.
void config_tree::detach_branches(child_map& from, detached_nodes& to) {
  for (auto at = from.begin(); at != from.end();) {
    const auto next = std::next(at);
    if (!at->second->children_.empty()) to.insert(from.extract(at));
    at = next;
  }
}

/// A node releases its children only when these have none: destroying a deep tree would otherwise nest as
/// many calls as it has levels. Moving map nodes allocates nothing, so that destruction cannot fail.
void config_tree::erase() {
  detached_nodes branches;
  detach_branches(children_, branches);
  children_.clear();
  while (!branches.empty()) {
    const auto node = branches.extract(branches.begin());
    detach_branches(node.mapped()->children_, branches);
  }
}

void config_tree::copy_children(const config_tree& source) {
  std::vector<std::pair<const config_tree*, config_tree*>> pending{{&source, this}};
  while (!pending.empty()) {
    const auto [from, to] = pending.back();
    pending.pop_back();
    for (const auto& [name, original] : from->children_) {
      const child_pointer copy(create_dynamic<config_tree>());
      copy->node_ = original->node_;
      to->children_.emplace_hint(to->children_.end(), name, copy);
      if (!original->children_.empty()) pending.emplace_back(original.get(), copy.get());
    }
  }
}

config_tree& config_tree::ensure_child(std::string_view lower_case_name) {
  const auto position = children_.lower_bound(lower_case_name);
  if (position != children_.end() && position->first == lower_case_name) return *position->second;
  const child_pointer node(create_dynamic<config_tree>());
  return *children_.emplace_hint(position, lower_case_name, node)->second;
}

config_tree& config_tree::ensure_parent(std::string_view key) {
  const lower_case_key lower_case(key);
  std::string_view rest = lower_case.text();
  std::string_view name;
  config_tree* node = this;
  for (bool more = true; more; node = &node->ensure_child(name)) more = next_segment(rest, name);
  return *node;
}

config_tree& config_tree::ensure_node(std::string_view key) {
  if (!key.empty() && _private::is_separator(key.back())) key.remove_suffix(1);
  return ensure_parent(key);
}

void config_tree::store(const types::variant& value, unsigned int flags) {
  node_.first = flags | NODE_VALUE_SET;
  node_.second = value;
}

void config_tree::store_elements(const generic::varg_list& values, const generic::varg_list& flags) {
  for (types::uint32 i = 0; i < values.size(); ++i) {
    const types::variant& value = values[i].value();
    config_tree& element = ensure_child(element_name(i));
    if (flags.empty()) {
      element.store(value, 0);
    } else if (i < flags.size()) {
      element.store(value, flags[i].value().as_uint32());
    } else {
      // Where there is a list of flags, the elements after its end are stored as numbers.
      element.store(value.as_uint32(), 0);
    }
  }
}

void config_tree::set_node(std::string_view key, const types::variant& value, unsigned int flags) {
  ensure_node(key).store(value, flags);
}

const config_tree* config_tree::find_child(std::string_view lower_case_name) const {
  const auto found = children_.find(lower_case_name);
  return found != children_.end() ? found->second.get() : nullptr;
}

const config_tree* config_tree::find(const lower_case_key& key) const {
  std::string_view rest = key.text();
  std::string_view name;
  const config_tree* node = this;
  do {
    next_segment(rest, name);
    node = node->find_child(name);
  } while (node != nullptr && !rest.empty());
  return node;
}

const config_tree* config_tree::find(std::string_view key) const { return find(lower_case_key(key)); }

const config_tree::node_type* config_tree::get_node(std::string_view key) const {
  const config_tree* const node = find(key);
  return node != nullptr ? &node->node_ : nullptr;
}

void config_tree::get_array(std::string_view key, std::vector<value_entry>& out) const {
  const config_tree* const array = find(key);
  if (array == nullptr || (array->node_.first & NODE_ARRAY) == 0) return;
  for (unsigned long i = 0;; ++i) {
    const element_name name(i);
    const config_tree* const element = array->find_child(name);
    if (element == nullptr) return;
    out.emplace_back(name, element->node_);
  }
}

template <typename Visit>
void config_tree::visit_below(strings::ustring8 name, Visit visit) const {
  struct level {
    child_map::const_iterator at, end;
    std::size_t prefix_length;
  };
  std::vector<level> open{{children_.begin(), children_.end(), name.size()}};
  while (!open.empty()) {
    level& current = open.back();
    if (current.at == current.end) {
      open.pop_back();
      continue;
    }
    name.resize(current.prefix_length);
    if (!name.empty()) name += '.';
    name += current.at->first;
    const config_tree& child = *current.at->second;
    ++current.at;
    if (visit(name, child.node_))
      open.push_back({child.children_.begin(), child.children_.end(), name.size()});
  }
}

void config_tree::get_value_pair_array(std::string_view key, std::vector<value_entry>& out, bool recursive,
                                       std::string_view prefix) const {
  const config_tree* const top = key.empty() ? this : find(key);
  if (top == nullptr) return;
  top->visit_below(strings::ustring8(key.empty() ? prefix : ""),
                   [&](const strings::ustring8& name, const node_type& node) {
                     out.emplace_back(name, node);
                     return recursive;
                   });
}

void config_tree::append_keys(std::vector<strings::ustring8>& keys, std::size_t longest) const {
  visit_below({}, [&](const strings::ustring8& name, const node_type& node) {
    if (name.size() > longest) return false;
    if ((node.first & NODE_VALUE_SET) != 0) keys.push_back(name);
    return true;
  });
}

void config_tree::parse_string(std::string_view key, strings::ustring8& head, strings::ustring8& tail) const {
  std::string_view name;
  next_segment(key, name);
  tail.assign(key);
  head.resize(name.size());
  _private::copy_lower_case(name, head.data());
}

}  // namespace ORVA_NAMESPACE::config
