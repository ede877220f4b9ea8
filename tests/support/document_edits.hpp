/// Edits of a `config_document`, each checked against what `file_item` reads before and after it. Shared by
/// a test with random documents and the fuzz target.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/config/config_document.hpp"
#include "orva/config/file_item.hpp"
#include "tests/support/reference_config.hpp"

namespace orva_test {

using ORVA_NAMESPACE::config::config_document;

/// The nodes that have a value: flags and text by path. The names of a path are separated by dots.
using stored_nodes = std::map<std::string, std::pair<unsigned int, std::string>>;

inline std::string path_of_key(const std::string& key) {
  std::string path;
  bool is_first = true;
  for (const std::string& name : reference_tree::path_of(key)) {
    if (!is_first) path += '.';
    is_first = false;
    path += name;
  }
  return path;
}

/// A comment as it is read back: line ends are LF, and one at the very end counts for nothing.
inline std::string comment_read_back(const std::string& comment) {
  std::string result;
  for (std::size_t i = 0; i < comment.size(); ++i) {
    const bool before_line_end = i + 1 == comment.size() || comment[i + 1] == '\n';
    if (comment[i] == '\r' && before_line_end) continue;
    if (comment[i] == '\n' && i + 1 == comment.size()) continue;
    result += comment[i];
  }
  return result;
}

/// A key by which a tree finds a path that may have empty names.
inline std::string key_of_path(const std::string& path) {
  return path.empty() || path.back() == '.' ? path + '.' : path;
}

inline stored_nodes stored_nodes_of(const ORVA_NAMESPACE::config::base_config_item& item) {
  stored_nodes nodes;
  std::vector<std::pair<std::string, bool>> pending{{"", true}};
  while (!pending.empty()) {
    const auto [path, is_root] = pending.back();
    pending.pop_back();
    std::vector<ORVA_NAMESPACE::config::base_config_item::value_entry> children;
    item.get_value_pair_array(is_root ? "" : key_of_path(path), children, false);
    for (const auto& [name, node] : children) {
      const std::string child = is_root ? std::string(name) : path + '.' + name;
      if (node.first != 0) nodes[child] = {node.first, node.second.as_string()};
      pending.emplace_back(child, false);
    }
  }
  return nodes;
}

struct document_edit {
  enum class kind { set, set_array, set_comment, remove, add_section };

  kind what = kind::set;
  std::string key;
  std::vector<ORVA_NAMESPACE::strings::ustring8> values;
  std::string comment;

  config_document::result apply_to(config_document& document) const {
    switch (what) {
      case kind::set:
        return document.set(key, values.front(), comment);
      case kind::set_array:
        return document.set_array(key, values, comment);
      case kind::set_comment:
        return document.set_comment(key, comment);
      case kind::remove:
        return document.remove(key);
      case kind::add_section:
        return document.add_section(key);
    }
    return {};
  }
};

class document_checker {
 public:
  using reader = std::function<stored_nodes(const std::string& text)>;

  /// `read` gives what `file_item` stores for a text.
  document_checker(std::string text, reader read)
      : document_(text), read_(std::move(read)), nodes_(read_(text)) {
    if (document_.text() != text) fault_ = "the text is not kept";
    check_reading();
  }

  const config_document& document() const { return document_; }
  const stored_nodes& nodes() const { return nodes_; }

  /// What is wrong; empty if nothing is.
  const std::string& fault() const { return fault_; }

  /// Whether the edit was not refused.
  bool apply(const document_edit& edit) {
    const std::string before = document_.text();
    const stored_nodes nodes_before = nodes_;
    if (edit.apply_to(document_).error != config_document::error::none) {
      expect(document_.text() == before, "a refused edit changed the text");
      return false;
    }
    nodes_ = read_(document_.text());
    check_change(nodes_before, edit);
    check_comment(edit);
    if (edit.what == document_edit::kind::set && edit.comment.empty())
      check_lines(before, nodes_before, edit);
    check_reading();
    expect(config_document(document_.text()).entries() == document_.entries(),
           "the entries differ from those of the text");
    return true;
  }

 private:
  void expect(bool condition, const char* fault) {
    if (!condition && fault_.empty()) fault_ = fault;
  }

  /// `get` and `get_array` answer as `file_item` does.
  void check_reading() {
    for (const auto& [path, node] : nodes_) {
      const auto value = document_.get(key_of_path(path));
      const auto array = document_.get_array(key_of_path(path));
      const bool is_array = node.first == 3;
      expect(value.has_value() != is_array && array.has_value() == is_array, "a key has the wrong kind");
      if (value) expect(*value == node.second, "a value differs");
      if (array) expect(texts_of(*array) == elements_of(nodes_, path), "an array differs");
    }
  }

  static std::vector<std::string> texts_of(const std::vector<ORVA_NAMESPACE::strings::ustring8>& values) {
    return {values.begin(), values.end()};
  }

  static std::vector<std::string> elements_of(const stored_nodes& nodes, const std::string& path) {
    std::vector<std::string> elements;
    for (;;) {
      const auto found = nodes.find(path + '.' + std::to_string(elements.size()));
      if (found == nodes.end()) return elements;
      elements.push_back(found->second.second);
    }
  }

  /// Those of `array.[]` are below an empty name.
  static bool is_element_of(const std::string& path, const std::string& array) {
    if (!path.starts_with(array + '.')) return false;
    std::string_view number = std::string_view(path).substr(array.size() + 1);
    if (number.starts_with('.')) number.remove_prefix(1);
    return !number.empty() && number.find_first_not_of("0123456789") == number.npos;
  }

  /// The old nodes with the edit are the new nodes, and nothing else.
  void check_change(stored_nodes before, const document_edit& edit) {
    const std::string path = path_of_key(edit.key);
    const auto old = before.find(path);
    const bool was_array = old != before.end() && old->second.first == 3;
    const std::size_t count = was_array ? elements_of(before, path).size() : 0;
    const auto is_set = edit.what == document_edit::kind::set || edit.what == document_edit::kind::set_array;
    if (is_set) {
      for (std::size_t i = 0; i < count; ++i) before.erase(path + '.' + std::to_string(i));
      const bool to_array = edit.what == document_edit::kind::set_array;
      before[path] = {to_array ? 3 : 1, to_array ? "" : edit.values.front()};
      for (std::size_t i = 0; to_array && i < edit.values.size(); ++i) {
        before[path + '.' + std::to_string(i)] = {1, edit.values[i]};
      }
      if (to_array) expect(elements_of(nodes_, path).size() == edit.values.size(), "elements are left over");
    } else if (edit.what == document_edit::kind::remove) {
      expect(!nodes_.contains(path), "a removed key is still there");
      std::erase_if(before, [&](const auto& node) {
        return (node.first == path || is_element_of(node.first, path)) && !nodes_.contains(node.first);
      });
    }
    expect(before == nodes_, "another key changed, or the change is not exact");
  }

  void check_comment(const document_edit& edit) {
    const bool has_comment = edit.what == document_edit::kind::set_comment ||
                             (edit.what != document_edit::kind::remove && !edit.comment.empty());
    if (has_comment && edit.what != document_edit::kind::add_section) {
      expect(document_.comment(edit.key).ends_with(comment_read_back(edit.comment)), "the comment differs");
    }
  }

  static std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines{""};
    for (const char c : text) {
      lines.back() += c;
      if (c == '\n') lines.emplace_back();
    }
    return lines;
  }

  /// A plain value of one line changes at most that line.
  void check_lines(const std::string& text, const stored_nodes& before, const document_edit& edit) {
    const auto old = before.find(path_of_key(edit.key));
    if (old == before.end() || old->second.first != 1) return;
    const auto has_line_end = [](const std::string& value) { return value.find('\n') != value.npos; };
    if (has_line_end(old->second.second) || has_line_end(edit.values.front())) return;
    const auto old_lines = lines_of(text);
    const auto new_lines = lines_of(document_.text());
    expect(old_lines.size() == new_lines.size(), "the number of lines changed");
    if (!fault_.empty()) return;
    std::size_t changed = 0;
    for (std::size_t i = 0; i < old_lines.size(); ++i) changed += old_lines[i] != new_lines[i] ? 1 : 0;
    expect(changed <= 1, "more than one line changed");
  }

  config_document document_;
  reader read_;
  stored_nodes nodes_;
  std::string fault_;
};

}  // namespace orva_test
