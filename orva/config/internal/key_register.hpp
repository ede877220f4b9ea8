/// `key_register`: the keys of a configuration file with their places. It finds keys that are set twice, and
/// what `file_item::save` would lose.
///
/// Internal: not installed. It refers to the text that is checked.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/config/internal/checked_text.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// A name as `file_item` reads it, as it is in the text, and where.
struct placed_name {
  strings::ustring8 text;
  std::string_view raw;
  std::size_t offset = nowhere;
};

class key_register {
 public:
  explicit key_register(finding_list& found);

  /// The keys after this are in the section. An empty name is the top.
  void open_section(placed_name section);
  /// It has a line that is more than a comment, even if there is no key in it.
  void section_is_used() { section_is_used_ = true; }
  void add_value(const placed_name& key);
  /// The name is without `[]`.
  void add_array(const placed_name& key, std::size_t element_count);

  /// Makes the findings that need all keys.
  void finish();

 private:
  enum class content { path, value, array };

  struct node {
    std::size_t parent = 0;
    content holds = content::path;
    bool has_values = false;        // children that are values or arrays
    std::size_t full_length = 0;    // of the name with the names of its parents
    std::size_t element_count = 0;  // of an array
    std::size_t offset = nowhere;   // the first place of a value, or of what made the node
    std::string_view raw;           // the key there
    std::string_view section;       // the section there
    std::size_t header = nowhere;   // the first header of a section
    std::string_view header_raw;
  };

  /// The names of nodes below their parents, in the order in which `save` walks through a tree.
  using child_name = std::pair<std::size_t, std::string>;
  struct child_less {
    using is_transparent = void;
    using view = std::pair<std::size_t, std::string_view>;
    static view view_of(const child_name& name) { return {name.first, name.second}; }
    static view view_of(const view& name) { return name; }
    bool operator()(const auto& left, const auto& right) const { return view_of(left) < view_of(right); }
  };
  using child_map = std::map<child_name, std::size_t, child_less>;

  /// Sections and groups of keys whose full names have one length.
  struct same_length {
    std::size_t sections = 0;
    std::size_t groups = 0;
    std::size_t other_groups = 0;  // below values and arrays
    std::size_t first = nowhere;
    std::string_view first_raw;
    std::size_t second = nowhere;
    std::string_view second_raw;

    void add(std::size_t offset, std::string_view raw);
    bool is_mixed() const { return (sections > 1 && groups > 0) || (sections == 1 && other_groups > 0); }
  };

  std::size_t section_node();
  std::size_t node_of(std::size_t top, std::string_view path, const placed_name& key);
  std::size_t child_of(std::size_t parent, std::string_view name, const placed_name& key);
  node& key_node(const placed_name& key);
  void report_again(const node& first, const placed_name& key);
  void set(node& at, content holds, const placed_name& key);
  void close_section();

  void check_child(const child_map::const_iterator& child);
  void check_after_array(child_map::const_iterator array);
  void check_lengths() const;
  bool has_value(std::size_t number) const { return nodes_[number].holds != content::path; }

  finding_list& found_;
  std::vector<node> nodes_;  // the first is the top
  child_map children_;

  placed_name section_;
  std::size_t section_node_ = 0;  // once the section has a key
  bool section_has_keys_ = true;
  bool section_is_used_ = true;

  repeated_finding keys_at_top_;
  repeated_finding upper_case_;
};

}  // namespace ORVA_NAMESPACE::config::_private
