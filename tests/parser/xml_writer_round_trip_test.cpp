// What xml_writer wrote, as each parser reads it back.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "orva/parser/xml_stream_parser.hpp"
#include "orva/parser/xml_token_stream.hpp"
#include "orva/parser/xml_writer.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/xml_events.hpp"
#include "tests/support/xml_stream_file.hpp"
#include "tests/support/xml_tree.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_parser;
using ORVA_NAMESPACE::parser::xml_stream_parser;
using ORVA_NAMESPACE::parser::xml_token_stream;
using ORVA_NAMESPACE::parser::xml_writer;
using ORVA_NAMESPACE::parser::xml_writer_settings;
using orva_test::parse_xml;
using orva_test::xml_tree;
namespace xml_trees = orva_test::xml_trees;
using parse_error = xml_parser::parse_error;

void must(const xml_writer::result& done) { ASSERT_EQ(done.error, xml_writer::error::none) << done; }

std::string written(const xml_tree& tree, const xml_writer_settings& settings = {}) {
  std::string text;
  xml_writer writer(text, settings);
  xml_trees::write(writer, tree, must);
  must(writer.finish());
  return text;
}

TEST(xml_writer_round_trip, xml_parser_reads_the_same_events) {
  orva_test::random_engine random;
  for (int i = 0; i < 1500; ++i) {
    const xml_tree tree = xml_trees::random_tree(random, 5);
    const std::string text = written(tree);
    const auto outcome = parse_xml(text);
    ASSERT_EQ(outcome.type, parse_error::no_error) << text << outcome;
    ASSERT_EQ(outcome.events, xml_trees::events_of(tree)) << text;
  }
}

TEST(xml_writer_round_trip, xml_token_stream_reads_as_many_tokens_as_there_are_events) {
  orva_test::random_engine random;
  for (int i = 0; i < 300; ++i) {
    const xml_tree tree = xml_trees::random_tree(random, 4);
    xml_token_stream tokens;
    ASSERT_EQ(tokens.parse(written(tree)).type, parse_error::no_error);
    const auto events = xml_trees::events_of(tree);
    const auto count = [&](std::string_view kind) {
      return std::ranges::count_if(events, [kind](const auto& event) { return event.starts_with(kind); });
    };
    // An attribute has two tokens, and each start tag has a marker.
    ASSERT_EQ(static_cast<std::size_t>(tokens.size()),
              events.size() + static_cast<std::size_t>(count("attribute ") + count("start ")));
  }
}

/// The events of an indented document. White space may only be in elements that have no text, and not in
/// those inside an element that has.
class indented_events {
 public:
  explicit indented_events(const std::vector<std::string>& events) : events_(events) {}

  void expect(const xml_tree& tree) {
    expect_element(tree, false);
    expect_event("space \n");
    EXPECT_EQ(at_, events_.size());
  }

 private:
  void expect_element(const xml_tree& tree, bool in_mixed) {
    const bool is_mixed = in_mixed || tree.has_text();
    expect_event("start " + tree.value);
    for (const auto& [name, value] : tree.attributes) expect_event("attribute " + name + "=" + value);
    std::string text;
    for (const auto& child : tree.children) {
      if (child.kind == xml_tree::text) {
        text += child.value;
        continue;
      }
      expect_text(text);
      if (!is_mixed) expect_line();
      if (child.kind == xml_tree::element) expect_element(child, is_mixed);
      if (child.kind == xml_tree::comment) expect_event("comment " + child.value);
      if (child.kind == xml_tree::cdata) expect_event("character " + child.value);
    }
    expect_text(text);
    if (!is_mixed && !tree.children.empty()) expect_line();
    expect_event("end " + tree.value);
  }

  void expect_text(std::string& text) {
    if (!text.empty()) expect_event("character " + text);
    text.clear();
  }
  void expect_line() {
    ASSERT_LT(at_, events_.size());
    EXPECT_TRUE(events_[at_].starts_with("space \n")) << events_[at_];
    ++at_;
  }
  void expect_event(const std::string& event) {
    ASSERT_LT(at_, events_.size());
    EXPECT_EQ(events_[at_], event);
    ++at_;
  }

  const std::vector<std::string>& events_;
  std::size_t at_ = 0;
};

TEST(xml_writer_round_trip, indentation_adds_lines_only_where_there_is_no_text) {
  orva_test::random_engine random;
  for (int i = 0; i < 1500; ++i) {
    const xml_tree tree = xml_trees::random_tree(random, 5);
    const std::string text = written(tree, {.indent = static_cast<unsigned int>(1 + random() % 4)});
    const auto outcome = parse_xml(text);
    ASSERT_EQ(outcome.type, parse_error::no_error) << text << outcome;
    indented_events(outcome.events).expect(tree);
    ASSERT_FALSE(testing::Test::HasFailure()) << text;
  }
}

// Every short text, in one call and in two.

TEST(xml_writer_round_trip, every_short_text_is_read_as_one_run) {
  constexpr std::string_view units = " \n\ra<>&];";
  std::array<std::size_t, 4> digits{};
  while (digits.back() < units.size()) {
    std::string text;
    for (const auto digit : digits) text += units[digit];
    for (std::size_t split = 0; split < text.size(); ++split) {
      std::string document;
      xml_writer writer(document);
      must(writer.start_element("r"));
      must(writer.text(text.substr(0, split)));
      must(writer.text(text.substr(split)));
      must(writer.finish());
      const std::vector<std::string> expected{"start r", "character " + text, "end r"};
      ASSERT_EQ(parse_xml(document).events, expected) << document;
    }
    for (auto& digit : digits) {
      if (++digit < units.size() || &digit == &digits.back()) break;
      digit = 0;
    }
  }
}

// The writer copies runs of plain text at once: what ends a run must be found at every offset.
TEST(xml_writer_round_trip, every_ascii_character_at_every_offset_of_a_long_run_is_read_back) {
  for (std::size_t offset = 0; offset <= 40; ++offset) {
    for (int byte = 0; byte < 0x80; ++byte) {
      std::string run(offset + 20, 'x');
      run[offset] = static_cast<char>(byte);
      std::string document;
      xml_writer writer(document);
      must(writer.start_element("r"));
      const auto value = writer.attribute("a", run);
      const auto text = writer.text(run);
      must(writer.finish());
      const bool refused = byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r';
      const xml_writer::result expected =
          refused ? xml_writer::result{xml_writer::error::bad_character, offset} : xml_writer::result{};
      ASSERT_EQ(value, expected) << byte;
      ASSERT_EQ(text, expected) << byte;
      if (refused) continue;
      const std::vector<std::string> events{"start r", "attribute a=" + run, "character " + run, "end r"};
      ASSERT_EQ(parse_xml(document).events, events) << document;
    }
  }
}

// The stream parser.

/// Whether the grammar of `xml_stream_parser` holds the tree: no CDATA, no text on open levels, and there no
/// element with the root's name and no "include" with contents.
bool stream_grammar_holds(const xml_tree& tree, unsigned int open_levels, const std::string& root) {
  for (const auto& child : tree.children) {
    if (child.kind == xml_tree::cdata) return false;
    if (open_levels > 0 && child.kind == xml_tree::text && !child.value.empty()) return false;
    if (child.kind != xml_tree::element) continue;
    if (open_levels > 1 && child.value == root) return false;
    if (open_levels > 1 && child.value == "include" && !child.children.empty()) return false;
    if (!stream_grammar_holds(child, open_levels > 0 ? open_levels - 1 : 0, root)) return false;
  }
  return true;
}

std::string line_of(const std::string& kind, const xml_tree& tree, const std::string& text) {
  std::string line = kind + tree.value;
  for (const auto& [name, value] : tree.attributes) line += " " + name + "=" + value;
  return line + " [" + text + "]";
}

/// The nodes that the parser must give: of several texts in an element, the last one.
void add_nodes(const xml_tree& tree, unsigned int open_levels, std::vector<std::string>& nodes) {
  std::string text;
  bool in_text = false;
  for (const auto& child : tree.children) {
    if (child.kind == xml_tree::text && !child.value.empty()) {
      text = in_text ? text + child.value : child.value;
      in_text = true;
    }
    if (child.kind == xml_tree::element || child.kind == xml_tree::comment) in_text = false;
  }
  const bool is_open = open_levels > 0 && tree.value != "include";
  nodes.push_back(line_of(is_open ? "begin " : "", tree, text));
  for (const auto& child : tree.children) {
    if (child.kind == xml_tree::element) add_nodes(child, open_levels > 0 ? open_levels - 1 : 0, nodes);
  }
  if (is_open) nodes.push_back("end " + tree.value + " []");
}

std::vector<std::string> nodes_of(xml_stream_parser& parser) {
  std::vector<std::string> nodes;
  parser.parse();
  while (!parser.node_queue_empty()) {
    const auto node = parser.node_queue_pop();
    xml_tree tree{xml_tree::element, node.tag(), {}, {}};
    for (const auto& [name, value] : node.attribs()) tree.attributes.emplace_back(name, value);
    const bool is_end = node.parent_id() == 0 && node.status() != xml_stream_parser::incomplete;
    const bool is_begin = node.status() == xml_stream_parser::incomplete;
    nodes.push_back(line_of(is_begin ? "begin " : is_end ? "end " : "", tree, node.data()));
  }
  return nodes;
}

TEST(xml_writer_round_trip, xml_stream_parser_reads_the_same_nodes) {
  orva_test::random_engine random;
  const orva_test::xml_stream_file file;
  int read = 0;
  for (int i = 0; i < 4000; ++i) {
    const auto open_depth = static_cast<unsigned int>(1 + random() % 2);
    xml_tree tree = xml_trees::random_tree(random, 4);
    if (tree.value == "include") tree.value = "root";
    if (!stream_grammar_holds(tree, open_depth, tree.value)) continue;
    file.write(written(tree, {.indent = static_cast<unsigned int>(random() % 3), .open_depth = open_depth}));
    xml_stream_parser parser(file.path(), open_depth);
    const auto nodes = nodes_of(parser);
    ASSERT_EQ(parser.error(), xml_stream_parser::end_of_document) << written(tree);
    std::vector<std::string> expected;
    add_nodes(tree, open_depth, expected);
    ASSERT_EQ(nodes, expected) << written(tree, {.open_depth = open_depth});
    ++read;
  }
  EXPECT_GT(read, 200);
}

TEST(xml_writer_round_trip, no_parser_reads_a_fragment_without_a_declaration) {
  const xml_tree tree{xml_tree::element, "r", {{"a", std::string(200, 'x')}}, {}};
  const std::string fragment = written(tree, {.declaration = false});
  EXPECT_EQ(parse_xml(fragment).type, parse_error::bad_header);
  xml_token_stream tokens;
  EXPECT_EQ(tokens.parse(fragment).type, parse_error::bad_header);
  const orva_test::xml_stream_file file(fragment);
  xml_stream_parser parser(file.path(), 1);
  EXPECT_NE(parser.parse(), xml_stream_parser::end_of_document);
}

TEST(xml_writer_round_trip, xml_stream_parser_reads_the_shortest_document) {
  const orva_test::xml_stream_file file(written({xml_tree::element, "r", {}, {}}));
  xml_stream_parser parser(file.path(), 1);
  EXPECT_EQ(parser.parse(), xml_stream_parser::end_of_document);
}

}  // namespace
