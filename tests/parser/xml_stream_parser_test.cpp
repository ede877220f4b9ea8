#include "orva/parser/xml_stream_parser.hpp"
#include "orva/exceptions/exception.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "orva/exceptions/exception.hpp"
#include "tests/support/xml_stream_feed.hpp"
#include "tests/support/xml_stream_file.hpp"
#include "tests/support/xml_stream_transcript.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_stream_parser;
using orva_test::describe_node;
using orva_test::read_all;
using orva_test::take_all;
using orva_test::transcript;
using orva_test::xml_stream_file;
using feed = orva_test::xml_stream_feed;
using error_type = xml_stream_parser::error_type;

TEST(xml_stream_parser, open_level_is_reported_at_its_start_and_its_end_and_records_once_closed) {
  xml_stream_file file("<?xml?><r><a x=\"1\"><b>t</b></a><a/></r>            ");
  xml_stream_parser parser(file.path(), 1);
  EXPECT_EQ(parser.parse(), xml_stream_parser::end_of_document);
  transcript seen;
  take_all(parser, seen);
  EXPECT_EQ(seen,
            (transcript{"r #1<0 status 1 line 1", "a #2<1 status 0 line 1 x=\"1\"",
                        "b #3<2 status 0 line 1 [t]", "a #4<1 status 0 line 1", "r #1<0 status 3 line 1"}));
  EXPECT_EQ(parser.error(), xml_stream_parser::end_of_document);
  EXPECT_EQ(parser.root(), "r");
}

TEST(xml_stream_parser, documentation_example) {
  xml_stream_file file("<?xml?><r><a x=\"1\"><b>t</b></a><c/></r>              ");
  xml_stream_parser parser(file.path(), 1);
  parser.parse();
  transcript seen;
  while (!parser.node_queue_empty()) seen.push_back(describe_node(parser.node_queue_pop()));
  EXPECT_EQ(seen,
            (transcript{"r #1<0 status 1 line 1", "a #2<1 status 0 line 1 x=\"1\"",
                        "b #3<2 status 0 line 1 [t]", "c #4<1 status 0 line 1", "r #1<0 status 3 line 1"}));
}

TEST(xml_stream_parser, second_open_level_is_reported_at_its_start_and_its_end) {
  feed two("<r><s><a><b/></a></s></r>", 2);
  EXPECT_EQ(two.nodes(),
            (transcript{"r #1<0 status 1 line 1", "s #2<1 status 1 line 1", "a #3<2 status 0 line 1",
                        "b #4<3 status 0 line 1", "s #2<0 status 0 line 1", "r #1<0 status 3 line 1"}));
}

TEST(xml_stream_parser, without_open_levels_the_whole_document_is_one_record_that_never_ends) {
  feed whole("<r><a/></r>", 0);
  EXPECT_EQ(whole.nodes(), (transcript{"r #1<0 status 0 line 1", "a #2<1 status 0 line 1"}));
  EXPECT_EQ(whole.parser.error(), xml_stream_parser::no_error);
  EXPECT_EQ(whole.parser.root(), "");
}

TEST(xml_stream_parser, open_node_has_its_attributes) {
  feed open("<r a='1' b='2'><a/></r>");
  EXPECT_EQ(open.nodes().front(), "r #1<0 status 1 line 1 a=\"1\" b=\"2\"");
}

struct outcome {
  std::string_view name;
  std::string_view text;
  error_type error;
};

void PrintTo(const outcome& row, std::ostream* out) { *out << row.text; }

class xml_stream_parser_grammar : public ::testing::TestWithParam<outcome> {};

TEST_P(xml_stream_parser_grammar, ends_with) {
  feed text(GetParam().text);
  read_all(text.parser);
  EXPECT_EQ(text.parser.error(), GetParam().error) << GetParam().text;
}

TEST_P(xml_stream_parser_grammar, parsing_again_ends_the_same_at_the_same_place) {
  feed text(GetParam().text);
  const auto first = read_all(text.parser);
  const auto second = read_all(text.parser);
  EXPECT_EQ(second, transcript{first.back()});
}

INSTANTIATE_TEST_SUITE_P(
    table, xml_stream_parser_grammar,
    ::testing::ValuesIn(std::vector<outcome>{
        {"root", "<r></r>", xml_stream_parser::end_of_document},
        {"blanks_around_names", "< r\n>< a x='1' /></ r \n>", xml_stream_parser::end_of_document},
        {"blanks_after_the_equals", "<r x= '1'></r>", xml_stream_parser::end_of_document},
        {"attributes_without_blank_between", "<r x='1'y='2'></r>", xml_stream_parser::end_of_document},
        {"name_of_digits", "<1 _2='3'></1>", xml_stream_parser::end_of_document},
        {"name_of_other_letters", "<\xC3\xA4></\xC3\xA4>", xml_stream_parser::end_of_document},
        {"other_quote_in_value", "<r x='\"' y=\"'\"></r>", xml_stream_parser::end_of_document},
        {"bracket_in_value", "<r x='>'></r>", xml_stream_parser::end_of_document},
        {"bracket_in_text", "<r><a>x > y</a></r>", xml_stream_parser::end_of_document},
        {"slash_in_text", "<r><a>/x/</a></r>", xml_stream_parser::end_of_document},
        {"comments_anywhere", "<!--a--><r><!----><a><!-- - --></a><!--\n--></r>",
         xml_stream_parser::end_of_document},
        {"after_the_root_nothing_is_read", "<r></r><r><x y></wrong>", xml_stream_parser::end_of_document},
        {"include_closed_at_once", "<r><include/></r>", xml_stream_parser::end_of_document},
        {"include_within_a_record", "<r><a><include></include></a></r>", xml_stream_parser::end_of_document},
        {"nothing_after_the_header", "", xml_stream_parser::no_error},
        {"blanks_after_the_header", " \n ", xml_stream_parser::no_error},
        {"ends_between_tokens", "<r><a/>", xml_stream_parser::no_error},
        {"ends_before_a_bracket", "<r><a", xml_stream_parser::incomplete},
        {"ends_after_a_blank_in_a_tag", "<r><a ", xml_stream_parser::no_error},
        {"ends_after_a_slash", "<r><a/", xml_stream_parser::no_error},
        {"ends_in_an_attribute_name", "<r><a x", xml_stream_parser::incomplete},
        {"ends_after_the_equals", "<r><a x=", xml_stream_parser::incomplete},
        {"ends_in_a_value", "<r><a x='1", xml_stream_parser::incomplete},
        {"ends_in_an_empty_value", "<r><a x='", xml_stream_parser::incomplete},
        {"ends_in_an_entity", "<r><a x='&am", xml_stream_parser::incomplete},
        {"ends_in_a_reference", "<r><a>&#x41", xml_stream_parser::incomplete},
        {"ends_in_text", "<r><a>text", xml_stream_parser::incomplete},
        {"ends_in_text_of_the_root", "<r>text", xml_stream_parser::incomplete},
        {"ends_in_an_opener", "<r><", xml_stream_parser::incomplete},
        {"ends_in_a_comment_opener", "<r><!-", xml_stream_parser::incomplete},
        {"ends_in_a_comment", "<r><!-- x", xml_stream_parser::incomplete},
        {"ends_with_a_comment", "<r><!-- x -->", xml_stream_parser::incomplete},
        {"ends_in_an_end_tag", "<r></", xml_stream_parser::incomplete},
        {"ends_in_the_end_tag_of_the_root", "<r></r", xml_stream_parser::incomplete},
        {"ends_after_the_name_of_the_root", "<r></r ", xml_stream_parser::no_error},
        {"end_tag_without_a_name", "<r></></r>", xml_stream_parser::incomplete},
        {"wrong_end_of_a_record", "<r><a></b></r>", xml_stream_parser::mismatched_tag},
        {"wrong_end_of_the_root", "<r></s>", xml_stream_parser::mismatched_tag},
        {"end_without_a_start", "</r>", xml_stream_parser::mismatched_tag},
        {"open_level_closed_by_a_slash", "<r/><a></a>", xml_stream_parser::mismatched_tag},
        {"include_in_place_of_an_open_level", "<include></include>", xml_stream_parser::mismatched_tag},
        {"attribute_twice", "<r><a x='1' x='2'/></r>", xml_stream_parser::duplicate_attribute},
        {"attribute_of_the_root_twice", "<r x='1' y='' x='2'></r>", xml_stream_parser::duplicate_attribute},
        {"text_before_the_root", "text<r></r>", xml_stream_parser::unexpected_character},
        {"text_in_the_root", "<r>text</r>", xml_stream_parser::unexpected_character},
        {"bracket_at_the_start_of_text", "<r><a>></a></r>", xml_stream_parser::unexpected_character},
        {"tag_in_a_tag", "<r><a <b/></a></r>", xml_stream_parser::unexpected_character},
        {"start_tag_without_a_name", "<r><></r>", xml_stream_parser::unexpected_character},
        {"slash_without_a_bracket", "<r><a / ></r>", xml_stream_parser::unexpected_character},
        {"opening_bracket_in_a_value", "<r x='<'></r>", xml_stream_parser::unexpected_character},
        {"attribute_without_a_name", "<r ='1'></r>", xml_stream_parser::unexpected_character},
        {"unknown_entity", "<r><a>&foo;</a></r>", xml_stream_parser::unexpected_character},
        {"entity_gone_wrong", "<r><a>&ltx;</a></r>", xml_stream_parser::unexpected_character},
        {"upper_case_reference", "<r><a>&#X41;</a></r>", xml_stream_parser::unexpected_character},
        {"letter_in_a_reference", "<r><a>&#6A;</a></r>", xml_stream_parser::unexpected_character},
        {"two_hyphens_in_a_comment", "<r><!-- a -- b --></r>", xml_stream_parser::unexpected_character},
        {"three_hyphens_ending_a_comment", "<r><!-- a ---></r>", xml_stream_parser::unexpected_character},
        {"processing_instruction", "<?pi?><r></r>", xml_stream_parser::unexpected_character},
        {"document_type", "<!DOCTYPE r><r></r>", xml_stream_parser::unexpected_character},
        {"character_data_in_the_root", "<r><![CDATA[x]]></r>", xml_stream_parser::unexpected_character},
        {"namespace", "<r><a:b/></r>", xml_stream_parser::unexpected_character},
        {"value_without_quotes", "<r x=1></r>", xml_stream_parser::missing_quote},
        {"blanks_around_the_equals", "<r x = '1'></r>", xml_stream_parser::missing_equals},
        {"attribute_without_a_value", "<r x></r>", xml_stream_parser::missing_equals},
        {"reference_above_255", "<r><a>&#256;</a></r>", xml_stream_parser::fatal_error},
    }),
    [](const auto& row) { return std::string(row.param.name); });

struct expansion {
  std::string_view text;
  std::string_view value;
};

TEST(xml_stream_parser, entities_and_references_are_expanded_in_texts_and_values) {
  using namespace std::string_view_literals;
  for (const auto& [text, value] : std::vector<expansion>{{"&lt;"sv, "<"sv},
                                                          {"&gt;"sv, ">"sv},
                                                          {"&amp;"sv, "&"sv},
                                                          {"&apos;"sv, "'"sv},
                                                          {"&quot;"sv, "\""sv},
                                                          {"&nbsp;"sv, " "sv},
                                                          {"&#65;"sv, "A"sv},
                                                          {"&#x4a;&#x4A;"sv, "JJ"sv},
                                                          {"&#233;"sv, "\xE9"sv},
                                                          {"&#;"sv, "\0"sv},
                                                          {"&#0000000000000000065;"sv, "A"sv},
                                                          {"a&amp;lt;b"sv, "a&lt;b"sv},
                                                          {"\xC3\xA9 ]]"sv, "\xC3\xA9 ]]"sv}}) {
    feed both("<r><a x='" + std::string(text) + "'>" + std::string(text) + "</a></r>");
    both.parser.parse();
    both.parser.node_queue_pop();
    const auto node = both.parser.node_queue_pop();
    EXPECT_EQ(node.data(), value);
    EXPECT_EQ(node.attribs().front().second, value);
  }
}

TEST(xml_stream_parser, values_are_not_normalised) {
  feed value("<r><a x=' \n\t '/></r>");
  value.parser.parse();
  value.parser.node_queue_pop();
  EXPECT_EQ(value.parser.node_queue_pop().attribs().front().second, " \n\t ");
}

TEST(xml_stream_parser, last_run_of_text_in_an_element_replaces_the_others) {
  feed text("<r><a>one<b>two</b>three</a></r>");
  EXPECT_EQ(text.nodes()[1], "a #2<1 status 0 line 1 [three]");
}

TEST(xml_stream_parser, text_loses_leading_white_space_and_keeps_trailing) {
  feed text("<r><a> \n one \n </a></r>");
  text.parser.parse();
  text.parser.node_queue_pop();
  EXPECT_EQ(text.parser.node_queue_pop().data(), "one \n ");
}

TEST(xml_stream_parser, character_data_in_a_record_is_text_with_its_mark) {
  feed text("<r><a><![CDATA[x]]></a></r>");
  EXPECT_EQ(text.nodes()[1], "a #2<1 status 0 line 1 [![CDATA[x]]>]");
}

TEST(xml_stream_parser, words_after_the_name_of_an_end_tag_are_text_of_the_enclosing_element) {
  feed text("<r><a><b></b x></a></r>");
  EXPECT_EQ(text.nodes()[1], "a #2<1 status 0 line 1 [x>]");
}

TEST(xml_stream_parser, open_level_with_the_name_of_the_root_ends_the_document) {
  feed nested("<r><r></r></r>", 2);
  EXPECT_EQ(nested.nodes().back(), "r #2<0 status 3 line 1");
  EXPECT_EQ(nested.parser.error(), xml_stream_parser::end_of_document);
}

TEST(xml_stream_parser, second_open_level_closed_by_a_slash_fails_the_end_around_it) {
  feed closed("<r><s/><a/></r>", 2);
  closed.nodes();
  EXPECT_EQ(closed.parser.error(), xml_stream_parser::mismatched_tag);
}

TEST(xml_stream_parser, root_closed_by_a_slash_ends_with_an_end_tag_of_its_own) {
  feed closed("<r/></r>");
  EXPECT_EQ(closed.nodes(), (transcript{"r #1<0 status 0 line 1", "r #1<0 status 3 line 1"}));
  EXPECT_EQ(closed.parser.error(), xml_stream_parser::end_of_document);
}

TEST(xml_stream_parser, errors_have_the_numbers_that_programs_store) {
  const std::vector<int> numbers{xml_stream_parser::no_error,
                                 xml_stream_parser::incomplete,
                                 xml_stream_parser::not_synchronized,
                                 xml_stream_parser::end_of_document,
                                 xml_stream_parser::mismatched_tag,
                                 xml_stream_parser::duplicate_attribute,
                                 xml_stream_parser::unexpected_character,
                                 xml_stream_parser::missing_quote,
                                 xml_stream_parser::missing_equals,
                                 xml_stream_parser::fatal_error,
                                 xml_stream_parser::cannot_open_file,
                                 xml_stream_parser::bad_header};
  EXPECT_EQ(numbers, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 9, 10, 11, 12}));
}

// Lines.

TEST(xml_stream_parser, lines_count_between_tokens_within_tags_and_in_comments) {
  feed lines("\n<r\nx=\n'1'\n>\n<!--\n\n--><a\n/></r\n>");
  lines.parser.parse();
  EXPECT_EQ(lines.parser.node_queue_pop().line(), 2u);
  EXPECT_EQ(lines.parser.node_queue_pop().line(), 8u);
  EXPECT_EQ(lines.parser.node_queue_pop().line(), 9u);
  EXPECT_EQ(lines.parser.line(), 10u);
}

TEST(xml_stream_parser, lines_in_texts_and_values_and_the_header_do_not_count) {
  xml_stream_file file("<?xml\nversion='1.0'\nencoding='UTF-8'\n?><r x='\n\n'><a>text\n\n</a></r>");
  xml_stream_parser parser(file.path(), 1);
  parser.parse();
  EXPECT_EQ(parser.line(), 1u);
}

TEST(xml_stream_parser, lines_before_the_header_count) {
  xml_stream_file file("\n\n    <?xml version='1.0' encoding='UTF-8'?>\n<r></r>\n");
  xml_stream_parser parser(file.path(), 1);
  parser.parse();
  EXPECT_EQ(parser.node_queue_front().line(), 4u);
}

TEST(xml_stream_parser, fatal_error_keeps_the_exception_that_caused_it) {
  feed broken("<r><a>&#999;</a></r>");
  EXPECT_EQ(broken.parser.cause(), nullptr);
  EXPECT_EQ(broken.parser.parse(), xml_stream_parser::fatal_error);
  ASSERT_NE(broken.parser.cause(), nullptr);
  EXPECT_THROW(std::rethrow_exception(broken.parser.cause()), ORVA_NAMESPACE::exceptions::overflow_error);
}

// The header.

TEST(xml_stream_parser, file_of_less_than_50_bytes_is_never_parsed) {
  const std::string document = "<?xml?><r><a></a><a></a><a></a><a></a></r>";
  for (std::size_t size = document.size(); size < 60; ++size) {
    xml_stream_file file(document + std::string(size - document.size(), ' '));
    xml_stream_parser parser(file.path(), 1);
    const auto expected = size < 50 ? xml_stream_parser::incomplete : xml_stream_parser::end_of_document;
    EXPECT_EQ(parser.parse(), expected) << size;
    EXPECT_EQ(parser.parse(), expected) << size;
    EXPECT_EQ(parser.node_queue_empty(), size < 50) << size;
  }
}

TEST(xml_stream_parser, empty_file_gives_no_error_and_no_nodes) {
  xml_stream_file file;
  xml_stream_parser parser(file.path(), 1);
  EXPECT_EQ(parser.parse(), xml_stream_parser::no_error);
  EXPECT_TRUE(parser.node_queue_empty());
}

struct beginning {
  std::string_view text;
  error_type error;
};

TEST(xml_stream_parser, header_is_looked_for_at_the_start) {
  for (const auto& [text, error] : std::vector<beginning>{
           {"<?xml?>", xml_stream_parser::end_of_document},
           {"<?xml>", xml_stream_parser::end_of_document},
           {"<?xmlanything goes?>", xml_stream_parser::end_of_document},
           {"<?xml version='1.0'>", xml_stream_parser::end_of_document},
           {"\xEF\xBB\xBF<?xml?>", xml_stream_parser::end_of_document},
           {"abc<?xml?>", xml_stream_parser::end_of_document},
           {"\xEF\xBB\xBF\n<?xml?>", xml_stream_parser::bad_header},
           {" \r\n\t <?xml?>", xml_stream_parser::end_of_document},
           {"ab<?xml?>", xml_stream_parser::bad_header},
           {"", xml_stream_parser::bad_header},
           {"<?XML?>", xml_stream_parser::bad_header},
           {"<!-- --><?xml?>", xml_stream_parser::bad_header},
           // The header ends with the first question mark and the byte after it.
           {"<?xml a='?'?>", xml_stream_parser::unexpected_character},
       }) {
    xml_stream_file file(std::string(text) + "<r>" + std::string(50, ' ') + "</r>");
    xml_stream_parser parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), error) << text;
    EXPECT_EQ(parser.parse(), error) << text;
  }
}

TEST(xml_stream_parser, header_without_an_end_is_incomplete) {
  for (const char* const text : {"<?xml ", "<?xml version='1.0' ?"}) {
    const std::string begin(text);
    xml_stream_file file(begin.ends_with('?') ? std::string(50, ' ') + begin : begin + std::string(50, ' '));
    xml_stream_parser parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), xml_stream_parser::incomplete);
    EXPECT_EQ(parser.parse(), xml_stream_parser::incomplete);
  }
}

TEST(xml_stream_parser, file_of_blanks_is_a_bad_header) {
  xml_stream_file file(std::string(100, ' '));
  xml_stream_parser parser(file.path(), 1);
  EXPECT_EQ(parser.parse(), xml_stream_parser::bad_header);
}

TEST(xml_stream_parser, offset_after_a_bad_header_is_that_of_the_start) {
  for (const char* const text : {"", "  \n ", "\xEF\xBB\xBF<?XML?>", " <r>", "ab<?xml?>"}) {
    xml_stream_file file(text + std::string(60, ' '));
    xml_stream_parser parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), xml_stream_parser::bad_header) << text;
    EXPECT_EQ(parser.parse_offset(), 0) << text;
  }
}

}  // namespace
