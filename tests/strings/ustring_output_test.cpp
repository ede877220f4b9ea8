/// Wide strings written to streams of bytes.
#include <gtest/gtest.h>

#include <cstddef>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>

#include "orva/strings/ustring.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/wide_text.hpp"

namespace {

using namespace ORVA_NAMESPACE::strings;
using orva_test::utf16;
using orva_test::utf32;

template <typename T>
std::string streamed(const T& value) {
  std::ostringstream stream;
  stream << value;
  return stream.str();
}

/// One code point in UTF-8, by the ranges of RFC 3629; U+FFFD for what is no character.
std::string utf8_of(unsigned long code_point) {
  const auto byte = [](unsigned long value) { return static_cast<char>(static_cast<unsigned char>(value)); };
  const auto tail = [&](unsigned long divisor) { return byte(128 + code_point / divisor % 64); };
  if (code_point > 0x10FFFF || (code_point >= 0xD800 && code_point <= 0xDFFF)) return "\xEF\xBF\xBD";
  if (code_point < 0x80) return {byte(code_point)};
  if (code_point < 0x800) return {byte(192 + code_point / 64), tail(1)};
  if (code_point < 0x10000) return {byte(224 + code_point / 4096), tail(64), tail(1)};
  return {byte(240 + code_point / 262144), tail(4096), tail(64), tail(1)};
}

TEST(ustring_output, documentation_example) {
  const ustring16 wide = utf16(u"gr\u00FC\u00DF");
  EXPECT_EQ(streamed(wide), "gr\xC3\xBC\xC3\x9F");
  EXPECT_EQ(streamed(utf32(U"gr\u00FC\u00DF")), "gr\xC3\xBC\xC3\x9F");
}

TEST(ustring_output, every_code_point_of_utf32_is_written_in_utf8) {
  ustring32 text;
  std::string expected;
  for (unsigned long code_point = 0; code_point < 0x110800; ++code_point) {
    text.push_back(static_cast<code_unit32>(code_point));
    expected += utf8_of(code_point);
  }
  text.push_back(static_cast<code_unit32>(0xFFFFFFFF));
  expected += utf8_of(0xFFFFFFFF);
  EXPECT_TRUE(streamed(text) == expected);
}

TEST(ustring_output, every_code_point_of_utf16_is_written_in_utf8) {
  ustring16 text;
  std::string expected;
  for (unsigned long code_point = 0; code_point < 0x110000; ++code_point) {
    if (code_point < 0x10000) {
      text.push_back(static_cast<code_unit16>(code_point));
    } else {
      text.push_back(static_cast<code_unit16>(0xD800 + (code_point - 0x10000) / 0x400));
      text.push_back(static_cast<code_unit16>(0xDC00 + code_point % 0x400));
    }
    // Surrogates alone: the low ones follow the high ones, so the last high one makes a pair with the first.
    if (code_point == 0xDBFF) {
      text.push_back('-');
      expected += utf8_of(code_point) + "-";
    } else {
      expected += utf8_of(code_point);
    }
  }
  EXPECT_TRUE(streamed(text) == expected);
}

TEST(ustring_output, each_lone_surrogate_is_one_replacement_character) {
  const auto units = [](std::initializer_list<unsigned> values) {
    ustring16 text;
    for (const unsigned value : values) text.push_back(static_cast<code_unit16>(value));
    return text;
  };
  const std::string bad = "\xEF\xBF\xBD";
  EXPECT_EQ(streamed(units({0xD800})), bad);
  EXPECT_EQ(streamed(units({'a', 0xDC00, 'b'})), "a" + bad + "b");
  EXPECT_EQ(streamed(units({0xD800, 'b'})), bad + "b");
  EXPECT_EQ(streamed(units({0xD800, 0xD800, 0xDC00})), bad + "\xF0\x90\x80\x80");
  EXPECT_EQ(streamed(units({0xDC00, 0xD800})), bad + bad);
  EXPECT_EQ(streamed(units({0xFFFE, 'a'})),
            "\xEF\xBF\xBE"
            "a");
}

TEST(ustring_output, random_surrogates_are_paired_or_replaced) {
  orva_test::random_engine random;
  ustring16 text;
  for (int i = 0; i < 20'000; ++i) text.push_back(static_cast<code_unit16>(0xD700 + random() % 0xA00));
  std::string expected;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned long unit = static_cast<unsigned short>(text[i]);
    const unsigned long next = i + 1 < text.size() ? static_cast<unsigned short>(text[i + 1]) : 0;
    const bool is_pair = unit / 0x400 == 54 && next / 0x400 == 55;
    expected += utf8_of(is_pair ? 0x10000 + unit % 0x400 * 0x400 + next % 0x400 : unit);
    i += is_pair;
  }
  EXPECT_TRUE(streamed(text) == expected);
}

TEST(ustring_output, zero_units_are_kept) {
  EXPECT_EQ(streamed(utf16(std::u16string_view(u"a\0b", 3))), std::string("a\0b", 3));
}

TEST(ustring_output, empty_text_writes_nothing) {
  EXPECT_EQ(streamed(ustring16()), "");
  EXPECT_EQ(streamed(ustring32()), "");
}

TEST(ustring_output, is_one_field_of_the_stream) {
  std::ostringstream stream;
  stream << std::left << std::setfill('.') << std::setw(6) << utf16(u"abc") << '|' << std::setw(6)
         << utf32(U"\u00FC") << '|' << utf16(u"d");
  EXPECT_EQ(stream.str(), "abc...|\xC3\xBC....|d");
}

TEST(ustring_output, temporary_streams_take_it) {
  EXPECT_EQ((std::ostringstream() << utf16(u"a") << utf32(U"b")).str(), "ab");
}

TEST(ustring_output, strings_of_bytes_are_written_as_they_are) {
  EXPECT_EQ(streamed(ustring8("a\x80")), "a\x80");
}

TEST(ustring_output, views_are_written_where_the_operator_is_in_scope) {
  using ORVA_NAMESPACE::strings::operator<<;
  const ustring16 text16 = utf16(u"\u00FC");
  const ustring32 text32 = utf32(U"\u00FC");
  std::ostringstream stream;
  stream << ustring16::view(text16) << ustring32::view(text32) << std::string_view("|");
  EXPECT_EQ(stream.str(), "\xC3\xBC\xC3\xBC|");
}

template <typename T>
concept streamable = requires(std::ostream& stream, const T& value) {
  stream << value;
};

TEST(ustring_output, literals_and_single_units_stay_refused) {
  using ORVA_NAMESPACE::strings::operator<<;
  static_assert(!streamable<char16_t>);
  static_assert(!streamable<const char16_t*>);
  static_assert(!streamable<char16_t[4]>);
  static_assert(!streamable<const char32_t*>);
  static_assert(!streamable<const wchar_t*>);
  static_assert(streamable<ustring8> && streamable<ustring16> && streamable<ustring32>);
}

}  // namespace

namespace program {

using text16 = ORVA_NAMESPACE::strings::ustring16;

/// A program that writes wide text in its own way goes on doing so.
static std::ostream& operator<<(std::ostream& stream, const text16& text) {
  return stream << text.size() << " units";
}

TEST(ustring_output, own_operator_of_a_program_is_preferred) {
  std::ostringstream stream;
  stream << orva_test::utf16(u"abc");
  EXPECT_EQ(stream.str(), "3 units");
}

}  // namespace program

namespace {

TEST(ustring_output, googletest_shows_the_text) {
  EXPECT_EQ(testing::PrintToString(ustring8("gr\xC3\xBC\xC3\x9F")), "\"gr\xC3\xBC\xC3\x9F\"");
  EXPECT_EQ(testing::PrintToString(utf16(u"gr\u00FC\u00DF")), "\"gr\xC3\xBC\xC3\x9F\"");
  EXPECT_EQ(testing::PrintToString(utf32(U"gr\u00FC\u00DF")), "\"gr\xC3\xBC\xC3\x9F\"");
}

}  // namespace
