// The scanners that a class derived from xml_parser can use: what they read, and the position where they end.
#include <gtest/gtest.h>

#include <string>

#include "orva/exceptions/exception.hpp"
#include "orva/parser/xml_parser.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_parser;
using error = xml_parser::parse_error;

class scanners : public xml_parser {
 public:
  using xml_parser::do_parse;
  using xml_parser::is_white_space;
  using xml_parser::parse_attrib_value;
  using xml_parser::parse_character;
  using xml_parser::parse_name;
  using xml_parser::parse_whitespace;
};

using scanner = ORVA_NAMESPACE::strings::ustring8 (scanners::*)(xml_parser::iterator&,
                                                                xml_parser::iterator&) const;

struct scan_result {
  std::string taken;
  std::ptrdiff_t position = 0;
  error failure;
};

scan_result scan(scanner function, const std::string& text) {
  const scanners parser;
  scan_result result;
  auto it = text.begin();
  auto end = text.end();
  try {
    result.taken = (parser.*function)(it, end);
  } catch (const error& failure) {
    result.failure = failure;
  }
  result.position = it - text.begin();
  EXPECT_EQ(end, text.end());
  return result;
}

struct row {
  std::string text;
  std::string taken;
  std::ptrdiff_t position;
  error::error_type type = error::no_error;
  std::string data = {};
};

void expect(scanner function, const std::vector<row>& rows) {
  for (const auto& [text, taken, position, type, data] : rows) {
    const auto result = scan(function, text);
    EXPECT_EQ(result.taken, taken) << text;
    EXPECT_EQ(result.position, position) << text;
    EXPECT_EQ(result.failure.type, type) << text;
    EXPECT_EQ(result.failure.data, data) << text;
  }
}

TEST(xml_parser_scanners, parse_name_ends_on_the_last_character) {
  expect(&scanners::parse_name, {
                                    {"a", "a", 0},
                                    {"abc", "abc", 2},
                                    {"a1_=", "a1_", 2},
                                    {"a:b", "a", 0},
                                    {"", "", 0, error::unexpected_character},
                                    {"1a", "", 0, error::unexpected_character, "1"},
                                    {"_a", "", 0, error::unexpected_character, "_"},
                                });
}

TEST(xml_parser_scanners, parse_attrib_value_ends_on_the_closing_quote_or_the_end) {
  expect(&scanners::parse_attrib_value, {
                                            {"'a'", "a", 2},
                                            {"\"a'b\" c", "a'b", 4},
                                            {"''", "", 1},
                                            {"'&lt;a&#65;'", "<aA", 11},
                                            {"'a", "a", 2},
                                            {"'", "", 1},
                                            {"'a\"", "a\"", 3},
                                            {"", "", 0, error::missing_quote},
                                            {"a", "", 0, error::missing_quote},
                                            {"'a<'", "", 0, error::unexpected_character, "<"},
                                            {"'&x;'", "", 0, error::unknown_entity},
                                        });
}

TEST(xml_parser_scanners, parse_character_ends_on_the_semicolon) {
  expect(&scanners::parse_character, {
                                         {"&lt;x", "<", 3},
                                         {"&apos;", "'", 5},
                                         {"&#65;", "A", 4},
                                         {"&#x41;;", "A", 5},
                                         {"&#;", std::string(1, '\0'), 2},
                                         {"", "", 0, error::unexpected_character},
                                         {"lt;", "", 0, error::unexpected_character, "l"},
                                         {"&", "", 0, error::unknown_entity},
                                         {"&l", "", 0, error::unexpected_character},
                                         {"&lx", "", 0, error::unexpected_character, "x"},
                                     });
}

TEST(xml_parser_scanners, parse_whitespace_ends_after_it) {
  expect(&scanners::parse_whitespace, {
                                          {" a", " ", 1},
                                          {" \t\r\n", " \t\r\n", 4},
                                          {"a", "", 0},
                                          {"", "", 0},
                                          {"\v", "", 0},
                                      });
}

TEST(xml_parser_scanners, parse_whitespace_counts_the_lines_that_failures_report) {
  const scanners parser;
  const std::string text = "\n\r\n ?";
  auto it = text.begin();
  auto end = text.end();
  parser.parse_whitespace(it, end);
  try {
    parser.parse_name(it, end);
    FAIL();
  } catch (const error& failure) {
    EXPECT_EQ(failure.line, 2u);
    EXPECT_EQ(failure.data, "?");
  }
}

TEST(xml_parser_scanners, is_white_space_holds_for_four_bytes_of_all) {
  const scanners parser;
  for (int value = 0; value <= 0xFF; ++value) {
    const std::string text(1, static_cast<char>(value));
    const bool white = value == ' ' || value == '\t' || value == '\r' || value == '\n';
    EXPECT_EQ(parser.is_white_space(text.begin()), white) << value;
  }
}

TEST(xml_parser_scanners, do_parse_moves_the_position_to_where_the_walk_ended) {
  const scanners parser;
  const std::string text = "<?xml?><a/>";
  auto it = text.begin();
  auto end = text.end();
  EXPECT_EQ(parser.do_parse(it, end).type, error::no_error);
  EXPECT_EQ(it, text.end());

  it = text.begin() + 7;
  EXPECT_EQ(parser.do_parse(it, end).type, error::bad_header);
  EXPECT_EQ(it, text.begin() + 7);
}

TEST(xml_parser_scanners, iterators_of_a_writable_string_are_taken) {
  std::string text = "<?xml?><a/>";
  EXPECT_EQ(xml_parser().parse(text.begin(), text.end()).type, error::no_error);
  EXPECT_EQ(xml_parser().parse(text.cbegin(), text.cend()).type, error::no_error);
  EXPECT_EQ(xml_parser().parse(text.begin(), text.begin() + 7).type, error::no_root_element);
}

}  // namespace
