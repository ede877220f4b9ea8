#include "orva/config/internal/key_register.hpp"

#include <algorithm>

#include "orva/config/internal/lower_case_key.hpp"
#include "orva/config/internal/save_rules.hpp"
#include "orva/generic/convert/str_to_x.hpp"

namespace ORVA_NAMESPACE::config::_private {

using diagnostics::severity;

namespace {

generic::argument named(std::string_view raw) { return {"name", shortened(raw)}; }

/// The name of an element of an array: a number without a zero before it.
bool is_element_name(std::string_view name) {
  return !name.empty() && name.find_first_not_of("0123456789") == name.npos &&
         (name == "0" || name.front() != '0');
}

/// `save` takes these for more elements of the array before them.
bool continues_array_in_save(std::string_view name) {
  return !name.empty() &&
         generic::convert::str_to_int32(name.data(), name.size(), types::radix_t::prefix, false) != 0;
}

/// `save` takes a section below an array for an element if it has such a name.
bool is_element_in_save(std::string_view name) { return name == "0" || continues_array_in_save(name); }

/// The part of a path before its last separator, and the part after it.
std::pair<std::string_view, std::string_view> split_last(std::string_view path) {
  std::size_t at = path.size();
  while (at > 0 && !is_separator(path[at - 1])) --at;
  return {path.substr(0, at), path.substr(at)};
}

}  // namespace

key_register::key_register(finding_list& found) : found_(found), nodes_(1) {}

void key_register::open_section(placed_name section) {
  close_section();
  section_ = std::move(section);
  section_node_ = 0;
  section_has_keys_ = section_.text.empty();
  section_is_used_ = section_has_keys_;
}

void key_register::close_section() {
  if (!section_is_used_) {
    found_.add(severity::note, "config.section_without_keys", section_.offset, named(section_.raw));
  }
}

/// A section begins to matter with its first key.
std::size_t key_register::section_node() {
  if (section_has_keys_) return section_node_;
  section_has_keys_ = true;
  section_node_ = node_of(0, section_.text, section_);
  node& at = nodes_[section_node_];
  if (at.header == nowhere) {
    at.header = section_.offset;
    at.header_raw = section_.raw;
    if (!section_survives_save(section_.text)) {
      found_.add(severity::note, "config.save_changes_name", section_.offset, named(section_.raw));
    }
  } else if (at.header_raw == section_.raw) {
    found_.add(severity::note, "config.section_again", section_.offset, named(section_.raw), at.header);
  } else {
    found_.add(severity::warning, "config.section_spelled_otherwise", section_.offset,
               {named(section_.raw), {"other", shortened(at.header_raw)}}, at.header);
  }
  return section_node_;
}

std::size_t key_register::child_of(std::size_t parent, std::string_view name, const placed_name& key) {
  const auto position = children_.lower_bound(child_less::view{parent, name});
  if (position != children_.end() && child_less::view_of(position->first) == child_less::view{parent, name})
    return position->second;
  const std::size_t number = nodes_.size();
  children_.emplace_hint(position, child_name{parent, name}, number);
  node& made = nodes_.emplace_back();
  made.parent = parent;
  made.full_length = parent == 0 ? name.size() : nodes_[parent].full_length + 1 + name.size();
  made.offset = key.offset;
  made.raw = key.raw;
  made.section = section_.raw;
  return number;
}

std::size_t key_register::node_of(std::size_t top, std::string_view path, const placed_name& key) {
  const lower_case_key lower_case(path);
  if (lower_case.text() != path) upper_case_.add(key.offset);
  std::string_view rest = lower_case.text();
  std::string_view name;
  std::size_t at = top;
  for (bool more = true; more; at = child_of(at, name, key)) more = next_segment(rest, name);
  return at;
}

key_register::node& key_register::key_node(const placed_name& key) {
  const std::size_t section = section_node();
  // An array without a name has the section's own node as its header.
  if (key.text.empty() && section != 0) return nodes_[section];
  return nodes_[node_of(section, without_last_separator(key.text), key)];
}

/// The key has a value, and gets another one.
void key_register::report_again(const node& first, const placed_name& key) {
  if (first.raw == key.raw && first.section == section_.raw) {
    found_.add(severity::warning, "config.duplicate_key", key.offset, named(key.raw), first.offset);
  } else {
    found_.add(severity::warning, "config.key_spelled_otherwise", key.offset,
               {named(key.raw), {"other", shortened(first.raw)}}, first.offset);
  }
}

void key_register::set(node& at, content holds, const placed_name& key) {
  if (at.holds == content::path) {
    at.offset = key.offset;
    at.raw = key.raw;
    at.section = section_.raw;
    nodes_[at.parent].has_values = true;
  }
  at.holds = holds;
  const auto [parents, name] = split_last(without_last_separator(key.text));
  if (!key_survives_save(name, holds == content::array) || !section_survives_save(parents)) {
    found_.add(severity::note, "config.save_changes_name", key.offset, named(key.raw));
  }
}

void key_register::add_value(const placed_name& key) {
  node& at = key_node(key);
  if (at.holds == content::value) report_again(at, key);
  if (at.holds == content::array) {
    found_.add(severity::warning, "config.array_hidden", key.offset, named(key.raw), at.offset);
  }
  set(at, content::value, key);
}

void key_register::add_array(const placed_name& key, std::size_t element_count) {
  node& at = key_node(key);
  if (at.holds == content::value) report_again(at, key);
  if (at.holds == content::array) {
    found_.add(severity::warning, "config.duplicate_array", key.offset, named(key.raw), at.offset);
  }
  at.element_count = std::max(at.element_count, element_count);
  set(at, content::array, key);
}

void key_register::finish() {
  close_section();
  for (auto child = children_.cbegin(); child != children_.cend(); ++child) check_child(child);
  check_lengths();
  keys_at_top_.write(found_, severity::note, "config.save_drops_keys_at_top");
  upper_case_.write(found_, severity::note, "config.save_lower_case");
}

void key_register::check_child(const child_map::const_iterator& child) {
  const node& at = nodes_[child->second];
  const node& parent = nodes_[at.parent];
  if (at.holds == content::path) {
    if (parent.holds == content::array && is_element_in_save(child->first.second)) {
      found_.add(severity::note, "config.save_changes_name", at.offset, named(at.raw));
    }
    return;
  }
  if (at.parent == 0) {
    keys_at_top_.add(at.offset);
  } else if (parent.element_count != 0 && is_element_name(child->first.second)) {
    found_.add(severity::warning, "config.array_element", at.offset, named(at.raw), parent.offset);
  } else if (parent.holds != content::path) {
    found_.add(severity::note, "config.save_drops_key_below_value", at.offset, named(at.raw), parent.offset);
  }
  if (at.holds != content::array) return;
  // In the order of their names, 10 comes before 2.
  if (at.element_count > 10) {
    found_.add(severity::note, "config.save_sorts_elements", at.offset, named(at.raw));
  }
  if (at.parent != 0 && parent.holds == content::path) check_after_array(child);
}

/// `save` takes numbers after an array for its elements, and skips the key after them.
void key_register::check_after_array(child_map::const_iterator array) {
  const std::size_t line_of_array = nodes_[array->second].offset;
  const std::size_t parent = array->first.first;
  for (auto next = std::next(array); next != children_.end() && next->first.first == parent; ++next) {
    const node& at = nodes_[next->second];
    if (at.holds == content::path) return;
    found_.add(severity::note, "config.save_drops_key_after_array", at.offset, named(at.raw), line_of_array);
    if (!continues_array_in_save(next->first.second)) return;
  }
}

void key_register::same_length::add(std::size_t offset, std::string_view raw) {
  if (offset < first) {
    std::swap(first, offset);
    std::swap(first_raw, raw);
  }
  if (offset < second) {
    second = offset;
    second_raw = raw;
  }
}

/// `save` writes a key into each section whose full name is as long as that of its own section.
void key_register::check_lengths() const {
  std::map<std::size_t, same_length> lengths;
  for (std::size_t number = 1; number < nodes_.size(); ++number) {
    const node& at = nodes_[number];
    const bool is_section = at.holds == content::path;
    const bool is_group = at.has_values || at.holds == content::array;
    if (!is_section && !is_group) continue;
    same_length& same = lengths[at.full_length];
    same.sections += is_section;
    same.groups += is_group;
    same.other_groups += is_group && !is_section;
    const bool has_header = at.header != nowhere;
    same.add(has_header ? at.header : at.offset, has_header ? at.header_raw : at.raw);
  }
  for (const auto& [length, same] : lengths) {
    if (!same.is_mixed()) continue;
    found_.add(severity::note, "config.save_mixes_sections", same.second, named(same.second_raw), same.first);
  }
}

}  // namespace ORVA_NAMESPACE::config::_private
