#include "orva/strings/case_mapping.hpp"

#include <gtest/gtest.h>

#include <cctype>
#include <limits>
#include <string>
#include <type_traits>

#include "orva/strings/gh2.hpp"
#include "tests/support/single_byte_locale.hpp"

namespace {

namespace strings = ORVA_NAMESPACE::strings;
namespace gh2 = ORVA_NAMESPACE::strings::gh2;
using strings::lower_case;
using strings::to_lower;
using strings::to_upper;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;

constexpr char ascii_lower(unsigned int unit) {
  return static_cast<char>(unit >= 'A' && unit <= 'Z' ? unit + 32 : unit);
}
constexpr char ascii_upper(unsigned int unit) {
  return static_cast<char>(unit >= 'a' && unit <= 'z' ? unit - 32 : unit);
}

TEST(case_mapping, documentation_example) {
  EXPECT_EQ(to_lower("Stra\xC3\x9F"
                     "e A1"),
            "stra\xC3\x9F"
            "e a1");
  EXPECT_EQ(to_upper("Stra\xC3\x9F"
                     "e a1"),
            "STRA\xC3\x9F"
            "E A1");
  EXPECT_EQ(lower_case("ABCDEF", 2, 4), "ABcdEF");
}

TEST(case_mapping, in_place_changes_the_units_of_the_range) {
  ustring8 text = "ABCDEF";
  strings::make_lower(text, 2, 4);
  EXPECT_EQ(text, "ABcdEF");
  strings::make_lower(text, 5, 100);
  EXPECT_EQ(text, "ABcdEf");
  strings::make_lower(text, 4, 2);
  strings::make_lower(text, 6, 7);
  EXPECT_EQ(text, "ABcdEf");
  strings::make_upper(text);
  EXPECT_EQ(text, "ABCDEF");
}

TEST(case_mapping, every_byte_in_the_c_locale) {
  for (unsigned int byte = 0; byte < 256; ++byte) {
    const ustring8 text(1, static_cast<char>(byte));
    EXPECT_EQ(to_lower(text), ustring8(1, ascii_lower(byte))) << byte;
    EXPECT_EQ(to_upper(text), ustring8(1, ascii_upper(byte))) << byte;
  }
}

TEST(case_mapping, every_16_bit_unit_in_the_c_locale) {
  for (unsigned int unit = 0; unit < 0x10000; ++unit) {
    const ustring16 text(1, static_cast<strings::code_unit16>(unit));
    const auto lower = unit < 128 ? static_cast<strings::code_unit16>(ascii_lower(unit)) : text[0];
    const auto upper = unit < 128 ? static_cast<strings::code_unit16>(ascii_upper(unit)) : text[0];
    if (to_lower(text)[0] != lower || to_upper(text)[0] != upper) FAIL() << unit;
  }
}

TEST(case_mapping, utf32_units_above_255_stay) {
  for (const unsigned int unit : {0x141u, 0x161u, 0x410u, 0x10041u, 0x80000041u, 0xFFFFFFFFu, 0xFFFFFF41u}) {
    const ustring32 text(1, static_cast<strings::code_unit32>(unit));
    EXPECT_EQ(to_lower(text), text) << unit;
    EXPECT_EQ(to_upper(text), text) << unit;
  }
}

TEST(case_mapping, single_byte_locale_maps_its_letters_in_every_width) {
  // Latin-9 has an upper case for the byte 0xFF.
  const orva_test::single_byte_locale latin9("ISO-8859-15", "de_DE");
  if (!latin9.made()) GTEST_SKIP() << "localedef could not make a Latin-9 locale";
  EXPECT_EQ(to_lower("\xC4"), "\xE4");
  EXPECT_EQ(to_upper("\xE4"), "\xC4");
  for (unsigned int value = 128; value < 256; ++value) {
    const auto lower = static_cast<unsigned char>(std::tolower(static_cast<int>(value)));
    const auto upper = static_cast<unsigned char>(std::toupper(static_cast<int>(value)));
    EXPECT_EQ(to_lower(ustring16(1, static_cast<strings::code_unit16>(value)))[0], lower) << value;
    EXPECT_EQ(to_upper(ustring32(1, static_cast<strings::code_unit32>(value)))[0], upper) << value;
    if (value == 0xFF) continue;
    EXPECT_EQ(to_lower(ustring8(1, static_cast<char>(value)))[0], static_cast<char>(lower)) << value;
    EXPECT_EQ(to_upper(ustring8(1, static_cast<char>(value)))[0], static_cast<char>(upper)) << value;
  }
}

/// Each unit below 0x400 several times, mapped in one call and one by one.
template <typename Ustring>
void expect_long_text_as_its_units() {
  Ustring text;
  for (unsigned int i = 0; i < 4096; ++i)
    text.push_back(static_cast<typename Ustring::value_type>(i % 0x400));
  Ustring lower, upper;
  for (const auto unit : text) {
    lower += to_lower(Ustring(1, unit));
    upper += to_upper(Ustring(1, unit));
  }
  EXPECT_EQ(to_lower(text), lower);
  EXPECT_EQ(to_upper(text), upper);
  EXPECT_EQ(lower_case(text, 1, 4000), text.substr(0, 1) + lower.substr(1, 3999) + text.substr(4000));
}

TEST(case_mapping, long_text_is_mapped_as_its_units_are) {
  expect_long_text_as_its_units<ustring8>();
  expect_long_text_as_its_units<ustring16>();
  expect_long_text_as_its_units<ustring32>();
}

TEST(case_mapping, long_text_is_mapped_as_its_units_are_in_a_single_byte_locale) {
  const orva_test::single_byte_locale latin9("ISO-8859-15", "de_DE");
  if (!latin9.made()) GTEST_SKIP() << "localedef could not make a Latin-9 locale";
  expect_long_text_as_its_units<ustring8>();
  expect_long_text_as_its_units<ustring16>();
  expect_long_text_as_its_units<ustring32>();
}

TEST(case_mapping, byte_0xff_is_the_end_of_file_and_stays) {
  const orva_test::single_byte_locale latin9("ISO-8859-15", "de_DE");
  if (!latin9.made()) GTEST_SKIP() << "localedef could not make a Latin-9 locale";
  EXPECT_EQ(to_upper("\xFF"), "\xFF");
  EXPECT_EQ(to_lower("\xFF"), "\xFF");
}

TEST(case_mapping, results_have_the_width_of_the_text) {
  EXPECT_TRUE((std::is_same_v<decltype(to_lower("A")), ustring8>));
  EXPECT_TRUE((std::is_same_v<decltype(to_upper(ustring16())), ustring16>));
  EXPECT_TRUE((std::is_same_v<decltype(lower_case(ustring32(), 0, 0)), ustring32>));
  EXPECT_EQ(to_lower(std::string("ABC")), "abc");
  EXPECT_EQ(to_upper(""), "");
}

TEST(case_mapping, embedded_zeros_are_units_like_any_other) {
  EXPECT_EQ(to_lower(std::string("A\0B", 3)), ustring8("a\0b", 3));
}

TEST(lower_case, changes_only_the_range) {
  EXPECT_EQ(lower_case("ABCDEF", 0, 0), "ABCDEF");
  EXPECT_EQ(lower_case("ABCDEF", 0, 6), "abcdef");
  EXPECT_EQ(lower_case("ABCDEF", 5, 6), "ABCDEf");
  EXPECT_EQ(lower_case("ABCDEF", 3, strings::end_of_text), "ABCdef");
  EXPECT_EQ(lower_case("ABCDEF", 3, std::string::npos), "ABCdef");
}

TEST(lower_case, range_after_the_end_is_cut) {
  EXPECT_EQ(lower_case("ABCDEF", 3, 1000), "ABCdef");
  EXPECT_EQ(lower_case("ABCDEF", 7, 1000), "ABCDEF");
  EXPECT_EQ(lower_case("ABCDEF", 4, 2), "ABCDEF");
  EXPECT_EQ(lower_case("", 0, strings::end_of_text), "");
  EXPECT_EQ(lower_case("", std::numeric_limits<std::size_t>::max(), strings::end_of_text), "");
}

TEST(gh2_case, maps_wide_strings_as_the_string_classes) {
  const strings::wide_string text = {'A', 'b', 0xC4, 0x410, 'Z'};
  EXPECT_EQ(gh2::tolower(text), (strings::wide_string{'a', 'b', 0xC4, 0x410, 'z'}));
  EXPECT_EQ(gh2::toupper(text), (strings::wide_string{'A', 'B', 0xC4, 0x410, 'Z'}));
}

}  // namespace
