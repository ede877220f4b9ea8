#include "orva/parser/xml_token_stream.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "orva/exceptions/exception.hpp"

// A failed comparison prints the tokens.
namespace ORVA_NAMESPACE::parser {

void PrintTo(const xml_token_stream::token& token, std::ostream* out) {
  *out << token.type() << " '" << token.value() << '\'';
}

}  // namespace ORVA_NAMESPACE::parser

namespace {

using ORVA_NAMESPACE::parser::xml_parser;
using ORVA_NAMESPACE::parser::xml_token_stream;
using token = xml_token_stream::token;
using tokens = std::vector<token>;
using error = xml_parser::parse_error;

tokens tokens_of(const xml_token_stream& stream) { return {stream.begin(), stream.end()}; }

tokens tokenize(const std::string& elements) {
  xml_token_stream stream;
  EXPECT_EQ(stream.parse("<?xml?>" + elements).type, error::no_error) << elements;
  EXPECT_EQ(stream.size(), tokens_of(stream).size());
  return tokens_of(stream);
}

TEST(xml_token_stream, token_types_have_their_values) {
  EXPECT_EQ(token::element_start, 0);
  EXPECT_EQ(token::element_end, 1);
  EXPECT_EQ(token::attribute_name, 2);
  EXPECT_EQ(token::attribute_value, 3);
  EXPECT_EQ(token::start_tag_end, 4);
  EXPECT_EQ(token::comment, 5);
  EXPECT_EQ(token::space, 6);
  EXPECT_EQ(token::character, 7);
}

TEST(xml_token_stream, token_is_a_value) {
  const token comment(token::comment, "text");
  token copy = comment;
  EXPECT_EQ(copy, comment);
  EXPECT_EQ(copy.type(), token::comment);
  EXPECT_EQ(copy.value(), "text");
  copy = token(token::start_tag_end);
  EXPECT_FALSE(copy == comment);
  EXPECT_EQ(copy.value(), "");
}

TEST(xml_token_stream, documentation_example) {
  EXPECT_EQ(tokenize("<a x=\"1\"><b/>t</a>"), (tokens{
                                                  token(token::element_start, "a"),
                                                  token(token::attribute_name, "x"),
                                                  token(token::attribute_value, "1"),
                                                  token(token::start_tag_end),
                                                  token(token::element_start, "b"),
                                                  token(token::start_tag_end),
                                                  token(token::element_end, "b"),
                                                  token(token::character, "t"),
                                                  token(token::element_end, "a"),
                                              }));
}

TEST(xml_token_stream, empty_element_gives_start_marker_and_end) {
  const tokens expected{token(token::element_start, "a"), token(token::start_tag_end),
                        token(token::element_end, "a")};
  EXPECT_EQ(tokenize("<a/>"), expected);
  EXPECT_EQ(tokenize("<a></a>"), expected);
  EXPECT_EQ(tokenize("<a  ></a >"), expected);
}

TEST(xml_token_stream, space_and_text_come_after_the_marker) {
  EXPECT_EQ(tokenize("<a> b  </a>"), (tokens{
                                         token(token::element_start, "a"),
                                         token(token::start_tag_end),
                                         token(token::space, " "),
                                         token(token::character, "b"),
                                         token(token::space, "  "),
                                         token(token::element_end, "a"),
                                     }));
  EXPECT_EQ(tokenize("<a>b<![CDATA[c]]></a>"), (tokens{
                                                   token(token::element_start, "a"),
                                                   token(token::start_tag_end),
                                                   token(token::character, "b"),
                                                   token(token::character, "c"),
                                                   token(token::element_end, "a"),
                                               }));
}

TEST(xml_token_stream, comment_after_a_start_tag_comes_before_its_marker) {
  EXPECT_EQ(tokenize("<a b='1'><!--c--><!--d--><e/></a>"), (tokens{
                                                               token(token::element_start, "a"),
                                                               token(token::attribute_name, "b"),
                                                               token(token::attribute_value, "1"),
                                                               token(token::comment, "c"),
                                                               token(token::comment, "d"),
                                                               token(token::start_tag_end),
                                                               token(token::element_start, "e"),
                                                               token(token::start_tag_end),
                                                               token(token::element_end, "e"),
                                                               token(token::element_end, "a"),
                                                           }));
}

TEST(xml_token_stream, comment_elsewhere_makes_no_marker) {
  EXPECT_EQ(tokenize("<!--c--><a>b<!--d--></a><!--e-->"), (tokens{
                                                              token(token::comment, "c"),
                                                              token(token::element_start, "a"),
                                                              token(token::start_tag_end),
                                                              token(token::character, "b"),
                                                              token(token::comment, "d"),
                                                              token(token::element_end, "a"),
                                                              token(token::comment, "e"),
                                                          }));
}

TEST(xml_token_stream, attribute_of_an_end_tag_comes_after_the_end) {
  EXPECT_EQ(tokenize("<a></a b='1'>"), (tokens{
                                           token(token::element_start, "a"),
                                           token(token::start_tag_end),
                                           token(token::element_end, "a"),
                                           token(token::attribute_name, "b"),
                                           token(token::attribute_value, "1"),
                                       }));
}

TEST(xml_token_stream, header_only_gives_no_root_element_and_no_token) {
  xml_token_stream stream;
  EXPECT_EQ(stream.parse("<?xml?>").type, error::no_root_element);
  EXPECT_EQ(stream.size(), 0u);
  EXPECT_EQ(stream.begin(), stream.end());
}

TEST(xml_token_stream, second_parse_appends) {
  xml_token_stream stream;
  (void)stream.parse("<?xml?><a/>");
  const auto first = stream.begin();
  (void)stream.parse("<?xml?><b/>");
  EXPECT_EQ(stream.size(), 6u);
  EXPECT_EQ(first, stream.begin());
  EXPECT_EQ(tokens_of(stream), (tokens{
                                   token(token::element_start, "a"),
                                   token(token::start_tag_end),
                                   token(token::element_end, "a"),
                                   token(token::element_start, "b"),
                                   token(token::start_tag_end),
                                   token(token::element_end, "b"),
                               }));
}

TEST(xml_token_stream, second_parse_makes_no_marker_for_the_start_tag_that_ended_the_first) {
  xml_token_stream stream;
  EXPECT_EQ(stream.parse("<?xml?><a").type, error::unexpected_eof);
  EXPECT_EQ(stream.parse("<?xml?><b/></a>").type, error::no_error);
  EXPECT_EQ(tokens_of(stream), (tokens{
                                   token(token::element_start, "a"),
                                   token(token::element_start, "b"),
                                   token(token::start_tag_end),
                                   token(token::element_end, "b"),
                                   token(token::element_end, "a"),
                               }));
}

TEST(xml_token_stream, tokens_before_an_error_can_be_walked) {
  xml_token_stream stream;
  const auto failure = stream.parse("<?xml?><a>\n<b></a></b>");
  EXPECT_EQ(failure.type, error::mismatched_end_element);
  EXPECT_EQ(failure.line, 1u);
  EXPECT_EQ(failure.data, "a");
  EXPECT_EQ(tokens_of(stream), (tokens{
                                   token(token::element_start, "a"),
                                   token(token::start_tag_end),
                                   token(token::space, "\n"),
                                   token(token::element_start, "b"),
                               }));
}

TEST(xml_token_stream, value_cut_off_is_in_the_list) {
  xml_token_stream stream;
  EXPECT_EQ(stream.parse("<?xml?><a b='1").type, error::missing_quote);
  EXPECT_EQ(tokens_of(stream), (tokens{
                                   token(token::element_start, "a"),
                                   token(token::attribute_name, "b"),
                                   token(token::attribute_value, "1"),
                               }));
}

TEST(xml_token_stream, range_of_a_byte_string_is_parsed) {
  std::string text = "[<?xml?><a/>]";
  xml_token_stream stream;
  EXPECT_EQ(stream.parse(text.begin() + 1, text.end() - 1).type, error::no_error);
  EXPECT_EQ(stream.parse(text.cbegin() + 1, text.cend() - 1).type, error::no_error);
  EXPECT_EQ(stream.size(), 6u);
}

TEST(xml_token_stream, character_reference_out_of_range_throws_and_keeps_the_tokens) {
  xml_token_stream stream;
  EXPECT_THROW((void)stream.parse("<?xml?><a>b<c>&#256;</c></a>"),
               ORVA_NAMESPACE::exceptions::overflow_error);
  EXPECT_EQ(stream.size(), 4u);
}

TEST(xml_token_stream, tokens_can_be_changed_through_iterators) {
  xml_token_stream stream;
  (void)stream.parse("<?xml?><a/>");
  *stream.begin() = token(token::comment, "changed");
  const auto& read_only = stream;
  EXPECT_EQ(read_only.begin()->value(), "changed");
}

TEST(xml_token_stream, copy_and_assignment_copy_the_tokens) {
  xml_token_stream stream;
  (void)stream.parse("<?xml?><a b='1'>c</a>");
  const xml_token_stream copy(stream);
  xml_token_stream assigned;
  (void)assigned.parse("<?xml?><x/>");
  assigned = stream;
  EXPECT_EQ(tokens_of(copy), tokens_of(stream));
  EXPECT_EQ(tokens_of(assigned), tokens_of(stream));
  *stream.begin() = token(token::space);
  EXPECT_EQ(copy.begin()->value(), "a");
}

TEST(xml_token_stream, copy_parses_into_its_source) {
  xml_token_stream stream;
  xml_token_stream copy(stream);
  EXPECT_EQ(copy.parse("<?xml?><a/>").type, error::no_error);
  EXPECT_EQ(copy.size(), 0u);
  EXPECT_EQ(stream.size(), 3u);

  xml_token_stream assigned;
  assigned = stream;
  EXPECT_EQ(assigned.parse("<?xml?><b/>").type, error::no_error);
  EXPECT_EQ(assigned.size(), 3u);
  EXPECT_EQ(stream.size(), 6u);
}

TEST(xml_token_stream, copy_outlives_its_source_for_reading) {
  auto stream = std::make_unique<xml_token_stream>();
  (void)stream->parse("<?xml?><a/>");
  const xml_token_stream copy(*stream);
  stream.reset();
  EXPECT_EQ(copy.size(), 3u);
  EXPECT_EQ(copy.begin()->value(), "a");
}

TEST(xml_token_stream, assignment_to_itself_changes_nothing) {
  xml_token_stream stream;
  (void)stream.parse("<?xml?><a/>");
  const auto& self = stream;
  stream = self;
  EXPECT_EQ(stream.size(), 3u);
  EXPECT_EQ(stream.parse("<?xml?><b/>").type, error::no_error);
  EXPECT_EQ(stream.size(), 6u);
}

}  // namespace
