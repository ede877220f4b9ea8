// The grammar, construct by construct: what a document delivers and how the parse ends.
#include "orva/parser/xml_parser.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "orva/exceptions/exception.hpp"
#include "tests/support/xml_events.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_parser;
using orva_test::parse_xml;
using orva_test::xml_outcome;
using error = xml_parser::parse_error;
using std::string_literals::operator""s;

struct row {
  std::string text;
  std::vector<std::string> events;
  error::error_type type = error::no_error;
  std::string data = {};
  unsigned long line = 0;
};

void expect(const std::vector<row>& rows) {
  for (const auto& [text, events, type, data, line] : rows) {
    EXPECT_EQ(parse_xml(text), (xml_outcome{events, type, line, data, false})) << text;
  }
}

/// The same, with a header before each text and the root's start among its events.
void expect_in_root(std::vector<row> rows) {
  for (auto& [text, events, type, data, line] : rows) {
    text = "<?xml?><r>" + text;
    events.insert(events.begin(), "start r");
  }
  expect(rows);
}

/// The same for the text between the root's tags, in a document that is parsed to its end.
void expect_content(std::vector<row> rows) {
  for (auto& [text, events, type, data, line] : rows) {
    text += "</r>";
    events.push_back("end r");
  }
  expect_in_root(rows);
}

TEST(xml_parser, error_types_have_their_values) {
  EXPECT_EQ(error::no_error, 0);
  EXPECT_EQ(error::unexpected_eof, 1);
  EXPECT_EQ(error::mismatched_end_element, 2);
  EXPECT_EQ(error::no_root_element, 3);
  EXPECT_EQ(error::bad_header, 4);
  EXPECT_EQ(error::unexpected_character, 5);
  EXPECT_EQ(error::missing_quote, 6);
  EXPECT_EQ(error::unknown_entity, 7);
  EXPECT_EQ(error::missing_equals, 8);
  EXPECT_EQ(error::attribute_redefined, 9);
  EXPECT_EQ(error::data_after_root, 10);
}

TEST(xml_parser, documentation_example) {
  const auto events = [](const std::string& text) {
    return parse_xml("<?xml version='1.0'?>" + text).events;
  };
  using testing::ElementsAre;
  EXPECT_THAT(events("<a>b c</a>"), ElementsAre("start a", "character b c", "end a"));
  EXPECT_THAT(events("<a>b  c</a>"),
              ElementsAre("start a", "character b", "space   ", "character c", "end a"));
  EXPECT_THAT(events("<a b=\"1\" c='2'/>"),
              ElementsAre("start a", "attribute b=1", "attribute c=2", "end a"));
  EXPECT_THAT(events("<a><!-- x --></a>"), ElementsAre("start a", "comment  x ", "end a"));
  EXPECT_THAT(events("<a>&lt;&#65;</a>"), ElementsAre("start a", "character <A", "end a"));
}

TEST(xml_parser, text_of_fewer_than_five_bytes_gives_bad_header) {
  expect({
      {"", {}, error::bad_header},
      {"<", {}, error::bad_header},
      {"<?", {}, error::bad_header},
      {"<?xm", {}, error::bad_header},
      {"abc<", {}, error::bad_header},
  });
}

TEST(xml_parser, header_missing_gives_bad_header) {
  expect({
      {"<a/>", {}, error::bad_header},
      {" <?xml?><a/>", {}, error::bad_header},
      {"<?XML?><a/>", {}, error::bad_header},
      {"<?xmx?><a/>", {}, error::bad_header},
      {"\n<?xml?><a/>", {}, error::bad_header},
      {"abc<?xm", {}, error::bad_header},
      {"abc<a/>", {}, error::bad_header},
      {"abcd<?xml?><a/>", {}, error::bad_header},
  });
}

TEST(xml_parser, header_holding_angle_bracket_gives_bad_header) {
  expect({
      {"<?xml>", {}, error::bad_header},
      {"<?xml <?><a/>", {}, error::bad_header},
      {"<?xml a=\"<\"?><a/>", {}, error::bad_header},
      {"<?xml ? ><a/>", {}, error::bad_header},
      {"<?xml\n\n>", {}, error::bad_header},
  });
}

TEST(xml_parser, header_cut_off_gives_no_root_element) {
  expect({
      {"<?xml", {}, error::no_root_element},
      {"<?xml?", {}, error::no_root_element},
      {"<?xml version='1.0'", {}, error::no_root_element},
      {"<?xml version='1.0'?", {}, error::no_root_element},
  });
}

TEST(xml_parser, header_only_gives_no_root_element) {
  expect({
      {"<?xml?>", {}, error::no_root_element},
      {"<?xml?>  \t", {}, error::no_root_element},
      {"<?xml?>\n\r\n", {}, error::no_root_element, "", 2},
      {"\xEF\xBB\xBF<?xml?>", {}, error::no_root_element},
  });
}

TEST(xml_parser, header_contents_are_not_read) {
  const std::vector<std::string> element = {"start a", "end a"};
  expect({
      {"<?xml?><a/>", element},
      {"<?xml version='9' encoding='none'?><a/>", element},
      {"<?xmlanything goes here?><a/>", element},
      {"<?xml?\?\?><a/>", element},
      {"<?xml ? ?><a/>", element},
      {"<?xml\n\n?><a/>", element},
      {"<?xml \xFF\x80 '\"&;?><a/>", element},
  });
}

TEST(xml_parser, any_three_bytes_before_the_header_are_skipped) {
  const std::vector<std::string> element = {"start a", "end a"};
  expect({
      {"\xEF\xBB\xBF<?xml?><a/>", element},
      {"abc<?xml?><a/>", element},
      {"<<<<?xml?><a/>", element},
      {"\n\n\n<?xml?>\n<", {}, error::unexpected_character, "", 1},
      {"<a><?xml?><a/>", element},
  });
}

TEST(xml_parser, space_after_the_header_is_dropped) { expect({{"<?xml?> \n\t <a/>", {"start a", "end a"}}}); }

TEST(xml_parser, root_element_alone_gives_no_error) {
  expect({
      {"<?xml?><a/>", {"start a", "end a"}},
      {"<?xml?><a></a>", {"start a", "end a"}},
      {"<?xml?><a\n>\n</a \t>\n", {"start a", "space \n", "end a", "space \n"}},
  });
}

TEST(xml_parser, second_top_level_element_gives_data_after_root) {
  expect({
      {"<?xml?><a></a><b/>", {"start a", "end a"}, error::data_after_root},
      {"<?xml?><a/>\n<b/>", {"start a", "end a", "space \n"}, error::data_after_root, "", 1},
      {"<?xml?><a/><!DOCTYPE a>", {"start a", "end a"}, error::data_after_root},
      {"<?xml?><a/><", {"start a", "end a"}, error::data_after_root},
  });
}

TEST(xml_parser, text_and_comments_after_the_root_are_delivered) {
  expect({
      {"<?xml?><a/>text", {"start a", "end a", "character text"}},
      {"<?xml?><a/> <!--c--><![CDATA[d]]>", {"start a", "end a", "space  ", "comment c", "character d"}},
  });
}

TEST(xml_parser, document_without_any_element_gives_no_error) {
  expect({
      {"<?xml?>text", {"character text"}},
      {"<?xml?><!---->", {"comment "}},
      {"<?xml?><![CDATA[]]> ", {"character ", "space  "}},
  });
}

TEST(xml_parser, names_take_letters_digits_and_underscore) {
  expect({
      {"<?xml?><Az09_/>", {"start Az09_", "end Az09_"}},
      {"<?xml?><a_b1 c_2='x'/>", {"start a_b1", "attribute c_2=x", "end a_b1"}},
  });
}

TEST(xml_parser, name_not_starting_with_a_letter_gives_unexpected_character) {
  expect_in_root({
      {"<1>", {}, error::unexpected_character, "1"},
      {"<_a>", {}, error::unexpected_character, "_"},
      {"<:a>", {}, error::unexpected_character, ":"},
      {"< a>", {}, error::unexpected_character, " "},
      {"<\n>", {}, error::unexpected_character, "\n"},
      {"<>", {}, error::unexpected_character, ">"},
      {"<<a>", {}, error::unexpected_character, "<"},
      {"<\xC3\xA9>", {}, error::unexpected_character, "\xC3"},
      {"<\0>"s, {}, error::unexpected_character, "\0"s},
      {"</1>", {}, error::unexpected_character, "1"},
      {"</ r>", {}, error::unexpected_character, " "},
      {"</>", {}, error::unexpected_character, ">"},
      {"<a 1='x'/>", {"start a"}, error::unexpected_character, "1"},
      {"<a _x='x'/>", {"start a"}, error::unexpected_character, "_"},
      {"<a ='x'/>", {"start a"}, error::unexpected_character, "="},
      {"<a \"x\"/>", {"start a"}, error::unexpected_character, "\""},
  });
}

TEST(xml_parser, name_ends_at_colon_which_gives_unexpected_character) {
  expect({{"<?xml?><a><b:c/></a>", {"start a", "start b"}, error::unexpected_character, ":"}});
  expect_in_root({
      {"<a-b/>", {"start a"}, error::unexpected_character, "-"},
      {"<a.b/>", {"start a"}, error::unexpected_character, "."},
      {"<a\xC3\xA9/>", {"start a"}, error::unexpected_character, "\xC3"},
      {"</r:s>", {"end r"}, error::unexpected_character, ":"},
  });
}

TEST(xml_parser, declarations_and_instructions_give_unexpected_character) {
  expect({
      {"<?xml?><!DOCTYPE a><a/>", {}, error::unexpected_character, "!"},
      {"<?xml?><!-a", {}, error::unexpected_character, "!"},
      {"<?xml?><![CDATA", {}, error::unexpected_character, "!"},
      {"<?xml?><![cdata[x]]>", {}, error::unexpected_character, "!"},
      {"<?xml?><?pi?><a/>", {}, error::unexpected_character, "?"},
  });
}

TEST(xml_parser, mismatched_end_tag_reports_its_name) {
  expect({
      {"<?xml?><a><b></a></b>", {"start a", "start b"}, error::mismatched_end_element, "a"},
      {"<?xml?><a></A>", {"start a"}, error::mismatched_end_element, "A"},
      {"<?xml?><a></aa>", {"start a"}, error::mismatched_end_element, "aa"},
      {"<?xml?><aa></a>", {"start aa"}, error::mismatched_end_element, "a"},
      {"<?xml?><a>\n</b", {"start a", "space \n"}, error::mismatched_end_element, "b", 1},
  });
}

TEST(xml_parser, end_tag_with_nothing_open_gives_mismatched_end_element) {
  expect({
      {"<?xml?></a>", {}, error::mismatched_end_element, "a"},
      {"<?xml?></a", {}, error::mismatched_end_element, "a"},
      {"<?xml?><a/></a>", {"start a", "end a"}, error::mismatched_end_element, "a"},
      {"<?xml?><a></a></a>", {"start a", "end a"}, error::mismatched_end_element, "a"},
  });
}

TEST(xml_parser, empty_element_end_with_nothing_open_gives_mismatched_end_element) {
  expect({{"<?xml?><a></a/>", {"start a", "end a"}, error::mismatched_end_element}});
}

TEST(xml_parser, end_tag_may_close_a_second_element_by_a_slash) {
  expect({{"<?xml?><a><b></b/>", {"start a", "start b", "end b", "end a"}}});
}

TEST(xml_parser, end_tag_takes_attributes) {
  expect_in_root({
      {"</r a='1'>", {"end r", "attribute a=1"}},
      {"<a b='1'></a b='2'>", {"start a", "attribute b=1", "end a"}, error::attribute_redefined, "b"},
  });
}

TEST(xml_parser, end_tag_takes_space_after_its_name_only) { expect_in_root({{"</r \t\n>", {"end r"}}}); }

TEST(xml_parser, end_tag_cut_off_after_its_name_gives_unexpected_eof) {
  expect_in_root({
      {"</r", {}, error::unexpected_eof},
      {"\n</r", {"space \n"}, error::unexpected_eof, "", 1},
      {"<a></a", {"start a"}, error::unexpected_eof},
  });
}

TEST(xml_parser, end_tag_of_the_root_without_bracket_but_space_gives_no_error) {
  expect_in_root({{"</r ", {"end r"}}});
}

TEST(xml_parser, end_inside_open_element_gives_unexpected_eof_with_line_0) {
  expect({
      {"<?xml?><a>\n\n<b>\n", {"start a", "space \n\n", "start b", "space \n"}, error::unexpected_eof},
      {"<?xml?>\n\n<a", {"start a"}, error::unexpected_eof},
      {"<?xml?>\n\n<a ", {"start a"}, error::unexpected_eof},
      {"<?xml?><a b='1'", {"start a", "attribute b=1"}, error::unexpected_eof},
      {"<?xml?><a>text", {"start a", "character text"}, error::unexpected_eof},
      {"<?xml?><a><!--c-->", {"start a", "comment c"}, error::unexpected_eof},
  });
}

TEST(xml_parser, tag_inside_tag_gives_unexpected_character) {
  expect_in_root({
      {"<a <b>", {"start a"}, error::unexpected_character, "<"},
      {"<a<b>", {"start a"}, error::unexpected_character, "<"},
      {"</r<a>", {"end r"}, error::unexpected_character, "<"},
      {"<a <!--c-->>", {"start a"}, error::unexpected_character, "<"},
  });
}

TEST(xml_parser, closing_bracket_outside_a_tag_gives_unexpected_character) {
  expect_in_root({
      {">", {}, error::unexpected_character, ">"},
      {"<a>>", {"start a"}, error::unexpected_character, ">"},
      {"x  >", {"character x", "space   "}, error::unexpected_character, ">"},
      {"<!--c-->>", {"comment c"}, error::unexpected_character, ">"},
      {"\n\n>", {"space \n\n"}, error::unexpected_character, ">", 2},
  });
}

TEST(xml_parser, closing_bracket_within_a_run_of_text_is_text) {
  expect_content({{"x>y >", {"character x>y >"}}});
}

TEST(xml_parser, slash_in_a_tag_needs_closing_bracket) {
  expect_in_root({
      {"<a/ >", {"start a"}, error::unexpected_character, " "},
      {"<a/b>", {"start a"}, error::unexpected_character, "b"},
      {"<a//>", {"start a"}, error::unexpected_character, "/"},
      {"<a/", {"start a"}, error::unexpected_character},
      {"<a /", {"start a"}, error::unexpected_character},
  });
}

TEST(xml_parser, slash_outside_a_tag_is_text) { expect_content({{"/x/", {"character /x/"}}}); }

TEST(xml_parser, attribute_is_delivered_with_name_and_value) {
  expect_in_root({
      {"<a b=\"1\" c='2'/></r>", {"start a", "attribute b=1", "attribute c=2", "end a", "end r"}},
      {"<a b = '1'\n/></r>", {"start a", "attribute b=1", "end a", "end r"}},
      {"<a b=''/></r>", {"start a", "attribute b=", "end a", "end r"}},
  });
}

TEST(xml_parser, attributes_need_no_space_between_them) {
  expect({
      {"<?xml?><a a=\"1\"b=\"2\"/>", {"start a", "attribute a=1", "attribute b=2", "end a"}},
      {"<?xml?><a b='1'></a>", {"start a", "attribute b=1", "end a"}},
  });
}

TEST(xml_parser, attribute_twice_in_one_tag_gives_attribute_redefined) {
  expect({
      {"<?xml?><a b=\"1\" b=\"2\"/>", {"start a", "attribute b=1"}, error::attribute_redefined, "b"},
      {"<?xml?><a b='' c='' b", {"start a", "attribute b=", "attribute c="}, error::attribute_redefined, "b"},
      {"<?xml?><a\nb=''\nb=''/>", {"start a", "attribute b="}, error::attribute_redefined, "b", 2},
  });
}

TEST(xml_parser, attribute_may_come_again_in_another_tag) {
  expect({
      {"<?xml?><a b='1'><c b='2'/></a>",
       {"start a", "attribute b=1", "start c", "attribute b=2", "end c", "end a"}},
      {"<?xml?><a b='1' B='2'/>", {"start a", "attribute b=1", "attribute B=2", "end a"}},
  });
}

TEST(xml_parser, attribute_without_equals_reports_its_name) {
  expect_in_root({
      {"<a b/>", {"start a"}, error::missing_equals, "b"},
      {"<a b c='1'/>", {"start a"}, error::missing_equals, "b"},
      {"<a bcd>", {"start a"}, error::missing_equals, "bcd"},
      {"<a b:c='1'>", {"start a"}, error::missing_equals, "b"},
      {"<a b", {"start a"}, error::missing_equals, "b"},
      {"<a b ", {"start a"}, error::missing_equals, "b"},
      {"<a b\n\n", {"start a"}, error::missing_equals, "b", 2},
  });
}

TEST(xml_parser, value_without_quote_gives_missing_quote_without_data) {
  expect({{"<?xml?><a b=1/>", {"start a"}, error::missing_quote}});
  expect_in_root({
      {"<a b=>", {"start a"}, error::missing_quote},
      {"<a b= c='1'>", {"start a"}, error::missing_quote},
      {"<a b=`1`>", {"start a"}, error::missing_quote},
      {"<a b=", {"start a"}, error::missing_quote},
      {"<a b=\n ", {"start a"}, error::missing_quote, "", 1},
  });
}

TEST(xml_parser, value_cut_off_is_delivered_before_missing_quote_reports_its_name) {
  expect_in_root({
      {"<a b='", {"start a", "attribute b="}, error::missing_quote, "b"},
      {"<a b='1", {"start a", "attribute b=1"}, error::missing_quote, "b"},
      {"<a b=\"1'", {"start a", "attribute b=1'"}, error::missing_quote, "b"},
      {"<a b='&lt;", {"start a", "attribute b=<"}, error::missing_quote, "b"},
      {"<a\nb='1\n/>", {"start a", "attribute b=1\n/>"}, error::missing_quote, "b", 1},
  });
}

TEST(xml_parser, value_holding_angle_bracket_gives_unexpected_character) {
  expect({{"<?xml?><a b=\"<\"/>", {"start a"}, error::unexpected_character, "<"}});
  expect_in_root({{"<a b='x<", {"start a"}, error::unexpected_character, "<"}});
}

TEST(xml_parser, value_takes_the_other_quote_and_closing_brackets) {
  expect_in_root({
      {"<a b=\"'\" c='\"'/></r>", {"start a", "attribute b='", "attribute c=\"", "end a", "end r"}},
      {"<a b='>/>'/></r>", {"start a", "attribute b=>/>", "end a", "end r"}},
  });
}

TEST(xml_parser, value_is_not_normalised) {
  expect_in_root({{"<a b=' \n\t\r\n  \xC3\xA9\xFF '/></r>",
                   {"start a", "attribute b= \n\t\r\n  \xC3\xA9\xFF ", "end a", "end r"}}});
}

TEST(xml_parser, value_expands_entities_and_references) {
  expect_in_root({{"<a b='&lt;&quot;x&apos;&amp;&#65;&#x41;&nbsp;'/></r>",
                   {"start a", "attribute b=<\"x'&AA ", "end a", "end r"}}});
}

TEST(xml_parser, entities_yield_their_characters) {
  expect_content({
      {"&lt;", {"character <"}},
      {"&gt;", {"character >"}},
      {"&amp;", {"character &"}},
      {"&apos;", {"character '"}},
      {"&quot;", {"character \""}},
      {"&nbsp;", {"character  "}},
      {"&amp;lt;", {"character &lt;"}},
      {"a&lt;b&gt;c", {"character a<b>c"}},
  });
}

TEST(xml_parser, no_break_space_entity_yields_a_plain_space_that_ends_no_run) {
  expect_content({
      {"a&nbsp;&nbsp;b", {"character a  b"}},
      {"a &nbsp; b", {"character a   b"}},
  });
}

TEST(xml_parser, space_entity_and_references_make_one_run) {
  expect({{"<?xml?><a>&nbsp;&#65;&#x41;</a>", {"start a", "character  AA", "end a"}}});
}

TEST(xml_parser, entity_starting_with_another_letter_gives_unknown_entity) {
  expect({{"<?xml?><a>&foo;</a>", {"start a"}, error::unknown_entity}});
  expect_in_root({
      {"&", {}, error::unknown_entity},
      {"a &", {}, error::unknown_entity},
      {"& ", {}, error::unknown_entity},
      {"&;", {}, error::unknown_entity},
      {"&LT;", {}, error::unknown_entity},
      {"&\xC3\xA9;", {}, error::unknown_entity},
      {"\n\n&copy;", {"space \n\n"}, error::unknown_entity, "", 2},
      {"<a b='&", {"start a"}, error::unknown_entity},
      {"<a b='&foo;'/>", {"start a"}, error::unknown_entity},
  });
}

TEST(xml_parser, malformed_entity_reports_the_second_character_after_the_ampersand) {
  expect({{"<?xml?><a>&lx;</a>", {"start a"}, error::unexpected_character, "x"}});
  expect_in_root({
      {"&l;", {}, error::unexpected_character, ";"},
      {"&ltx;", {}, error::unexpected_character, "t"},
      {"&lt ;", {}, error::unexpected_character, "t"},
      {"&gx;", {}, error::unexpected_character, "x"},
      {"&amx;", {}, error::unexpected_character, "m"},
      {"&apox;", {}, error::unexpected_character, "p"},
      {"&ax;", {}, error::unexpected_character, "x"},
      {"&quit;", {}, error::unexpected_character, "u"},
      {"&nbs;", {}, error::unexpected_character, "b"},
      {"&l<", {}, error::unexpected_character, "<"},
      {"<a b='&lx;'", {"start a"}, error::unexpected_character, "x"},
  });
}

TEST(xml_parser, entity_cut_off_reports_the_second_character_after_the_ampersand_if_there_is_one) {
  for (const std::string entity : {"&lt;", "&gt;", "&amp;", "&apos;", "&quot;", "&nbsp;"}) {
    for (std::size_t length = 2; length < entity.size(); ++length) {
      expect_in_root({{entity.substr(0, length),
                       {},
                       error::unexpected_character,
                       length > 2 ? entity.substr(2, 1) : ""}});
    }
  }
}

TEST(xml_parser, character_reference_yields_one_raw_byte) {
  for (unsigned int value = 0; value <= 0xFF; ++value) {
    char hexadecimal[16];
    std::snprintf(hexadecimal, sizeof(hexadecimal), "&#x%x;", value);
    const std::string byte(1, static_cast<char>(value));
    expect_content({
        {"&#" + std::to_string(value) + ";", {"character " + byte}},
        {hexadecimal, {"character " + byte}},
    });
  }
  expect_content({
      {"&#233;", {"character \xE9"}},
      {"&#x000000000000000000eE;", {"character \xEE"}},
      {"&#00000000000000000065;", {"character A"}},
  });
}

TEST(xml_parser, character_reference_without_digits_yields_a_zero_byte) {
  expect_content({
      {"&#;", {"character \0"s}},
      {"&#x;", {"character \0"s}},
      {"a&#;b", {"character a\0b"s}},
  });
}

TEST(xml_parser, character_reference_to_markup_is_text) {
  expect_content({
      {"&#60;a&#62;", {"character <a>"}},
      {"&#38;lt;", {"character &lt;"}},
      {"a&#32;&#32;b", {"character a  b"}},
      {"a&#10;\nb", {"character a\n\nb"}},
  });
}

TEST(xml_parser, character_reference_with_another_character_reports_it) {
  expect_in_root({
      {"&#12x;", {}, error::unexpected_character, "x"},
      {"&#X41;", {}, error::unexpected_character, "X"},
      {"&#A;", {}, error::unexpected_character, "A"},
      {"&#x4G;", {}, error::unexpected_character, "G"},
      {"&#-1;", {}, error::unexpected_character, "-"},
      {"&# 65;", {}, error::unexpected_character, " "},
      {"&#65 ;", {}, error::unexpected_character, " "},
      {"&#65<", {}, error::unexpected_character, "<"},
      {"&##;", {}, error::unexpected_character, "#"},
  });
}

TEST(xml_parser, character_reference_cut_off_gives_unexpected_character_without_data) {
  expect_in_root({
      {"&#", {}, error::unexpected_character},
      {"&#6", {}, error::unexpected_character},
      {"&#x", {}, error::unexpected_character},
      {"&#xA", {}, error::unexpected_character},
      {"<a b='&#65", {"start a"}, error::unexpected_character},
  });
}

TEST(xml_parser, character_reference_above_255_throws_overflow_error) {
  xml_parser parser;
  for (const char* text : {"<?xml?>&#256;", "<?xml?>&#x100;", "<?xml?>&#8364;", "<?xml?><a b='&#x20AC;'/>",
                           "<?xml?>&#99999999999999999999999999;"}) {
    try {
      (void)parser.parse(text);
      FAIL() << text;
    } catch (const ORVA_NAMESPACE::exceptions::overflow_error& failure) {
      EXPECT_STREQ(failure.message(), "Number value is to large") << text;
      EXPECT_STREQ(failure.error_state().file(), "generic/convert/str_to_x");
      EXPECT_STREQ(failure.error_state().function(), ORVA_QUALIFIED("generic::convert::strtouintx"));
    }
  }
}

TEST(xml_parser, text_run_ends_before_two_spaces_in_a_row) {
  expect_content({
      {"a b", {"character a b"}},
      {"a  b", {"character a", "space   ", "character b"}},
      {"a   b", {"character a", "space    ", "character b"}},
      {"a\n b", {"character a", "space \n ", "character b"}},
      {"a\r\nb", {"character a", "space \r\n", "character b"}},
      {"a b c  d e", {"character a b c", "space   ", "character d e"}},
      {"a\nb\tc\rd", {"character a\nb\tc\rd"}},
      {"a\v\f b", {"character a\v\f b"}},
  });
}

TEST(xml_parser, text_keeps_a_single_trailing_space) {
  expect_content({
      {"a ", {"character a "}},
      {"a  ", {"character a", "space   "}},
      {" a ", {"space  ", "character a "}},
  });
  expect({{"<?xml?>a ", {"character a "}}, {"<?xml?>a  ", {"character a", "space   "}}});
}

TEST(xml_parser, text_is_not_decoded) {
  expect_content(
      {{"\xC3\xA9\xFF\xFE\x80", {"character \xC3\xA9\xFF\xFE\x80"}}, {"a\0b"s, {"character a\0b"s}}});
}

TEST(xml_parser, space_between_tags_is_delivered) {
  expect_content({{"\n  <a/>\t<b/>\r\n",
                   {"space \n  ", "start a", "end a", "space \t", "start b", "end b", "space \r\n"}}});
}

TEST(xml_parser, space_inside_a_tag_is_dropped) {
  expect_content({{"<a \n b\t=\r'1'  />", {"start a", "attribute b=1", "end a"}}});
}

TEST(xml_parser, other_control_characters_are_no_space) {
  expect_in_root({
      {"<a\v/>", {"start a"}, error::unexpected_character, "\v"},
      {"<a\f/>", {"start a"}, error::unexpected_character, "\f"},
      {"<a\xA0/>", {"start a"}, error::unexpected_character, "\xA0"},
  });
}

TEST(xml_parser, comment_is_delivered_with_its_inner_text) {
  expect_content({
      {"<!---->", {"comment "}},
      {"<!-- a -- b --->", {"comment  a -- b -"}},
      {"<!--<a>&lt;]]>-->", {"comment <a>&lt;]]>"}},
      {"<!-->-->", {"comment >"}},
      {"a<!--b-->c", {"character a", "comment b", "character c"}},
  });
}

TEST(xml_parser, comment_cut_off_gives_unexpected_eof) {
  expect_in_root({
      {"<!--", {}, error::unexpected_eof},
      {"<!-->", {}, error::unexpected_eof},
      {"<!--->", {}, error::unexpected_eof},
      {"<!--a-", {}, error::unexpected_eof},
      {"<!--a--", {}, error::unexpected_eof},
      {"\n<!--\n\n", {"space \n"}, error::unexpected_eof, "", 1},
  });
}

TEST(xml_parser, character_data_section_is_delivered_raw) {
  expect_content({
      {"<![CDATA[]]>", {"character "}},
      {"<![CDATA[&lt;<a>  -->]]>", {"character &lt;<a>  -->"}},
      {"<![CDATA[]]]>", {"character ]"}},
      {"<![CDATA[a]]b]>]]>", {"character a]]b]>"}},
      {"a<![CDATA[b]]>c", {"character a", "character b", "character c"}},
  });
}

TEST(xml_parser, character_data_section_cut_off_gives_unexpected_eof) {
  expect_in_root({
      {"<![CDATA[", {}, error::unexpected_eof},
      {"<![CDATA[a", {}, error::unexpected_eof},
      {"<![CDATA[a]", {}, error::unexpected_eof},
      {"<![CDATA[a]]", {}, error::unexpected_eof},
  });
}

TEST(xml_parser, line_counts_feeds_between_and_inside_tags_only) {
  expect_in_root({
      {"\n\n</x>", {"space \n\n"}, error::mismatched_end_element, "x", 2},
      {"<a\n\nb\n=\n'1'\n></x>", {"start a", "attribute b=1"}, error::mismatched_end_element, "x", 5},
      {"a\nb</x>", {"character a\nb"}, error::mismatched_end_element, "x", 0},
      {"a\n\nb</x>", {"character a", "space \n\n", "character b"}, error::mismatched_end_element, "x", 2},
      {"<!--\n--><![CDATA[\n]]><a b='\n'></x>",
       {"comment \n", "character \n", "start a", "attribute b=\n"},
       error::mismatched_end_element,
       "x",
       0},
      {"\r\r</x>", {"space \r\r"}, error::mismatched_end_element, "x", 0},
      {"&#10;&#10;</x>", {"character \n\n"}, error::mismatched_end_element, "x", 0},
  });
  expect({{"<?xml\n\n?>\n<a></x>", {"start a"}, error::mismatched_end_element, "x", 1}});
}

TEST(xml_parser, text_at_the_very_end_is_delivered) {
  expect({
      {"<?xml?>x", {"character x"}},
      {"<?xml?><a/>x y", {"start a", "end a", "character x y"}},
  });
}

TEST(xml_parser, tag_cut_off_after_its_bracket_gives_unexpected_character_without_data) {
  expect({
      {"<?xml?><", {}, error::unexpected_character},
      {"<?xml?>\n<", {}, error::unexpected_character, "", 1},
      {"<?xml?><a><", {"start a"}, error::unexpected_character},
      {"<?xml?><a></", {"start a"}, error::unexpected_character},
      {"<?xml?></", {}, error::unexpected_character},
  });
}

}  // namespace
