// Malformed text and losses of conversions as findings.
#include "orva/diagnostics/text_findings.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <set>
#include <sstream>
#include <string>

#include "orva/diagnostics/place.hpp"
#include "orva/strings/code_page_names.hpp"
#include "orva/strings/page_decoder.hpp"
#include "orva/strings/page_encoder.hpp"
#include "orva/strings/standard_transforms.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/wide_text.hpp"

namespace {

using orva::diagnostics::describe;
using orva::diagnostics::finding;
using orva::diagnostics::line_index;
using orva::diagnostics::place;
using orva::diagnostics::severity;
using orva::diagnostics::unknown_code_page;
using namespace orva::strings;
using orva_test::units16;
using orva_test::units32;

std::string in_words(const finding& found) { return (std::ostringstream() << found).str(); }

/// The first malformed part of a text.
std::string malformed(const text_view& text) {
  const auto part = first_malformed(text);
  return part ? in_words(describe(*part, text, "a.txt")) : "well-formed";
}

/// Losses count 64 bits, as a file may be larger than memory; an offset in a text does not.
std::size_t offset(std::uint64_t place) { return static_cast<std::size_t>(place); }

TEST(text_findings, documentation_example) {
  const std::string text = "tea\nmilk\ncoffee\x80";
  EXPECT_EQ(in_words(describe(*first_malformed(text), text, "menu.txt")),
            "menu.txt:3:7: error: A byte continues no character: 0x80. [text.stray_continuation]");

  const std::string menu = "a \xD0\x96";
  const auto encoded = encode_checked(code_page::cp_1252, menu);
  const auto& loss = encoded.losses.first.front();
  EXPECT_EQ(in_words(describe(loss, line_index(menu).place_of(offset(loss.place)), "menu.txt")),
            "menu.txt:1:3: error: The code page lacks U+0416, which is lost; ? is written. "
            "[code_page.missing]");
}

TEST(text_findings, each_malformation_has_its_sentence) {
  EXPECT_EQ(malformed("a\n\xC3\xA4\xBF"),
            "a.txt:2:2: error: A byte continues no character: 0xBF. [text.stray_continuation]");
  EXPECT_EQ(malformed("\xFF"), "a.txt:1:1: error: A byte does not occur in UTF-8: 0xFF. [text.invalid_byte]");
  EXPECT_EQ(malformed("\xC0\x80"),
            "a.txt:1:1: error: A character that begins here has more bytes than it needs: 0xC0. "
            "[text.overlong]");
  EXPECT_EQ(malformed("\xED\xA0\x80"),
            "a.txt:1:1: error: A surrogate is not in a pair of UTF-16: 0xED. [text.surrogate]");
  EXPECT_EQ(malformed("\xF4\x90\x80\x80"),
            "a.txt:1:1: error: A value above U+10FFFF begins here: 0xF4. [text.too_large]");
  EXPECT_EQ(malformed("\xE2\x82!"),
            "a.txt:1:1: error: A character lacks its last bytes: 0xE2 0x82. [text.cut_short]");
  EXPECT_EQ(malformed("\n\n\xF0\x9F\x98"),
            "a.txt:3:1: error: The text ends within a character: 0xF0 0x9F 0x98. [text.incomplete]");
}

TEST(text_findings, wide_text_has_lines_and_columns_too) {
  EXPECT_EQ(malformed(units16({'a', '\n', 0xD83D, 0xDE00, 0x20AC, 0xDC00})),
            "a.txt:2:3: error: A surrogate is not in a pair of UTF-16: 0xDC00. [text.surrogate]");
  EXPECT_EQ(malformed(units16({0xFEFF, 'a', 0xD83D})),
            "a.txt:1:2: error: The text ends within a character: 0xD83D. [text.incomplete]");
  EXPECT_EQ(malformed(units32({'\n', 0x1F600, 0x110000})),
            "a.txt:2:2: error: A value above U+10FFFF begins here: 0x00110000. [text.too_large]");
  EXPECT_EQ(malformed(units32({0xFFFFFFFF})),
            "a.txt:1:1: error: A value above U+10FFFF begins here: 0xFFFFFFFF. [text.too_large]");
}

TEST(text_findings, each_malformation_has_a_code_of_its_own) {
  std::set<std::string> codes;
  const auto last = static_cast<int>(malformation::incomplete);
  for (int kind = 0; kind <= last; ++kind) {
    const malformed_part part{1, 1, static_cast<malformation>(kind)};
    const finding found = describe(part, "\n\x80", "a");
    EXPECT_EQ(found.level, severity::error);
    EXPECT_EQ(found.at, (place{2, 1}));
    EXPECT_EQ(found.file, "a");
    EXPECT_TRUE(found.code.starts_with("text."));
    codes.insert(found.code);
  }
  EXPECT_EQ(codes.size(), static_cast<std::size_t>(last) + 1);
}

TEST(text_findings, a_part_outside_the_text_is_at_its_end) {
  const malformed_part part{7, 3, malformation::incomplete};
  EXPECT_EQ(describe(part, "ab").at, (place{1, 3}));
  EXPECT_EQ(describe(part, u"ab").at, (place{1, 3}));
  EXPECT_EQ(sentence(describe(part, "ab")), "The text ends within a character: .");
}

TEST(text_findings, the_place_in_wide_text_is_that_of_the_same_text_in_utf8) {
  orva_test::random_engine random;
  for (int round = 0; round < 2000; ++round) {
    ustring32 text;
    for (int i = 0; i < 12; ++i) text.push_back(static_cast<code_unit32>("\na\xE4\xDF"[random() % 4] & 0xFF));
    text.insert(random() % text.size(), units32({0xDC00}));
    const auto wide = first_malformed(text);
    ASSERT_TRUE(wide);
    const auto before = to_utf8(text.substr(0, wide->offset)).text;
    EXPECT_EQ(describe(*wide, text).at, orva::diagnostics::place_of(before, before.size()));
    const auto text16 = to_utf16(text).text;
    EXPECT_EQ(describe({wide->offset, 1, wide->kind}, text16).at, describe(*wide, text).at);
  }
}

TEST(text_findings, each_loss_of_an_encoder_has_its_sentence) {
  const std::string text = "\xC4\x80\n\xD0\x96\x80\xE2\x82";
  const auto encoded = encode_checked(code_page::cp_1252, text);
  ASSERT_EQ(encoded.losses.count, 4u);
  const line_index lines(text);
  std::string words;
  for (const auto& loss : encoded.losses.first)
    words += in_words(describe(loss, lines.place_of(offset(loss.place)), "a.txt")) + '\n';
  EXPECT_EQ(words,
            "a.txt:1:1: warning: The code page lacks U+0100; A, which resembles it, is written. "
            "[code_page.best_fit]\n"
            "a.txt:2:1: error: The code page lacks U+0416, which is lost; ? is written. [code_page.missing]\n"
            "a.txt:2:2: error: The text is malformed at offset 5; ? stands for this part. "
            "[code_page.malformed]\n"
            "a.txt:2:3: error: The text ends within the character at offset 6; ? stands for it. "
            "[code_page.cut]\n");
}

TEST(text_findings, each_loss_of_a_decoder_has_its_sentence) {
  const auto undefined = decode_checked(code_page::cp_1252, "a\x81");
  ASSERT_EQ(undefined.losses.count, 1u);
  EXPECT_EQ(in_words(describe(undefined.losses.first[0])),
            "error: The bytes 0x81 at offset 1 are no character of the code page; they are read as U+0081. "
            "[code_page.undefined]");
  const auto utf8 = decode_checked(code_page::utf8,
                                   "\n\x80"
                                   "a\xE2\x82");
  ASSERT_EQ(utf8.losses.count, 2u);
  const line_index lines(utf8.text);
  const auto words = [&](const decoding_loss& loss) {
    return in_words(describe(loss, lines.place_of(offset(loss.result_place)), "a.txt"));
  };
  EXPECT_EQ(words(utf8.losses.first[0]),
            "a.txt:2:1: error: The text is malformed at offset 1; U+FFFD stands for this part. "
            "[code_page.malformed]");
  EXPECT_EQ(words(utf8.losses.first[1]),
            "a.txt:2:3: error: The text ends within the character at offset 3; U+FFFD stands for it. "
            "[code_page.cut]");
}

TEST(text_findings, what_is_written_is_shown_as_bytes_where_it_is_not_graphic_ascii) {
  const encoding_loss loss{loss_kind::malformed, 0, 1, 0xFFFD, 0, "\xEF\xBF\xBD"};
  EXPECT_EQ(sentence(describe(loss)),
            "The text is malformed at offset 0; 0xEF 0xBF 0xBD stands for this part.");
}

TEST(text_findings, each_kind_of_loss_has_a_code_of_its_own_and_a_best_fit_is_a_warning) {
  std::set<std::string> codes;
  const auto last = static_cast<int>(loss_kind::cut);
  for (int number = 0; number <= last; ++number) {
    const auto kind = static_cast<loss_kind>(number);
    const finding encoding = describe(encoding_loss{kind, 3, 1, U'x', 0, "?"}, {4, 5}, "a");
    const finding decoding = describe(decoding_loss{kind, 3, "x", 0, U'x'}, {4, 5}, "a");
    for (const finding& found : {encoding, decoding}) {
      EXPECT_EQ(found.level, kind == loss_kind::best_fit ? severity::warning : severity::error);
      EXPECT_EQ(found.at, (place{4, 5}));
      EXPECT_EQ(found.file, "a");
      EXPECT_EQ(found.arguments.at("offset").value().as_uint64(), 3u);
    }
    EXPECT_EQ(encoding.code, decoding.code);
    codes.insert(encoding.code);
  }
  EXPECT_EQ(codes.size(), static_cast<std::size_t>(last) + 1);
  EXPECT_EQ(describe(encoding_loss{loss_kind::cut, 3, 1, U'x', 0, "?"}).at, (place{0, 0}));
}

TEST(text_findings, a_code_page_that_is_not_valid_is_reported_without_a_place) {
  const auto encoded = encode_checked(code_page(), "a");
  EXPECT_EQ(in_words(describe(encoded.error, "a.txt")),
            "a.txt: error: The code page is not valid. [code_page.invalid]");
  const finding nothing = describe(conversion_error::none, "a.txt");
  EXPECT_EQ(nothing.level, severity::note);
  EXPECT_EQ(nothing.code, "");
}

TEST(text_findings, the_inputs_of_the_page_of_codes_give_their_code) {
  const auto decoded = [](code_page::encoding_type page, std::string_view bytes) {
    return std::string(describe(decode_checked(page, bytes).losses.first.at(0)).code);
  };
  const auto encoded = [](std::string_view text) {
    return std::string(describe(encode_checked(code_page::cp_1252, text).losses.first.at(0)).code);
  };
  EXPECT_EQ(encoded("\xC4\x80"), "code_page.best_fit");
  EXPECT_EQ(encoded("a\x80z"), "code_page.malformed");
  EXPECT_EQ(encoded("\xD0\x96"), "code_page.missing");
  EXPECT_EQ(decoded(code_page::cp_932, "\x82"), "code_page.cut");
  EXPECT_EQ(decoded(code_page::cp_1252, "\x81"), "code_page.undefined");
}

TEST(text_findings, an_unknown_label_is_named) {
  ASSERT_FALSE(find_code_page("klingon"));
  EXPECT_EQ(in_words(unknown_code_page("klingon", {3, 12}, "page.html")),
            "page.html:3:12: error: No code page has the label klingon. [code_page.unknown]");
}

}  // namespace
