/// `xml_tree`: a document for tests of `xml_writer`: made at random, written, and turned into what each
/// reader must find in it.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/parser/xml_writer.hpp"

namespace orva_test {

struct xml_tree {
  enum kind_type { element, text, cdata, comment };

  kind_type kind = element;
  /// An element's name, or the contents of the others.
  std::string value;
  std::vector<std::pair<std::string, std::string>> attributes;
  std::vector<xml_tree> children;

  bool is_text() const { return kind == text || kind == cdata; }
  bool has_text() const { return std::ranges::any_of(children, &xml_tree::is_text); }
};

namespace xml_trees {

inline constexpr std::array<std::string_view, 34> pieces{"a",
                                                         "word",
                                                         "x y",
                                                         " ",
                                                         "  ",
                                                         "\n",
                                                         "\n\n",
                                                         "\t",
                                                         "\r",
                                                         "\r\n",
                                                         "<",
                                                         ">",
                                                         "&",
                                                         "]]>",
                                                         "]]",
                                                         "\"",
                                                         "'",
                                                         "--",
                                                         "-",
                                                         "-->",
                                                         "&amp;",
                                                         "&#65;",
                                                         "<!--",
                                                         "</a>",
                                                         "<![CDATA[",
                                                         "=",
                                                         "\xC3\xA4",
                                                         "\xE6\x97\xA5\xE6\x9C\xAC",
                                                         "\xF0\x9D\x84\x9E",
                                                         "\x7F",
                                                         "\xC2\x85",
                                                         "\xEF\xBB\xBF",
                                                         "\xE2\x80\xA8",
                                                         ";"};
inline constexpr std::array<std::string_view, 6> names{"a", "b", "Item_2", "x1", "include", "root"};

template <typename Random>
std::string random_text(Random& random) {
  std::string text;
  for (auto left = random() % 6; left > 0; --left) text += pieces[random() % pieces.size()];
  return text;
}

inline void remove_all(std::string& from, std::string_view unwanted) {
  for (auto at = from.find(unwanted); at != from.npos; at = from.find(unwanted))
    from.erase(at, unwanted.size());
}

/// Contents that need no escape, for a section that has none.
template <typename Random>
std::string random_literal(Random& random, std::string_view closing_mark) {
  std::string text = random_text(random);
  remove_all(text, "\r");
  remove_all(text, closing_mark);
  return text;
}

template <typename Random>
xml_tree random_tree(Random& random, std::size_t depth) {
  xml_tree tree;
  tree.value = names[random() % names.size()];
  for (auto left = random() % 3; left > 0; --left) {
    tree.attributes.emplace_back("n" + std::to_string(left), random_text(random));
  }
  for (auto left = depth == 0 ? 0 : random() % 5; left > 0; --left) {
    switch (random() % 6) {
      case 0:
      case 1:
        tree.children.push_back({xml_tree::text, random_text(random), {}, {}});
        break;
      case 2:
        tree.children.push_back({xml_tree::cdata, random_literal(random, "]]>"), {}, {}});
        break;
      case 3:
        tree.children.push_back({xml_tree::comment, random_literal(random, "-"), {}, {}});
        break;
      default:
        tree.children.push_back(random_tree(random, depth - 1));
    }
  }
  return tree;
}

/// Calls `must` with the result of each call.
template <typename Must>
void write(ORVA_NAMESPACE::parser::xml_writer& writer, const xml_tree& tree, Must must) {
  switch (tree.kind) {
    case xml_tree::text:
      return must(writer.text(tree.value));
    case xml_tree::cdata:
      return must(writer.cdata(tree.value));
    case xml_tree::comment:
      return must(writer.comment(tree.value));
    case xml_tree::element:
      break;
  }
  must(tree.has_text() ? writer.start_mixed_element(tree.value) : writer.start_element(tree.value));
  for (const auto& [name, value] : tree.attributes) must(writer.attribute(name, value));
  for (const auto& child : tree.children) write(writer, child, must);
  must(writer.end_element());
}

/// The events of `xml_parser`, as `xml_recorder` has them. Texts that follow each other are one.
inline void add_events(const xml_tree& tree, std::vector<std::string>& events) {
  events.push_back("start " + tree.value);
  for (const auto& [name, value] : tree.attributes) events.push_back("attribute " + name + "=" + value);
  bool in_text = false;
  for (const auto& child : tree.children) {
    if (child.kind == xml_tree::text) {
      if (child.value.empty()) continue;
      if (!in_text) events.push_back("character ");
      events.back() += child.value;
      in_text = true;
      continue;
    }
    in_text = false;
    if (child.kind == xml_tree::element) add_events(child, events);
    if (child.kind == xml_tree::cdata) events.push_back("character " + child.value);
    if (child.kind == xml_tree::comment) events.push_back("comment " + child.value);
  }
  events.push_back("end " + tree.value);
}

inline std::vector<std::string> events_of(const xml_tree& tree) {
  std::vector<std::string> events;
  add_events(tree, events);
  return events;
}

}  // namespace xml_trees

}  // namespace orva_test
