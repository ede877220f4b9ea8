#include "orva/parser/internal/stream_lexer.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "orva/exceptions/exception.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_stream_parser;
using ORVA_NAMESPACE::parser::_private::stream_lexer;

stream_lexer lexer_of(std::string_view text) {
  stream_lexer lexer;
  lexer.start(text.data(), text.data() + text.size(), 1);
  return lexer;
}

/// What a function reads, then the rest of the data; or the number of the error.
template <typename Read>
std::string outcome(std::string_view text, Read read) {
  stream_lexer lexer = lexer_of(text);
  try {
    const auto found = read(lexer);
    return std::string(found) + "|" + std::string(lexer.rest());
  } catch (xml_stream_parser::error_type error) {
    return "error " + std::to_string(error);
  }
}

const auto name = [](stream_lexer& lexer) { return std::string(lexer.name()); };
const auto value = [](stream_lexer& lexer) { return std::string(lexer.value()); };
const auto text = [](stream_lexer& lexer) { return std::string(lexer.text()); };
const auto character = [](stream_lexer& lexer) { return std::string(1, lexer.character()); };

const std::string cut_off = "error 1";
const std::string unexpected = "error 6";

TEST(stream_lexer, name_ends_before_the_first_other_character) {
  EXPECT_EQ(outcome("a>", name), "a|>");
  EXPECT_EQ(outcome(" \n 1_a\xC3\xA4-b", name), "1_a\xC3\xA4|-b");
  EXPECT_EQ(outcome("=x", name), "|=x") << "it may be empty";
  for (const char* const open : {"", "a", "  ", "  a"}) EXPECT_EQ(outcome(open, name), cut_off) << open;
}

TEST(stream_lexer, value_goes_from_quote_to_quote) {
  EXPECT_EQ(outcome("'a\"b'>", value), "a\"b|>");
  EXPECT_EQ(outcome(" \"a'b\"", value), "a'b|");
  EXPECT_EQ(outcome("'&lt;&#65;&#x42;\t'", value), "<AB\t|");
  EXPECT_EQ(outcome("a'", value), "error 7");
  EXPECT_EQ(outcome("'a<'", value), unexpected);
  for (const char* const open : {"", " ", "'", "'a", "'&#65;", "'&#6"}) {
    EXPECT_EQ(outcome(open, value), cut_off) << open;
  }
}

TEST(stream_lexer, text_ends_before_the_next_tag) {
  EXPECT_EQ(outcome("a 'b' >\n<c", text), "a 'b' >\n|<c");
  EXPECT_EQ(outcome("&amp;&nbsp;<", text), "& |<");
  EXPECT_EQ(outcome("never ends", text), cut_off);
}

TEST(stream_lexer, entity_needs_five_bytes_and_its_own_length) {
  EXPECT_EQ(outcome("&lt;x", character), "<|x");
  EXPECT_EQ(outcome("&lt;", character), cut_off);
  EXPECT_EQ(outcome("&apos", character), cut_off);
  EXPECT_EQ(outcome("&apos;", character), "'|");
  EXPECT_EQ(outcome("&quox", character), cut_off) << "the sixth byte is not there";
  for (const char* const wrong : {"&quox;", "&foo;", "&ampx;", "& lt;", "&#6x;", "&#X41;"}) {
    EXPECT_EQ(outcome(wrong, character), unexpected) << wrong;
  }
  EXPECT_THROW(outcome("&#256;", character), ORVA_NAMESPACE::exceptions::overflow_error);
}

TEST(stream_lexer, comment_ends_before_another_byte_and_may_be_skipped_in_parts) {
  stream_lexer lexer = lexer_of(" a - \n\n -->.");
  EXPECT_TRUE(lexer.skip_comment());
  EXPECT_EQ(lexer.rest(), ".");
  EXPECT_EQ(lexer.line(), 3u);
  stream_lexer open = lexer_of("\n a -->");
  EXPECT_FALSE(open.skip_comment());
  EXPECT_EQ(open.rest(), "-->");
  EXPECT_EQ(open.line(), 2u);
  stream_lexer wrong = lexer_of(" -- >.");
  EXPECT_THROW(wrong.skip_comment(), xml_stream_parser::error_type);
}

TEST(stream_lexer, lines_count_in_white_space_only) {
  stream_lexer lexer = lexer_of("\n\na '\n' \n.");
  lexer.name();
  lexer.value();
  lexer.skip_white_space();
  EXPECT_EQ(lexer.line(), 4u);
}

}  // namespace
