// `recover`: parsing after an error.
#include <gtest/gtest.h>

#include <list>
#include <string>
#include <string_view>

#include "orva/parser/xml_stream_parser.hpp"
#include "tests/support/xml_stream_feed.hpp"
#include "tests/support/xml_stream_transcript.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_stream_parser;
using orva_test::transcript;
using feed = orva_test::xml_stream_feed;

constexpr std::string_view damaged = "<r><a n='1'/><a n='2'></b></a>\n<x/><a n='3'/><b n='4'/></r>";

TEST(xml_stream_parser_recover, continues_at_the_next_start_tag_of_the_list) {
  feed broken(damaged);
  EXPECT_EQ(broken.parser.parse(), xml_stream_parser::mismatched_tag);
  EXPECT_EQ(broken.parser.node_queue_size(), 2u);
  EXPECT_EQ(broken.parser.recover({"a", "b"}), xml_stream_parser::no_error);
  EXPECT_TRUE(broken.parser.node_queue_empty()) << "the nodes before the error are gone";
  EXPECT_EQ(broken.nodes(), (transcript{"a #4<0 status 0 line 1 n=\"3\"", "b #5<0 status 0 line 1 n=\"4\"",
                                        "r #1<0 status 3 line 1"}));
}

TEST(xml_stream_parser_recover, takes_lists_of_strings_of_either_class) {
  feed with_strings(damaged);
  with_strings.parser.parse();
  EXPECT_EQ(with_strings.parser.recover(std::list<std::string>{"x", "b"}), xml_stream_parser::no_error);
  EXPECT_EQ(with_strings.nodes().front(), "x #4<0 status 0 line 1");
  feed with_ustrings(damaged);
  with_ustrings.parser.parse();
  EXPECT_EQ(with_ustrings.parser.recover(std::list<ORVA_NAMESPACE::strings::ustring8>{"b"}),
            xml_stream_parser::no_error);
  EXPECT_EQ(with_ustrings.nodes().front(), "b #4<0 status 0 line 1 n=\"4\"");
}

TEST(xml_stream_parser_recover, that_finds_nothing_lets_parse_refuse_until_one_succeeds) {
  feed broken(damaged);
  broken.parser.parse();
  EXPECT_EQ(broken.parser.recover({"nothing"}), xml_stream_parser::not_synchronized);
  EXPECT_EQ(broken.parser.parse(), xml_stream_parser::not_synchronized);
  broken.file.append("<nothing></nothing></r>");
  EXPECT_EQ(broken.parser.parse(), xml_stream_parser::not_synchronized);
  EXPECT_EQ(broken.parser.recover({"nothing"}), xml_stream_parser::no_error);
  EXPECT_EQ(broken.parser.parse(), xml_stream_parser::end_of_document);
}

TEST(xml_stream_parser_recover, without_names_changes_nothing_but_the_error) {
  feed broken(damaged);
  broken.parser.parse();
  EXPECT_EQ(broken.parser.recover({}), xml_stream_parser::not_synchronized);
  EXPECT_EQ(broken.parser.node_queue_size(), 2u);
  EXPECT_EQ(broken.parser.parse(), xml_stream_parser::mismatched_tag);
}

TEST(xml_stream_parser_recover, before_a_root_is_known_is_fatal) {
  feed fresh("<r></r>");
  EXPECT_EQ(fresh.parser.recover({"r"}), xml_stream_parser::fatal_error);
  EXPECT_EQ(fresh.parser.parse(), xml_stream_parser::fatal_error);
}

TEST(xml_stream_parser_recover, does_not_bring_a_fatal_error_back) {
  feed fatal("<r><a>&#999;</a><a/></r>");
  EXPECT_EQ(fatal.parser.parse(), xml_stream_parser::fatal_error);
  EXPECT_EQ(fatal.parser.recover({"a"}), xml_stream_parser::fatal_error);
}

TEST(xml_stream_parser_recover, malformed_end_reports_not_synchronized) {
  for (const char* const end : {"<", "<a", "< ", "<\n a", "<<", "<&", "</a", "<!", "<a<"}) {
    feed broken("<r><b></wrong>" + std::string(end));
    EXPECT_EQ(broken.parser.parse(), xml_stream_parser::mismatched_tag);
    EXPECT_EQ(broken.parser.recover({"a"}),
              std::string(end) == "<a<" ? xml_stream_parser::no_error : xml_stream_parser::not_synchronized)
        << end;
  }
}

TEST(xml_stream_parser_recover, passes_over_end_tags_comments_and_longer_names) {
  feed broken("<r><b></wrong></a><!--a--><ab/><<a_/>< \n a n='1'/></r>");
  broken.parser.parse();
  EXPECT_EQ(broken.parser.recover({"a"}), xml_stream_parser::no_error);
  EXPECT_EQ(broken.nodes().front(), "a #3<0 status 0 line 2 n=\"1\"");
}

TEST(xml_stream_parser_recover, finds_the_start_tag_that_an_unfinished_tag_ran_into) {
  for (const char* const unfinished : {"<b x='1' ", "<b x='1", "<b>text</b>text", "<b x=1", "<"}) {
    feed broken("<r>" + std::string(unfinished) + "<a/></r>");
    EXPECT_GT(broken.parser.parse(), xml_stream_parser::end_of_document) << unfinished;
    EXPECT_EQ(broken.parser.recover({"a"}), xml_stream_parser::no_error) << unfinished;
    EXPECT_EQ(broken.nodes().front().substr(0, 2), "a ") << unfinished;
    EXPECT_EQ(broken.parser.error(), xml_stream_parser::end_of_document) << unfinished;
  }
}

TEST(xml_stream_parser_recover, starts_after_the_position_of_the_error) {
  feed broken("<r><!-- <a n='1'/> -- <a n='2'/> --><a n='3'/></r>");
  EXPECT_EQ(broken.parser.parse(), xml_stream_parser::unexpected_character);
  broken.parser.recover({"a"});
  EXPECT_EQ(broken.nodes().front(), "a #2<0 status 0 line 1 n=\"2\"");
}

TEST(xml_stream_parser_recover, does_not_count_the_lines_that_it_passes_over) {
  feed broken("<r>\n<b></wrong>\n\n\n<a/>\n<a/></r>");
  broken.parser.parse();
  broken.parser.recover({"a"});
  EXPECT_EQ(broken.parser.line(), 2u);
  EXPECT_EQ(broken.nodes(),
            (transcript{"a #3<0 status 0 line 2", "a #4<0 status 0 line 3", "r #1<0 status 3 line 3"}));
}

TEST(xml_stream_parser_recover, keeps_the_open_levels) {
  feed broken("<r><s><a></wrong></a><a/></s></r>", 2);
  broken.parser.parse();
  broken.parser.recover({"a"});
  EXPECT_EQ(broken.nodes(),
            (transcript{"a #4<0 status 0 line 1", "s #2<0 status 0 line 1", "r #1<0 status 3 line 1"}));
}

TEST(xml_stream_parser_recover, after_the_end_of_the_document_finds_a_start_tag_that_follows) {
  feed ended("<r><a/></r> <b/><a/>");
  EXPECT_EQ(ended.parser.parse(), xml_stream_parser::end_of_document);
  const auto end_of_root = ended.parser.parse_offset();
  EXPECT_EQ(ended.parser.recover({"a"}), xml_stream_parser::no_error);
  EXPECT_EQ(ended.parser.error(), xml_stream_parser::no_error);
  EXPECT_EQ(ended.parser.parse_offset(), end_of_root + 5);
  EXPECT_TRUE(ended.parser.node_queue_empty());
  EXPECT_EQ(ended.parser.parse(), xml_stream_parser::no_error) << "the document is over all the same";
  EXPECT_TRUE(ended.parser.node_queue_empty());
}

TEST(xml_stream_parser_recover, after_the_end_of_the_document_stays_there_if_nothing_follows) {
  for (const char* const rest : {"", "<b/>", "<", "</a>", "text"}) {
    feed ended("<r></r>" + std::string(rest));
    EXPECT_EQ(ended.parser.parse(), xml_stream_parser::end_of_document);
    EXPECT_EQ(ended.parser.recover({"a"}), xml_stream_parser::end_of_document) << rest;
    EXPECT_EQ(ended.parser.recover({"r"}), xml_stream_parser::end_of_document) << rest;
  }
}

TEST(xml_stream_parser_recover, in_the_end_tag_of_the_root_finds_a_start_tag_that_follows) {
  feed damaged_end("<r></r x<a/>");
  EXPECT_EQ(damaged_end.parser.parse(), xml_stream_parser::unexpected_character);
  EXPECT_EQ(damaged_end.parser.recover({"b"}), xml_stream_parser::not_synchronized);
  feed followed("<r></r x<a/>");
  EXPECT_EQ(followed.parser.parse(), xml_stream_parser::unexpected_character);
  EXPECT_EQ(followed.parser.recover({"a"}), xml_stream_parser::no_error);
}

}  // namespace
