// Where a parse failed, and which element was open there.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "orva/exceptions/exception.hpp"
#include "orva/functor/member_function.hpp"
#include "orva/parser/xml_parser.hpp"
#include "orva/parser/xml_token_stream.hpp"
#include "tests/support/xml_events.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_parser;
using ORVA_NAMESPACE::parser::xml_token_stream;
using ORVA_NAMESPACE::strings::ustring8;
using error = xml_parser::parse_error;
using std::string_literals::operator""s;

/// A text that fails between its two parts.
struct row {
  std::string before;
  std::string after;
  error::error_type type;
  std::string open_element = {};
};

void expect(const std::vector<row>& rows) {
  for (const auto& [before, after, type, open_element] : rows) {
    const xml_parser parser;
    const error result = parser.parse(before + after);
    EXPECT_EQ(result.type, type) << before << '|' << after;
    EXPECT_EQ(result.offset, before.size()) << before << '|' << after;
    EXPECT_EQ(result.open_element, open_element) << before << '|' << after;
    EXPECT_EQ(parser.offset(), before.size()) << before << '|' << after;
  }
}

TEST(xml_parser_place, text_without_error_has_its_end) {
  expect({{"<?xml?><a/>", "", error::no_error}, {"<?xml?><a></a> \n", "", error::no_error}});
}

TEST(xml_parser_place, end_of_the_text_in_an_open_element_has_the_end_and_the_element) {
  expect({
      {"<?xml?><a>", "", error::unexpected_eof, "a"},
      {"<?xml?><a><b>\n text", "", error::unexpected_eof, "b"},
      {"<?xml?><a><b x='1'", "", error::unexpected_eof, "b"},
  });
}

TEST(xml_parser_place, construct_that_the_text_cuts_off_has_its_beginning_or_its_name) {
  expect({
      {"<?xml?><a>", "<!-- c -- ", error::unexpected_eof, "a"},
      {"<?xml?><a/>", "<!--", error::unexpected_eof},
      {"<?xml?><a>x", "<![CDATA[ ]]", error::unexpected_eof, "a"},
      {"<?xml?><a><b></", "b", error::unexpected_eof, "a"},
      {"<?xml?><a></", "a", error::unexpected_eof},
  });
}

TEST(xml_parser_place, mismatched_end_tag_has_its_name_and_the_open_element) {
  expect({
      {"<?xml?><a><b></", "a></b>", error::mismatched_end_element, "b"},
      {"<?xml?>\n<menu>\n  <entry>\n</", "menu>", error::mismatched_end_element, "entry"},
      {"<?xml?></", "a>", error::mismatched_end_element},
      {"<?xml?><a></a/", ">", error::mismatched_end_element},
  });
}

TEST(xml_parser_place, header_has_the_place_where_it_is_wrong) {
  expect({
      {"", "<a/>", error::bad_header},
      {"\xEF\xBB\xBF", "<a/>", error::bad_header},
      {"<?xml ", "<?><a/>", error::bad_header},
      {"<?xml \xFF ? ", "><a/>", error::bad_header},
      {"<?xml ?", "", error::no_root_element},
      {"<?xml ?>\n ", "", error::no_root_element},
  });
}

TEST(xml_parser_place, unexpected_character_has_its_place) {
  expect({
      {"<?xml?><a>", ">", error::unexpected_character, "a"},
      {"<?xml?><a ", "<b>", error::unexpected_character, "a"},
      {"<?xml?><a><", "1>", error::unexpected_character, "a"},
      {"<?xml?><a b='", "<'>", error::unexpected_character, "a"},
      {"<?xml?><a b='&lt;x", "<'>", error::unexpected_character, "a"},
      {"<?xml?><a ", "b:c=''>", error::missing_equals, "a"},
      {"<?xml?><a/", " >", error::unexpected_character, "a"},
      {"<?xml?><a>x&#65", "x;</a>", error::unexpected_character, "a"},
      {"<?xml?><a>x&a", "x;</a>", error::unexpected_character, "a"},
      {"<?xml?><a>x&l", "", error::unexpected_character, "a"},
      {"<?xml?><a>x&#6", "", error::unexpected_character, "a"},
      {"<?xml?><a/", "", error::unexpected_character, "a"},
      {"<?xml?><", "", error::unexpected_character},
  });
}

TEST(xml_parser_place, attribute_has_the_place_where_it_is_wrong) {
  expect({
      {"<?xml?><a b=", "1>", error::missing_quote, "a"},
      {"<?xml?><a b= ", "", error::missing_quote, "a"},
      {"<?xml?><a ", "b='1", error::missing_quote, "a"},
      {"<?xml?><a ", "b>", error::missing_equals, "a"},
      {"<?xml?><a ", "b \nc=''>", error::missing_equals, "a"},
      {"<?xml?><a b='' ", "b=''>", error::attribute_redefined, "a"},
      {"<?xml?><a b='", "&x;'>", error::unknown_entity, "a"},
      {"<?xml?><a>x ", "&x;</a>", error::unknown_entity, "a"},
      {"<?xml?><a/>", "<b/>", error::data_after_root},
  });
}

TEST(xml_parser_place, range_counts_from_its_beginning) {
  const std::string text = "xx<?xml?><a></b>xx";
  const auto result = xml_parser().parse(text.begin() + 2, text.end() - 2);
  EXPECT_EQ(result.offset, 12u);
  EXPECT_EQ(result.open_element, "a");
}

TEST(xml_parser_place, element_that_an_earlier_parse_left_open_is_open) {
  const xml_parser parser;
  EXPECT_EQ(parser.parse("<?xml?><a>").open_element, "a");
  EXPECT_EQ(parser.parse("<?xml?></b>").open_element, "a");
}

TEST(xml_parser_place, reference_above_255_leaves_its_place) {
  const std::string before = "<?xml?><a b='1'>text ";
  const xml_parser parser;
  EXPECT_THROW(static_cast<void>(parser.parse(before + "&#256;</a>")),
               ORVA_NAMESPACE::exceptions::overflow_error);
  EXPECT_EQ(parser.offset(), before.size());

  xml_token_stream tokens;
  EXPECT_THROW(static_cast<void>(tokens.parse(before + "&#x100;</a>")),
               ORVA_NAMESPACE::exceptions::overflow_error);
  EXPECT_EQ(tokens.offset(), before.size());
}

struct refusing {
  void take(const ustring8& name) {
    if (name == "b") throw std::string("b is not known");
  }
};

TEST(xml_parser_place, exception_of_a_delegate_leaves_the_place_of_its_construct) {
  refusing receiver;
  xml_parser parser;
  parser.on_element_start =
      ORVA_NAMESPACE::functor::member_function_t<refusing, void(const ustring8&)>(&receiver, &refusing::take);
  EXPECT_THROW(static_cast<void>(parser.parse("<?xml?><a><b c='1'/></a>")), std::string);
  EXPECT_EQ(parser.offset(), "<?xml?><a><b"s.size());
}

class scanners : public xml_parser {
 public:
  using xml_parser::parse_attrib_value;
};

TEST(xml_parser_place, failure_of_a_scanner_counts_from_its_position) {
  const std::string text = "xx'a<'";
  auto it = text.begin() + 2;
  auto end = text.end();
  try {
    static_cast<void>(scanners().parse_attrib_value(it, end));
    FAIL();
  } catch (const error& failure) {
    EXPECT_EQ(failure.offset, 2u);
    EXPECT_EQ(failure.open_element, "");
  }
}

TEST(xml_parser_place, error_is_written_in_one_line) {
  const auto words = [](const std::string& text) {
    return (std::ostringstream() << xml_parser().parse(text)).str();
  };
  EXPECT_EQ(words("<?xml?><a/>"), "no_error");
  EXPECT_EQ(words("<?xml?>\n<menu><entry></menu>"),
            "mismatched_end_element at byte 23: \"menu\", open element \"entry\"");
  EXPECT_EQ(words("<?xml?><\n"), "unexpected_character at byte 8: \"\\x0A\"");
  EXPECT_EQ(words("<?xml?><\xC3\xA9>"), "unexpected_character at byte 8: \"\\xC3\"");
  EXPECT_EQ(words("<?xml?><a>"), "unexpected_eof at byte 10, open element \"a\"");
  EXPECT_EQ(words("<a/>"), "bad_header at byte 0");
}

TEST(xml_parser_place, error_types_have_names) {
  const std::vector<std::string_view> names = {
      "no_error",       "unexpected_eof",       "mismatched_end_element", "no_root_element",
      "bad_header",     "unexpected_character", "missing_quote",          "unknown_entity",
      "missing_equals", "attribute_redefined",  "data_after_root"};
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ(name_of(static_cast<error::error_type>(i)), names[i]);
  }
}

}  // namespace
