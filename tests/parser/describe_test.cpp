// The errors of both parsers as findings.
#include "orva/parser/describe.hpp"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "orva/parser/xml_token_stream.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/xml_stream_feed.hpp"

namespace {

using ORVA_NAMESPACE::diagnostics::finding;
using ORVA_NAMESPACE::diagnostics::place;
using ORVA_NAMESPACE::diagnostics::severity;
using ORVA_NAMESPACE::parser::describe;
using ORVA_NAMESPACE::parser::xml_parser;
using ORVA_NAMESPACE::parser::xml_stream_parser;
using ORVA_NAMESPACE::parser::xml_token_stream;
using orva_test::xml_stream_feed;
using orva_test::xml_stream_file;
using orva_test::xml_stream_header;

std::string in_words(const finding& found) { return (std::ostringstream() << found).str(); }

/// All that is said about a text.
std::string described(const std::string& text) {
  const xml_parser parser;
  try {
    return in_words(describe(parser.parse(text), text, "a.xml"));
  } catch (const ORVA_NAMESPACE::exceptions::overflow_error& thrown) {
    return in_words(describe(thrown, parser.offset(), text, "a.xml"));
  }
}

TEST(xml_describe, documentation_example) {
  EXPECT_EQ(described("<?xml?>\n<menu>\n  <entry>\n</menu>"),
            "a.xml:4:3: error: The end tag </menu> does not match <entry>, which is open. "
            "[xml.mismatched_end_element]");
}

TEST(xml_describe, each_error_of_xml_parser_has_its_sentence) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"<?xml?><a b='' b=''/>",
       "a.xml:1:16: error: The attribute b comes twice in one start tag. "
       "[xml.attribute_redefined]"},
      {"<a/>",
       "a.xml:1:1: error: The declaration <?xml ... ?> at the beginning is missing or malformed. "
       "[xml.bad_header]"},
      {"<?xml?>\n<a/>\n<b/>",
       "a.xml:3:1: error: Another element begins after the root element. [xml.data_after_root]"},
      {"<?xml?></a>", "a.xml:1:10: error: A tag ends an element, but none is open. [xml.end_without_start]"},
      {"<?xml?><a b/>", "a.xml:1:11: error: The attribute b has no = after its name. [xml.missing_equals]"},
      {"<?xml?><a b=1/>",
       "a.xml:1:13: error: The value of an attribute does not begin with a quote. [xml.missing_quote]"},
      {"<?xml?>\n", "a.xml:2:1: error: The document ends before its root element. [xml.no_root_element]"},
      {"<?xml?><a>\xC3\xA4 &#256;</a>",
       "a.xml:1:13: error: A character reference is above 255. [xml.reference_above_255]"},
      {"<?xml?><a><b/>",
       "a.xml:1:15: error: The document ends before the end tag </a>. [xml.unclosed_element]"},
      {"<?xml?><a b='1",
       "a.xml:1:11: error: The value of the attribute b has no closing quote. [xml.unclosed_value]"},
      {"<?xml?><a:b/>",
       "a.xml:1:10: error: The character : is not expected here. [xml.unexpected_character]"},
      {"<?xml?><a><!-- c",
       "a.xml:1:11: error: The document ends in the middle of a tag, a comment, a section or an entity. "
       "[xml.unexpected_eof]"},
      {"<?xml?><a/",
       "a.xml:1:11: error: The document ends in the middle of a tag, a comment, a section or an entity. "
       "[xml.unexpected_eof]"},
      {"<?xml?></a></a",
       "a.xml:1:10: error: A tag ends an element, but none is open. [xml.end_without_start]"},
      {"<?xml?><a>b & c</a>",
       "a.xml:1:13: error: An & begins no known entity; a plain & is written as &amp;. [xml.unknown_entity]"},
  };
  for (const auto& [text, expected] : rows) EXPECT_EQ(described(text), expected);
}

TEST(xml_describe, character_that_does_not_show_is_described_by_its_number) {
  const auto character = [](const std::string& text) {
    return describe(xml_parser().parse(text), text).arguments["character"].value().as_utf8();
  };
  EXPECT_EQ(character("<?xml?><\n"), "U+000A");
  EXPECT_EQ(character("<?xml?>< a>"), "U+0020");
  EXPECT_EQ(character("<?xml?><\xC2\xA0>"), "U+00A0");
  EXPECT_EQ(character("<?xml?><\xC3>"), "0xC3");
  EXPECT_EQ(character("<?xml?><\xC3\xA9>"), "\xC3\xA9");
}

TEST(xml_describe, text_without_error_gives_a_note_without_a_code) {
  const finding found = describe(xml_parser().parse("<?xml?><a/>"), "<?xml?><a/>");
  EXPECT_EQ(found.level, severity::note);
  EXPECT_EQ(found.code, "");
}

TEST(xml_describe, text_that_is_shorter_than_the_parsed_one_is_read_to_its_end) {
  const finding found = describe(xml_parser().parse("<?xml?><a></b>"), "<?xml");
  EXPECT_EQ(found.code, "xml.mismatched_end_element");
  EXPECT_EQ(found.at, (place{1, 6}));
}

/// What is said about a file of a header and a text; the first line is the header's.
std::string described_file(const std::string& text) {
  xml_stream_feed feed("\n" + text);
  feed.parser.parse();
  while (!feed.parser.node_queue_empty()) feed.parser.node_queue_pop();
  return in_words(describe(feed.parser, "a.xml"));
}

TEST(xml_describe, each_error_of_xml_stream_parser_has_its_sentence) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"<r><a></b></r>",
       "a.xml:2:9: error: The end tag </b> does not match <a>, which is open. "
       "[xml.mismatched_end_element]"},
      {"</r>", "a.xml:2:3: error: A tag ends an element, but none is open. [xml.end_without_start]"},
      {"<r>\n<a b='' b=''/></r>",
       "a.xml:3:9: error: The attribute b comes twice in one start tag. [xml.attribute_redefined]"},
      {"<r>text<a/></r>",
       "a.xml:2:4: error: The character t is not expected here. [xml.unexpected_character]"},
      {"<r><a>b & cd</a></r>",
       "a.xml:2:9: error: An & begins no known entity; a plain & is written as &amp;. [xml.unknown_entity]"},
      {"<r><a b=1/></r>",
       "a.xml:2:9: error: The value of an attribute does not begin with a quote. [xml.missing_quote]"},
      {"<r><a b ='1'/></r>",
       "a.xml:2:7: error: The attribute b has no = after its name. [xml.missing_equals]"},
      {"<r><a>\xC3\xA4 &#256; </a>",
       "a.xml:2:9: error: A character reference is above 255. [xml.reference_above_255]"},
      {"<r><a>text",
       "a.xml:2:7: error: What begins here does not end in the file, is too long, or is an end tag without a "
       "name. [xml.incomplete]"},
  };
  for (const auto& [text, expected] : rows) EXPECT_EQ(described_file(text), expected);
}

TEST(xml_describe, file_that_cannot_be_parsed_is_described) {
  const xml_stream_file file("<?xml?><r></r>");
  xml_stream_parser too_short(file.path(), 1);
  too_short.parse();
  EXPECT_EQ(in_words(describe(too_short, "a.xml")),
            "a.xml:1:1: error: The file has fewer than 50 bytes. [xml.file_too_short]");

  file.write("<html>" + std::string(60, ' '));
  xml_stream_parser no_header(file.path(), 1);
  no_header.parse();
  EXPECT_EQ(describe(no_header).code, "xml.bad_header");
  EXPECT_EQ(no_header.recover({"a"}), xml_stream_parser::fatal_error);
  EXPECT_EQ(describe(no_header).code, "xml.fatal_error");

  file.remove();
  const xml_stream_parser missing(file.path(), 1);
  EXPECT_EQ(in_words(describe(missing, "a.xml")),
            "a.xml: error: The file cannot be opened. [xml.cannot_open_file]");
}

TEST(xml_describe, recover_that_finds_nothing_is_described) {
  xml_stream_feed feed("<r><a></b><a/></r>");
  feed.parser.parse();
  feed.parser.recover({"c"});
  EXPECT_EQ(describe(feed.parser).code, "xml.not_synchronized");
}

// Places in files.

TEST(xml_describe, place_in_a_file_is_that_in_its_text_at_every_offset_in_any_order) {
  orva_test::random_engine random;
  const std::vector<std::string> pieces = {
      "a",    "\n",       "\r\n",         "\xC3\xA4", "\xE6\x97\xA5", "\xF0\x9D\x84\x9E",
      "\xFF", "\xE6\x97", "\xF0\x9D\x84", "word "};
  const xml_stream_file file;
  for (const char* const begin : {"", "\xEF\xBB\xBF"}) {
    for (int i = 0; i < 30; ++i) {
      std::string text = begin;
      for (auto left = random() % 30; left > 0; --left) text += pieces[random() % pieces.size()];
      file.write(text);
      const xml_stream_parser parser(file.path(), 1);
      for (std::size_t offset = 0; offset <= text.size() + 2; ++offset) {
        const auto expected = ORVA_NAMESPACE::diagnostics::place_of(text, offset);
        ASSERT_EQ(parser.place_of(static_cast<long long>(offset)), expected) << text << ' ' << offset;
        const auto other = static_cast<std::size_t>(random() % (text.size() + 1));
        ASSERT_EQ(parser.place_of(static_cast<long long>(other)),
                  ORVA_NAMESPACE::diagnostics::place_of(text, other))
            << text << ' ' << other;
      }
    }
  }
}

TEST(xml_describe, place_in_a_large_file_is_that_in_its_text) {
  orva_test::random_engine random;
  std::string text;
  while (text.size() < 300000) text += random() % 50 == 0 ? "\n" : random() % 2 == 0 ? "\xE6\x97\xA5" : "ab";
  const xml_stream_file file(text);
  const xml_stream_parser parser(file.path(), 1);
  for (std::size_t offset = 0; offset <= text.size(); offset += 1 + random() % 40000) {
    ASSERT_EQ(parser.place_of(static_cast<long long>(offset)),
              ORVA_NAMESPACE::diagnostics::place_of(text, offset));
  }
}

}  // namespace
