// Compared with ICU for every code point that both know: the library's tables are of one version of Unicode.
#include "orva/internal/text/display_width.hpp"

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <algorithm>

namespace {

using orva::internal::text::display_width;

std::size_t width_by_icu(UChar32 code_point) {
  constexpr UChar32 soft_hyphen = 0xAD;
  const auto category = static_cast<UCharCategory>(u_charType(code_point));
  const bool is_mark =
      category == U_NON_SPACING_MARK || category == U_ENCLOSING_MARK || category == U_FORMAT_CHAR;
  const auto syllable = u_getIntPropertyValue(code_point, UCHAR_HANGUL_SYLLABLE_TYPE);
  const bool ends_syllable = syllable == U_HST_VOWEL_JAMO || syllable == U_HST_TRAILING_JAMO;
  if ((is_mark && code_point != soft_hyphen) || ends_syllable) return 0;
  const auto width = u_getIntPropertyValue(code_point, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

TEST(display_width, of_every_assigned_code_point_is_that_of_unicode) {
  constexpr UVersionInfo first_later_version = {15, 1, 0, 0};
  for (UChar32 code_point = 0; code_point <= 0x10FFFF; ++code_point) {
    UVersionInfo age;
    u_charAge(code_point, age);
    const bool known =
        std::lexicographical_compare(age, age + 4, first_later_version, first_later_version + 4);
    if (!known || age[0] == 0) continue;
    ASSERT_EQ(display_width(static_cast<std::uint32_t>(code_point)), width_by_icu(code_point))
        << std::hex << code_point;
  }
}

TEST(display_width, of_a_text_is_the_sum_and_malformed_parts_have_one) {
  EXPECT_EQ(display_width(std::string_view()), 0u);
  EXPECT_EQ(display_width("ab"), 2u);
  EXPECT_EQ(display_width("日本"), 4u);
  EXPECT_EQ(display_width("e\xCC\x81"), 1u);
  EXPECT_EQ(display_width("a\xFF\xE2\x82z"), 4u);
}

}  // namespace
