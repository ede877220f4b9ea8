// What the streaming parser knows about an error: its place in the file, its text, and the open element.
#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "orva/parser/xml_stream_parser.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/xml_stream_feed.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_stream_parser;
using orva_test::xml_stream_feed;
using orva_test::xml_stream_file;
using orva_test::xml_stream_header;

/// A text that fails between its two parts.
struct row {
  std::string before;
  std::string after;
  xml_stream_parser::error_type type;
  std::string data = {};
  std::string open_element = {};
  unsigned open_depth = 1;
};

void read_all(xml_stream_parser& parser) {
  parser.parse();
  while (!parser.node_queue_empty()) parser.node_queue_pop();
}

void expect(const std::vector<row>& rows) {
  for (const auto& [before, after, type, data, open_element, open_depth] : rows) {
    xml_stream_feed feed(before + after, open_depth);
    read_all(feed.parser);
    const auto error = feed.parser.last_error();
    SCOPED_TRACE(before + '|' + after);
    EXPECT_EQ(error.type, type);
    EXPECT_EQ(error.line, feed.parser.line());
    EXPECT_EQ(error.data, data);
    EXPECT_EQ(error.offset, static_cast<long long>(xml_stream_header.size() + before.size()));
    EXPECT_EQ(error.open_element, open_element);
  }
}

TEST(xml_stream_parser_place, mismatched_end_tag_has_its_name_and_the_open_element) {
  expect({
      {"<r><a>\n</", "b></a></r>", xml_stream_parser::mismatched_tag, "b", "a"},
      {"<r><a></ \n ", "b></a></r>", xml_stream_parser::mismatched_tag, "b", "a"},
      {"<r><a></a></", "s>", xml_stream_parser::mismatched_tag, "s", "r"},
      {"<r><s></", "r>", xml_stream_parser::mismatched_tag, "r", "s", 2},
      {"<r><s><a></", "s>", xml_stream_parser::mismatched_tag, "s", "a", 2},
      {"</", "r>", xml_stream_parser::mismatched_tag, "r"},
  });
}

TEST(xml_stream_parser_place, unexpected_character_has_its_place) {
  expect({
      {"<r>", ">", xml_stream_parser::unexpected_character, ">", "r"},
      {"<r><a ", "<b>", xml_stream_parser::unexpected_character, "<", "a"},
      {"<r>< ", "=>", xml_stream_parser::unexpected_character, "=", "r"},
      {"<r><a/", " >", xml_stream_parser::unexpected_character, " ", "a"},
      {"<r><a b='", "<' >", xml_stream_parser::unexpected_character, "<", "a"},
      {"<r><a b='x", "&y;  ' >", xml_stream_parser::unexpected_character, "&", "a"},
      {"<r><a>x ", "&#12x; </a>", xml_stream_parser::unexpected_character, "&", "a"},
      {"<r><!-- a ", "-- b -->", xml_stream_parser::unexpected_character, "-", "r"},
      {"<r><a ", "?>", xml_stream_parser::unexpected_character, "?", "a"},
  });
}

TEST(xml_stream_parser_place, text_outside_a_record_has_its_beginning) {
  expect({
      {"<r>\n ", "text &lt; more<a/></r>", xml_stream_parser::unexpected_character, "t", "r"},
      {"<r>", "&lt; more<a/></r>", xml_stream_parser::unexpected_character, "&", "r"},
      {"<r>text ", "&x; more<a/></r>", xml_stream_parser::unexpected_character, "&", "r"},
  });
}

TEST(xml_stream_parser_place, attribute_has_the_place_where_it_is_wrong) {
  expect({
      {"<r><a b=", "1>", xml_stream_parser::missing_quote, "", "a"},
      {"<r><a b= \n", "1>", xml_stream_parser::missing_quote, "", "a"},
      {"<r><a ", "b ='1'>", xml_stream_parser::missing_equals, "b", "a"},
      {"<r><a ", "b>", xml_stream_parser::missing_equals, "b", "a"},
      {"<r><a b='1' ", "b='2'>", xml_stream_parser::duplicate_attribute, "b", "a"},
  });
}

TEST(xml_stream_parser_place, token_that_the_file_cuts_off_has_its_beginning) {
  expect({
      {"<r><a ", "b='1", xml_stream_parser::incomplete, "", "a"},
      {"<r><a>", "</a", xml_stream_parser::incomplete, "", "a"},
      {"<r><a>", "</>", xml_stream_parser::incomplete, "", "a"},
  });
}

TEST(xml_stream_parser_place, reference_above_255_has_its_place) {
  expect({{"<r><a>x ", "&#256; </a>", xml_stream_parser::fatal_error, "", "a"}});
}

TEST(xml_stream_parser_place, no_error_has_the_end_of_what_is_parsed) {
  expect({
      {"<r><a/></r>", "", xml_stream_parser::end_of_document},
      {"<r><a>", "", xml_stream_parser::no_error, "", "a"},
  });
}

TEST(xml_stream_parser_place, header_has_the_place_where_it_is_missing) {
  const xml_stream_file file("\xEF\xBB\xBF<a>" + std::string(60, ' '));
  xml_stream_parser parser(file.path(), 1);
  EXPECT_EQ(parser.parse(), xml_stream_parser::bad_header);
  EXPECT_EQ(parser.last_error().offset, 3);
}

TEST(xml_stream_parser_place, file_that_is_missing_has_no_place) {
  xml_stream_file file;
  file.remove();
  const xml_stream_parser parser(file.path(), 1);
  const auto error = parser.last_error();
  EXPECT_EQ(error.type, xml_stream_parser::cannot_open_file);
  EXPECT_EQ(error.offset, 0);
  EXPECT_EQ(error.data, "");
}

TEST(xml_stream_parser_place, error_after_many_windows_has_its_place_in_the_file) {
  std::string text = "<r>\n";
  while (text.size() < 300000) text += "<a b='1'>text</a>\n";
  expect({{text + "<a><b></", "a></r>", xml_stream_parser::mismatched_tag, "a", "b"}});
}

TEST(xml_stream_parser_place, recover_goes_on_from_the_place) {
  xml_stream_feed feed("<r><a>&x; </a><a>y</a></r>");
  read_all(feed.parser);
  EXPECT_EQ(feed.parser.last_error().type, xml_stream_parser::unexpected_character);
  EXPECT_EQ(feed.parser.recover({"a"}), xml_stream_parser::no_error);
  const auto recovered = feed.parser.last_error();
  EXPECT_EQ(recovered.type, xml_stream_parser::no_error);
  EXPECT_EQ(recovered.offset, feed.parser.parse_offset());
  EXPECT_EQ(recovered.open_element, "r");
}

TEST(xml_stream_parser_place, place_of_random_pieces_is_in_the_file_and_shows_the_data) {
  const std::vector<std::string> pieces = {"<r>",  "<a>",   "</a>",   "</r>", "<b x='1'", "x=\"2\"",
                                           ">",    "/>",    "<",      " ",    "\n",       "text",
                                           "&lt;", "&#65;", "&#300;", "&y",   "<!--",     "-->"};
  orva_test::random_engine random;
  const xml_stream_file file;
  for (int i = 0; i < 3000; ++i) {
    std::string text(xml_stream_header);
    text += "<r>";
    for (auto left = random() % 20; left > 0; --left) text += pieces[random() % pieces.size()];
    file.write(text);
    xml_stream_parser parser(file.path(), static_cast<unsigned>(random() % 3));
    read_all(parser);
    const auto error = parser.last_error();
    ASSERT_EQ(error.type, parser.error()) << text;
    ASSERT_GE(error.offset, 0) << text;
    ASSERT_LE(error.offset, static_cast<long long>(text.size())) << text;
    const auto from_there = std::string_view(text).substr(static_cast<std::size_t>(error.offset));
    ASSERT_TRUE(from_there.starts_with(error.data)) << text;
    ASSERT_TRUE(error.type != xml_stream_parser::mismatched_tag || error.data != error.open_element) << text;
  }
}

TEST(xml_stream_parser_place, error_is_written_in_one_line) {
  xml_stream_feed feed("<r><a></b></r>");
  EXPECT_EQ((std::ostringstream() << feed.parser.last_error()).str(), "no_error");
  read_all(feed.parser);
  EXPECT_EQ((std::ostringstream() << feed.parser.last_error()).str(),
            "mismatched_tag at byte 63: \"b\", open element \"a\"");
}

TEST(xml_stream_parser_place, error_types_have_names) {
  const std::vector<std::string_view> names = {"no_error",
                                               "incomplete",
                                               "not_synchronized",
                                               "end_of_document",
                                               "mismatched_tag",
                                               "duplicate_attribute",
                                               "unexpected_character",
                                               "missing_quote",
                                               "",
                                               "missing_equals",
                                               "fatal_error",
                                               "cannot_open_file",
                                               "bad_header"};
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ(name_of(static_cast<xml_stream_parser::error_type>(i)), names[i]);
  }
}

}  // namespace
