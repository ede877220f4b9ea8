// What a parser keeps between two parses, and what its copies share with it.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "orva/parser/xml_parser.hpp"
#include "tests/support/reference_xml.hpp"
#include "tests/support/single_byte_locale.hpp"
#include "tests/support/xml_events.hpp"

namespace {

using ORVA_NAMESPACE::functor::member_function_t;
using ORVA_NAMESPACE::parser::xml_parser;
using ORVA_NAMESPACE::strings::ustring8;
using orva_test::parse_with;
using orva_test::xml_outcome;
using orva_test::xml_recorder;
using error = xml_parser::parse_error;

TEST(xml_parser_state, parser_without_delegates_skips_the_events) {
  const xml_parser parser;
  const auto result = parser.parse("<?xml?><a b='1'> <!--c-->d<![CDATA[e]]></a>");
  EXPECT_EQ(result.type, error::no_error);
  EXPECT_EQ(result.line, 0u);
  EXPECT_EQ(result.data, "");
}

TEST(xml_parser_state, parser_parses_many_times) {
  xml_parser parser;
  const xml_outcome expected{{"start a", "attribute b=1", "end a"}, error::no_error, 0, "", false};
  for (int i = 0; i < 3; ++i) EXPECT_EQ(parse_with(parser, "<?xml?><a b='1'/>"), expected);
}

TEST(xml_parser_state, parse_after_a_failed_one_starts_with_its_open_elements) {
  xml_parser parser;
  EXPECT_EQ(parse_with(parser, "<?xml?><a><b>&x;").type, error::unknown_entity);
  EXPECT_EQ(parse_with(parser, "<?xml?><a></a>"),
            (xml_outcome{{"start a", "end a"}, error::unexpected_eof, 0, "", false}));
  EXPECT_EQ(parse_with(parser, "<?xml?></b></a>"),
            (xml_outcome{{"end b", "end a"}, error::no_error, 0, "", false}));
  EXPECT_EQ(parse_with(parser, "<?xml?><a></a>").type, error::no_error);
}

TEST(xml_parser_state, stale_open_element_makes_end_tags_mismatch) {
  xml_parser parser;
  EXPECT_EQ(parse_with(parser, "<?xml?><a>").type, error::unexpected_eof);
  EXPECT_EQ(parse_with(parser, "<?xml?></b>"),
            (xml_outcome{{}, error::mismatched_end_element, 0, "b", false}));
}

TEST(xml_parser_state, stale_open_element_allows_a_second_root) {
  xml_parser parser;
  EXPECT_EQ(parse_with(parser, "<?xml?><a>").type, error::unexpected_eof);
  EXPECT_EQ(parse_with(parser, "<?xml?><b/><c/></a>").type, error::no_error);
}

TEST(xml_parser_state, stale_attributes_are_seen_by_an_end_tag) {
  xml_parser parser;
  EXPECT_EQ(parse_with(parser, "<?xml?><a><b c='1'").type, error::unexpected_eof);
  EXPECT_EQ(parse_with(parser, "<?xml?></b c='2'>"),
            (xml_outcome{{"end b"}, error::attribute_redefined, 0, "c", false}));
}

TEST(xml_parser_state, end_tag_cut_off_has_closed_its_element) {
  xml_parser parser;
  EXPECT_EQ(parse_with(parser, "<?xml?><a></a").type, error::unexpected_eof);
  EXPECT_EQ(parse_with(parser, "<?xml?><b/>").type, error::no_error);
}

TEST(xml_parser_state, stale_names_own_their_text) {
  xml_parser parser;
  {
    const std::string text = "<?xml?><a_name_that_no_short_string_holds and_an_attribute_of_the_same_kind=''";
    EXPECT_EQ(parser.parse(text.begin(), text.end()).type, error::unexpected_eof);
  }
  EXPECT_EQ(parse_with(parser,
                       "<?xml?></a_name_that_no_short_string_holds "
                       "and_an_attribute_of_the_same_kind=''>"),
            (xml_outcome{{"end a_name_that_no_short_string_holds"},
                         error::attribute_redefined,
                         0,
                         "and_an_attribute_of_the_same_kind",
                         false}));
}

TEST(xml_parser_state, line_starts_anew_with_each_parse) {
  xml_parser parser;
  EXPECT_EQ(parse_with(parser, "<?xml?>\n\n\n>").line, 3u);
  EXPECT_EQ(parse_with(parser, "<?xml?>\n>").line, 1u);
}

TEST(xml_parser_state, copy_and_assignment_clone_the_delegates_and_copy_the_names) {
  xml_recorder recorder;
  xml_parser parser;
  recorder.connect(parser);
  (void)parser.parse("<?xml?><a><b c='1'");

  const xml_parser copy(parser);
  xml_parser assigned;
  assigned = parser;
  parser = xml_parser();
  for (const xml_parser* each : {&copy, static_cast<const xml_parser*>(&assigned)}) {
    recorder.events.clear();
    EXPECT_EQ(each->parse("<?xml?></b c='2'>").type, error::attribute_redefined);
    EXPECT_EQ(recorder.events, std::vector<std::string>{"end b"});
  }
}

TEST(xml_parser_state, copies_parse_apart) {
  const xml_parser parser;
  (void)parser.parse("<?xml?><a>");
  const xml_parser copy(parser);
  EXPECT_EQ(copy.parse("<?xml?></a>").type, error::no_error);
  EXPECT_EQ(parser.parse("<?xml?></a>").type, error::no_error);
}

TEST(xml_parser_state, assignment_of_empty_delegates_empties_them) {
  xml_recorder recorder;
  xml_parser parser;
  recorder.connect(parser);
  parser = xml_parser();
  EXPECT_FALSE(parser.on_element_start);
  EXPECT_EQ(parser.parse("<?xml?><a/>").type, error::no_error);
  EXPECT_TRUE(recorder.events.empty());
}

TEST(xml_parser_state, assignment_to_itself_changes_nothing) {
  xml_recorder recorder;
  xml_parser parser;
  recorder.connect(parser);
  const auto& self = parser;
  parser = self;
  EXPECT_EQ(parser.parse("<?xml?><a/>").type, error::no_error);
  EXPECT_EQ(recorder.events.size(), 2u);
}

struct thrower {
  void fail(const ustring8& text) { throw std::runtime_error(text); }
};

TEST(xml_parser_state, exception_of_a_delegate_passes_through_and_ends_the_walk) {
  thrower target;
  xml_recorder recorder;
  xml_parser parser;
  recorder.connect(parser);
  parser.on_comment = member_function_t<thrower, void(const ustring8&)>(&target, &thrower::fail);
  EXPECT_THROW((void)parser.parse("<?xml?><a><!--c--><b/></a>"), std::runtime_error);
  EXPECT_EQ(recorder.events, std::vector<std::string>{"start a"});
  EXPECT_EQ(parse_with(parser, "<?xml?></a>").type, error::no_error);
}

/// Parses with the parser that called it, which is not allowed; but no text may corrupt memory.
struct nested {
  const xml_parser* parser;
  int depth = 0;

  void parse(const ustring8&) {
    if (depth == 3) return;
    ++depth;
    (void)parser->parse("<?xml?></a><b c='1'><d e='2'/></b></a></a>");
    --depth;
  }
};

TEST(xml_parser_state, delegate_that_parses_with_its_own_parser_corrupts_nothing) {
  xml_parser parser;
  nested target{&parser};
  using handler = member_function_t<nested, void(const ustring8&)>;
  parser.on_element_start = handler(&target, &nested::parse);
  parser.on_element_end = handler(&target, &nested::parse);
  parser.on_character = handler(&target, &nested::parse);
  (void)parser.parse("<?xml?><a><b c='1' d='2'>text</b><e/></a>");
}

TEST(xml_parser_state, names_follow_the_current_locale) {
  xml_parser parser;
  const std::string text = "<?xml?><\xE4\xDF\xE9/>";
  EXPECT_EQ(parse_with(parser, text), (xml_outcome{{}, error::unexpected_character, 0, "\xE4", false}));

  const orva_test::single_byte_locale latin1("ISO-8859-1", "de_DE");
  if (!latin1.made()) GTEST_SKIP() << "localedef could not make a Latin-1 locale";
  EXPECT_EQ(parse_with(parser, text),
            (xml_outcome{{"start \xE4\xDF\xE9", "end \xE4\xDF\xE9"}, error::no_error, 0, "", false}));
  for (int byte = 0x80; byte <= 0xFF; ++byte) {
    const std::string name = "a" + std::string(1, static_cast<char>(byte));
    for (const std::string& each : {name, name.substr(1)}) {
      const std::string document = "<?xml?><" + each + "/>";
      EXPECT_EQ(parse_with(parser, document), orva_test::reference_xml().parse(document)) << byte;
      parser = xml_parser();
    }
  }
}

}  // namespace
