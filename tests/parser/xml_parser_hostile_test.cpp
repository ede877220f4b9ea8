// Malformed texts: every truncation and mutation of documents, compared with the plain reference parser; and
// sizes and depths that must cost no more than their length.
#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <string_view>

#include "orva/parser/xml_parser.hpp"
#include "orva/parser/xml_token_stream.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_xml.hpp"
#include "tests/support/xml_events.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_parser;
using ORVA_NAMESPACE::parser::xml_token_stream;
using orva_test::parse_with;
using orva_test::parse_xml;
using orva_test::reference_xml;
using error = xml_parser::parse_error;

constexpr std::string_view every_construct =
    "\xEF\xBB\xBF<?xml version=\"1.0\" encoding='UTF-8' ?>\r\n<!-- a - b -- c -->\n<root a=\"1\" "
    "b='&lt;&#65;&#x4a;'\n"
    "\tc = \"'&quot;\"d='\">'>\n  text  of two\n  lines &gt;&amp;&apos;&nbsp; end <e/><e1 a='' "
    "/><e_2\n></e_2 >"
    "<![CDATA[ <raw> ]] &lt; ]]>\n</root x='1'>\n<!----> tail ";

void expect_as_reference(const std::string& text) {
  xml_parser parser;
  reference_xml reference;
  ASSERT_EQ(parse_with(parser, text), reference.parse(text)) << "text: " << text;
  ASSERT_EQ(parser.offset(), reference.offset()) << "text: " << text;
}

void expect_open_element_as_reference(const std::string& text) {
  reference_xml reference;
  static_cast<void>(reference.parse(text));
  const auto result = xml_parser().parse(text);
  ASSERT_EQ(result.open_element, reference.open_element()) << "text: " << text;
  ASSERT_EQ(result.offset, reference.offset()) << "text: " << text;
}

/// A string's terminator hides a read of one byte past the end from a sanitizer, so each character that could
/// change the outcome is put there.
void expect_nothing_read_past(std::string text) {
  const auto expected = reference_xml().parse(text);
  const auto length = text.size();
  text += '\0';
  for (const char after : {'<', '>', '/', '?', '!', '-', '[', ']', ';', '#', 'x', '4', '=', '"', ' ', '\n'}) {
    text.back() = after;
    xml_parser parser;
    ASSERT_EQ(parse_with(parser, text, length), expected) << "text: " << text;
  }
}

TEST(xml_parser_hostile, sample_document_holds_every_construct) {
  const auto outcome = parse_xml(std::string(every_construct));
  EXPECT_EQ(outcome.type, error::no_error) << outcome;
  EXPECT_EQ(outcome.events.size(), 28u) << outcome;
}

TEST(xml_parser_hostile, every_truncation_is_as_the_reference_says) {
  for (std::size_t length = 0; length <= every_construct.size(); ++length) {
    expect_as_reference(std::string(every_construct.substr(0, length)));
    expect_open_element_as_reference(std::string(every_construct.substr(0, length)));
  }
}

TEST(xml_parser_hostile, nothing_is_read_past_the_end_of_any_truncation) {
  for (std::size_t length = 0; length <= every_construct.size(); ++length) {
    ASSERT_NO_FATAL_FAILURE(expect_nothing_read_past(std::string(every_construct.substr(0, length))));
  }
}

TEST(xml_parser_hostile, every_tail_of_a_document_is_as_the_reference_says) {
  for (std::size_t first = 0; first < every_construct.size(); ++first) {
    expect_as_reference("<?xml?>" + std::string(every_construct.substr(first)));
    expect_as_reference("<?xml?><a " + std::string(every_construct.substr(first)));
  }
}

TEST(xml_parser_hostile, every_byte_in_every_place_is_as_the_reference_says) {
  constexpr std::string_view document = "<?xml?> <a b='&lt;'>x &#x41;<!--c--><d/>  </a > ";
  for (std::size_t at = 0; at < document.size(); ++at) {
    for (int byte = 0; byte <= 0xFF; ++byte) {
      std::string text(document);
      text[at] = static_cast<char>(byte);
      expect_as_reference(text);
    }
  }
}

TEST(xml_parser_hostile, every_short_text_of_the_markup_characters_is_as_the_reference_says) {
  constexpr std::string_view units = "<>/='&;#! xa\n";
  std::array<std::size_t, 4> digits{};
  while (digits.back() < units.size()) {
    std::string tail;
    for (const auto digit : digits) tail += units[digit];
    expect_as_reference("<?xml?>" + tail);
    expect_as_reference("<?xml?><a " + tail);
    expect_as_reference("<?xml?><a>" + tail);
    for (auto& digit : digits) {
      if (++digit < units.size() || &digit == &digits.back()) break;
      digit = 0;
    }
  }
}

// The scanners skip text and values by blocks: a byte that ends a run must be found at every offset of a
// block.
TEST(xml_parser_hostile, every_byte_at_every_offset_of_a_long_run_is_as_the_reference_says) {
  for (std::size_t offset = 0; offset <= 24; ++offset) {
    for (int byte = 0; byte <= 0xFF; ++byte) {
      std::string run(offset + 12, 'x');
      run[offset] = static_cast<char>(byte);
      expect_as_reference("<?xml?>" + run);
      expect_as_reference("<?xml?><a b='" + run + "' c=\"" + run + "\">");
    }
  }
}

TEST(xml_parser_hostile, two_spaces_at_every_offset_end_a_long_run_as_the_reference_says) {
  for (std::size_t offset = 0; offset <= 24; ++offset) {
    for (const char first : {' ', '\t', '\r', '\n', '\v', '\0', '\x80'}) {
      for (const char second : {' ', '\t', '\r', '\n', '\v', '\0', '\xA0'}) {
        std::string run(offset + 12, 'x');
        run[offset] = first;
        run[offset + 1] = second;
        expect_as_reference("<?xml?>" + run);
        expect_as_reference("<?xml?>" + run.substr(0, offset + 2));
        expect_as_reference("<?xml?>" + run.substr(0, offset + 1));
      }
    }
  }
}

TEST(xml_parser_hostile, random_pieces_are_as_the_reference_says) {
  constexpr std::array<std::string_view, 40> pieces{"<a>",    "</a>",
                                                    "<b",     "</b",
                                                    "<c/>",   "/>",
                                                    ">",      "<",
                                                    "/",      "a",
                                                    " ",      "  ",
                                                    "\n",     "\t\n",
                                                    "b='1'",  "b=\"",
                                                    "c='",    "'",
                                                    "\"",     "=",
                                                    "&lt;",   "&#65;",
                                                    "&#x4a;", "&#;",
                                                    "&",      "&#256;",
                                                    "<!--",   "-->",
                                                    "--",     "<![CDATA[",
                                                    "]]>",    "]]",
                                                    "<!",     "<?",
                                                    "text",   "\xC3\xA9",
                                                    "x y",    "<a b='1' c='2'>",
                                                    ";",      "&nbsp;"};
  orva_test::random_engine random;
  std::uniform_int_distribution<std::size_t> piece(0, pieces.size() - 1);
  std::uniform_int_distribution<int> count(1, 30);
  for (int run = 0; run < 20000; ++run) {
    std::string text = "<?xml?>";
    for (int left = count(random); left > 0; --left) text += pieces[piece(random)];
    ASSERT_NO_FATAL_FAILURE(expect_as_reference(text));
  }
}

TEST(xml_parser_hostile, stale_names_are_as_the_reference_says) {
  constexpr std::array<std::string_view, 12> documents{
      "<?xml?><a>",         "<?xml?><a><b c='1' ",  "<?xml?></a>",       "<?xml?></b></a>",
      "<?xml?><a/>",        "<?xml?></a",           "<?xml?></b c='2'>", "<?xml?></a c='2' d",
      "<?xml?><a><b></b/>", "<?xml?><a b='1' b=''", "<?xml?></a/>",      "<?xml?><c>&#256;"};
  orva_test::random_engine random;
  std::uniform_int_distribution<std::size_t> document(0, documents.size() - 1);
  for (int run = 0; run < 500; ++run) {
    xml_parser parser;
    reference_xml reference;
    for (int parse = 0; parse < 10; ++parse) {
      const std::string text(documents[document(random)]);
      ASSERT_EQ(parse_with(parser, text), reference.parse(text)) << text;
    }
  }
}

std::string repeated(std::string_view piece, std::size_t count) {
  std::string result;
  result.reserve(piece.size() * count);
  while (count-- != 0) result += piece;
  return result;
}

constexpr std::size_t million = 1'000'000;

TEST(xml_parser_hostile, million_nested_elements_need_no_stack) {
  const xml_parser parser;
  const std::string opened = "<?xml?>" + repeated("<a>", million);
  EXPECT_EQ(xml_parser(parser).parse(opened).type, error::unexpected_eof);
  EXPECT_EQ(parser.parse(opened + repeated("</a>", million)).type, error::no_error);
}

TEST(xml_parser_hostile, million_levels_become_tokens_that_can_be_copied_and_destroyed) {
  xml_token_stream stream;
  const auto levels = million / 4;
  EXPECT_EQ(stream.parse("<?xml?>" + repeated("<a>", levels) + repeated("</a>", levels)).type,
            error::no_error);
  const xml_token_stream copy(stream);
  EXPECT_EQ(copy.size(), 3 * levels);
}

TEST(xml_parser_hostile, ten_thousand_attributes_in_one_tag_are_distinguished) {
  std::string text = "<?xml?><a";
  for (int i = 0; i < 50'000; ++i) text += " n" + std::to_string(i) + "=''";
  EXPECT_EQ(xml_parser().parse(text + "/>").type, error::no_error);

  for (const char* name : {"n0", "n15", "n16", "n17", "n49999"}) {
    const auto failure = xml_parser().parse(text + ' ' + name + "=''/>");
    EXPECT_EQ(failure.type, error::attribute_redefined);
    EXPECT_EQ(failure.data, name);
  }
}

TEST(xml_parser_hostile, attributes_of_a_large_tag_do_not_burden_the_next) {
  std::string text = "<?xml?><r><a";
  for (int i = 0; i < 40; ++i) text += " n" + std::to_string(i) + "=''";
  text += "/><b n0='' n20='' n39=''/></r>";
  EXPECT_EQ(xml_parser().parse(text).type, error::no_error);
}

TEST(xml_parser_hostile, name_of_megabytes_is_a_name) {
  const std::string name(4 * million, 'n');
  EXPECT_EQ(xml_parser().parse("<?xml?><" + name + ' ' + name + "=''></" + name + '>').type, error::no_error);
  EXPECT_EQ(xml_parser().parse("<?xml?><a></" + name).data, name);
}

TEST(xml_parser_hostile, long_runs_cost_no_more_than_their_length) {
  struct {
    std::string_view opener, unit, closer;
    error::error_type type;
  } const rows[] = {
      {"", "<", "", error::unexpected_character}, {"<a>", " ", "", error::unexpected_eof},
      {"<a>", "x ", "", error::unexpected_eof},   {"<a>", "x  ", "", error::unexpected_eof},
      {"<a>", "&lt;", "", error::unexpected_eof}, {"<a b='", "&#65;", "", error::missing_quote},
      {"<a>&#", "0", ";</a>", error::no_error},   {"<!--", "-", "", error::unexpected_eof},
      {"<!--", "--", ">", error::no_error},       {"<![CDATA[", "]]", "", error::unexpected_eof},
      {"<![CDATA[", "]", "]>", error::no_error},  {"", "<!---->", "", error::no_error},
      {"", "<![CDATA[]]>", "", error::no_error},  {"<a>", "<b/>", "</a>", error::no_error},
  };
  for (const auto& [opener, unit, closer, type] : rows) {
    const std::string text =
        "<?xml?>" + std::string(opener) + repeated(unit, million / 4) + std::string(closer);
    EXPECT_EQ(xml_parser().parse(text).type, type) << opener << unit << closer;
  }
  EXPECT_EQ(xml_parser().parse("<?xml" + repeated("?", million)).type, error::no_root_element);
}

}  // namespace
