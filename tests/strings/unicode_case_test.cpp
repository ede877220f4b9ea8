#include "orva/strings/unicode_case.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "orva/strings/unicode.hpp"
#include "tests/support/wide_text.hpp"

namespace {

using namespace orva::strings;
using orva_test::units16;
using orva_test::units32;

TEST(unicode_case, documentation_example) {
  EXPECT_EQ(unicode_upper("Straße"), "STRASSE");
  EXPECT_EQ(unicode_lower("ΟΔΟΣ"), "οδος");
  EXPECT_EQ(unicode_upper("izmir", case_rules::turkic), "İZMİR");
  EXPECT_TRUE(equal_caseless("Straße", "STRASSE"));
  EXPECT_EQ(unicode_fold("Straße"), "strasse");
}

TEST(unicode_case, takes_text_of_every_width_and_keeps_its_class) {
  const std::string_view view = "\xC3\xA4";
  EXPECT_EQ(unicode_upper(view), ustring8("\xC3\x84"));
  EXPECT_EQ(unicode_upper(std::string(view)), ustring8("\xC3\x84"));
  EXPECT_EQ(unicode_upper(utf8_to_utf16(view)), utf8_to_utf16("\xC3\x84"));
  EXPECT_EQ(unicode_upper(utf8_to_utf32(view)), utf8_to_utf32("\xC3\x84"));
  EXPECT_EQ(unicode_lower(""), "");
  EXPECT_EQ(unicode_lower(std::string("A\0B", 3)), std::string("a\0b", 3));
}

TEST(unicode_case, a_sigma_is_final_after_a_letter_and_before_none) {
  EXPECT_EQ(unicode_lower("Σ"), "σ");
  EXPECT_EQ(unicode_lower("ΑΣ"), "ας");
  EXPECT_EQ(unicode_lower("ΑΣΑ"), "ασα");
  EXPECT_EQ(unicode_lower("ΑΣ ΑΣ"), "ας ας");
  EXPECT_EQ(unicode_lower("Α'Σ'"), "α'ς'");
  EXPECT_EQ(unicode_lower("Α'Σ'Α"), "α'σ'α");
  EXPECT_EQ(unicode_lower("1Σ"), "1σ");
  EXPECT_EQ(unicode_lower("ΑΣΣ"), "ασς");
  // A modifier letter has case and is ignored where case is looked for: it is a letter before the sigma.
  EXPECT_EQ(unicode_lower("ʰΣ"), "ʰς");
  EXPECT_EQ(unicode_lower("ΑΣʰ"), "ασʰ");
  // A malformed part is no letter, and not ignored.
  EXPECT_EQ(unicode_lower("Α\xFFΣ"), "α\xFFσ");
}

TEST(unicode_case, malformed_parts_stay_as_they_are) {
  EXPECT_EQ(unicode_upper("a\xFFz\xE2\x82"), "A\xFFZ\xE2\x82");
  EXPECT_EQ(unicode_upper("\xED\xA0\x80x\xC0\xAF"), "\xED\xA0\x80X\xC0\xAF");
  EXPECT_EQ(unicode_upper(units16({0xD800, 'a', 0xDC00})), units16({0xD800, 'A', 0xDC00}));
  EXPECT_EQ(unicode_upper(units32({0xFFFFFFFF, 'a', 0xD800})), units32({0xFFFFFFFF, 'A', 0xD800}));
}

TEST(unicode_case, blocks_of_ascii_are_mapped_at_every_alignment_and_length) {
  std::string text;
  for (int unit = 0; unit < 128; ++unit) text += static_cast<char>(unit);
  text += text;
  for (std::size_t begin = 0; begin < 40; ++begin) {
    for (std::size_t length = 0; length <= 140; ++length) {
      const std::string piece = text.substr(begin, length) + "\xC3\xA4" + text.substr(begin, length);
      std::string upper;
      std::string lower;
      for (const char each : piece) {
        upper += each >= 'a' && each <= 'z' ? static_cast<char>(each - 32) : each;
        lower += each >= 'A' && each <= 'Z' ? static_cast<char>(each + 32) : each;
      }
      upper.replace(length, 2, "\xC3\x84");
      ASSERT_EQ(unicode_upper(piece), upper);
      ASSERT_EQ(unicode_lower(piece), lower);
      ASSERT_EQ(unicode_fold(piece), lower);
    }
  }
}

TEST(unicode_case, long_texts_that_grow_are_whole) {
  std::string text;
  std::string expected;
  for (int i = 0; i < 2000; ++i) {
    text += "\xCE\x90";  // becomes three characters
    expected += "\xCE\x99\xCC\x88\xCC\x81";
  }
  EXPECT_EQ(unicode_upper(text), expected);
}

template <typename Unit>
void expect_at_most_three_times_as_many_units(const basic_ustring<Unit>& text, case_rules rules) {
  ASSERT_LE(unicode_lower(text, rules).size(), 3 * text.size());
  ASSERT_LE(unicode_upper(text, rules).size(), 3 * text.size());
  ASSERT_LE(unicode_fold(text, rules).size(), 3 * text.size());
}

void expect_limited_growth(const ustring32& text, case_rules rules) {
  SCOPED_TRACE(static_cast<std::uint32_t>(text[0]));
  if (unicode_upper(text, rules) == text && unicode_lower(text, rules) == text) return;
  const ustring8 text8 = utf32_to_utf8(text);
  ASSERT_NO_FATAL_FAILURE(expect_at_most_three_times_as_many_units(text8, rules));
  ASSERT_NO_FATAL_FAILURE(expect_at_most_three_times_as_many_units(utf8_to_utf16(text8), rules));
  ASSERT_NO_FATAL_FAILURE(expect_at_most_three_times_as_many_units(text, rules));
}

TEST(unicode_case, no_character_becomes_more_than_three_times_as_long) {
  // No character of the planes after these has case.
  for (std::uint32_t character = 0; character < 0x20000; ++character) {
    if (character >= 0xD800 && character < 0xE000) continue;
    ASSERT_NO_FATAL_FAILURE(expect_limited_growth(units32({character}), case_rules::standard));
  }
  // The letters of the other rules, which are about accents that follow them, too.
  for (std::uint32_t character = 0; character < 0x400; ++character) {
    for (const auto rules : {case_rules::turkic, case_rules::lithuanian}) {
      ASSERT_NO_FATAL_FAILURE(expect_limited_growth(units32({character}), rules));
      ASSERT_NO_FATAL_FAILURE(expect_limited_growth(units32({character, 0x300}), rules));
    }
  }
}

TEST(caseless, texts_that_differ_only_in_case_are_equal) {
  EXPECT_TRUE(equal_caseless("", ""));
  EXPECT_TRUE(equal_caseless("ΟΔΟΣ", "οδος"));
  EXPECT_TRUE(equal_caseless("ﬃ", "FFI"));
  EXPECT_TRUE(equal_caseless(orva_test::utf16(u"\u0130"), orva_test::utf16(u"i\u0307")));
  EXPECT_FALSE(equal_caseless("a", "ab"));
  EXPECT_FALSE(equal_caseless("\xC3\xA9", "e\xCC\x81"));  // not normalised
}

TEST(caseless, turkic_letters_are_two_pairs) {
  EXPECT_TRUE(equal_caseless("I", "i"));
  EXPECT_FALSE(equal_caseless("I", "i", case_rules::turkic));
  EXPECT_TRUE(equal_caseless("I", "ı", case_rules::turkic));
  EXPECT_TRUE(equal_caseless("İ", "i", case_rules::turkic));
}

TEST(caseless, order_is_that_of_the_folded_characters) {
  EXPECT_TRUE(compare_caseless("a", "B") < 0);
  EXPECT_TRUE(compare_caseless("b", "A") > 0);
  EXPECT_TRUE(compare_caseless("a", "AB") < 0);
  EXPECT_TRUE(compare_caseless("AB", "a") > 0);
  EXPECT_TRUE(compare_caseless("\xEF\xBF\xBD", "\xF0\x9F\x98\x80") < 0);
  // By code point in UTF-16 too, where the units of the second are smaller.
  EXPECT_TRUE(compare_caseless(orva_test::utf16(u"\uFFFD"), orva_test::utf16(u"\U0001F600")) < 0);
}

TEST(caseless, a_malformed_part_equals_only_itself) {
  EXPECT_TRUE(equal_caseless("\xFF", "\xFF"));
  EXPECT_FALSE(equal_caseless("\xFF", "\xFE"));
  EXPECT_FALSE(equal_caseless("\xC3", "\xC3\xA4"));
  const auto large = units32({0x80000041});
  EXPECT_FALSE(equal_caseless(large, units32({'A'})));
  EXPECT_FALSE(equal_caseless(large, units32({0x80000061})));
}

}  // namespace
