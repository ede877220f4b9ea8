#include "orva/generic/convert/read_number.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "orva/strings/ustring.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_read_number.hpp"
#include "tests/support/short_texts.hpp"

namespace {

namespace convert = ORVA_NAMESPACE::generic::convert;
namespace strings = ORVA_NAMESPACE::strings;
using convert::number_error;
using convert::parse_number;
using convert::read_number;
using convert::read_number_result;
using radix = ORVA_NAMESPACE::types::radix_t;
using strings::code_unit16;
using strings::code_unit32;

template <typename Unit>
std::basic_string<Unit> widen(std::string_view text) {
  std::basic_string<Unit> result;
  for (const char unit : text) result.push_back(static_cast<Unit>(static_cast<unsigned char>(unit)));
  return result;
}

template <typename Number>
testing::AssertionResult reads(std::string_view text, unsigned int base, Number value, std::size_t length,
                               number_error error) {
  const auto result = read_number<Number>(text, base);
  if (orva_test::same_result(result, {value, length, error})) return testing::AssertionSuccess();
  return testing::AssertionFailure() << '"' << text << "\" in radix " << base << " is "
                                     << testing::PrintToString(result.value) << ", " << result.length
                                     << ", error " << static_cast<int>(result.error);
}

TEST(read_number, documentation_example) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(read_number<int>("12abc"), (read_number_result<int>{12, 2, number_error::none}));
  EXPECT_EQ(read_number<std::int8_t>("300 kg"),
            (read_number_result<std::int8_t>{127, 3, number_error::too_large}));
  EXPECT_EQ(read_number<double>("2.5e-1 litres"), (read_number_result<double>{0.25, 6, number_error::none}));
  EXPECT_EQ(parse_number<int>("12"), 12);
  EXPECT_EQ(parse_number<int>("12abc"), std::nullopt);

  EXPECT_TRUE(reads("-42", 10, -42, 3, number_error::none));
  EXPECT_TRUE(reads("+42", 10, 42, 3, number_error::none));
  EXPECT_TRUE(reads(" 42", 10, 0, 0, number_error::no_number));
  EXPECT_TRUE(reads("- 42", 10, 0, 0, number_error::no_number));
  EXPECT_TRUE(reads("0x1F", radix::hexadecimal, 0, 1, number_error::none));
  EXPECT_TRUE(reads("0x1F", radix::prefix, 31, 4, number_error::none));
  EXPECT_TRUE(reads("-5", 10, 0U, 2, number_error::too_small));
  EXPECT_TRUE(reads("-0", 10, 0U, 2, number_error::none));
  EXPECT_TRUE(reads("-129", 10, std::int8_t{-128}, 4, number_error::too_small));
  EXPECT_TRUE(reads(".5", 10, 0.5, 2, number_error::none));
  EXPECT_TRUE(reads("5.", 10, 5.0, 2, number_error::none));
  EXPECT_TRUE(reads("12e", 10, 12.0, 2, number_error::none));
  EXPECT_TRUE(reads("1e400", 10, infinity, 5, number_error::too_large));
  EXPECT_TRUE(reads("-1e400", 10, -infinity, 6, number_error::too_large));
  EXPECT_TRUE(reads("-1e-400", 10, -0.0, 7, number_error::too_small));
  EXPECT_TRUE(reads("inf", 10, infinity, 3, number_error::none));
  EXPECT_TRUE(reads("-Infinity", 10, -infinity, 9, number_error::none));
  EXPECT_TRUE(reads("nan(1)", 10, std::numeric_limits<double>::quiet_NaN(), 3, number_error::none));
  EXPECT_TRUE(reads("1.8p3", radix::hexadecimal, 12.0, 5, number_error::none));
  EXPECT_TRUE(reads("0x1.8p3", radix::prefix, 12.0, 7, number_error::none));
}

TEST(read_number, prefix_chooses_the_radix_if_a_digit_follows) {
  EXPECT_TRUE(reads("0b101", radix::prefix, 5, 5, number_error::none));
  EXPECT_TRUE(reads("-0B101", radix::prefix, -5, 6, number_error::none));
  EXPECT_TRUE(reads("0X1fg", radix::prefix, 31, 4, number_error::none));
  EXPECT_TRUE(reads("010", radix::prefix, 8, 3, number_error::none));
  EXPECT_TRUE(reads("10", radix::prefix, 10, 2, number_error::none));
  EXPECT_TRUE(reads("0", radix::prefix, 0, 1, number_error::none));
  EXPECT_TRUE(reads("0x", radix::prefix, 0, 1, number_error::none));
  EXPECT_TRUE(reads("0xg", radix::prefix, 0, 1, number_error::none));
  EXPECT_TRUE(reads("0x-1", radix::prefix, 0, 1, number_error::none));
  EXPECT_TRUE(reads("0b2", radix::prefix, 0, 1, number_error::none));
  EXPECT_TRUE(reads("08", radix::prefix, 0, 1, number_error::none));
  EXPECT_TRUE(reads("\\x1F", radix::prefix, 0, 0, number_error::no_number));
  EXPECT_TRUE(reads("0x-0x1", radix::prefix, 0, 1, number_error::none));
  EXPECT_TRUE(reads("0x.8", radix::prefix, 0.5, 4, number_error::none));
  EXPECT_TRUE(reads("0x.", radix::prefix, 0.0, 1, number_error::none));
  EXPECT_TRUE(reads("010.5", radix::prefix, 10.5, 5, number_error::none));
  EXPECT_TRUE(reads("0b1", radix::prefix, 0.0, 1, number_error::none));
}

TEST(read_number, radix_that_the_type_does_not_have_is_an_error) {
  for (const unsigned int base : {1U, 37U, 100U, 0xFFFFFFFFU}) {
    EXPECT_TRUE(reads("1", base, 0, 0, number_error::bad_radix));
    EXPECT_TRUE(reads("", base, 0U, 0, number_error::bad_radix));
    EXPECT_EQ(parse_number<int>("1", base), std::nullopt);
  }
  for (const unsigned int base : {1U, 2U, 8U, 9U, 11U, 15U, 17U, 36U, 37U, 0xFFFFFFFFU}) {
    EXPECT_TRUE(reads("1", base, 0.0, 0, number_error::bad_radix));
    EXPECT_TRUE(reads("", base, 0.0f, 0, number_error::bad_radix));
    EXPECT_TRUE(reads("inf", base, 0.0L, 0, number_error::bad_radix));
  }
}

TEST(read_number, characters_are_numbers_and_truth_values_are_not) {
  EXPECT_TRUE(reads("65", 10, 'A', 2, number_error::none));
  EXPECT_TRUE(reads("65", 10, static_cast<signed char>(65), 2, number_error::none));
  EXPECT_TRUE(reads("65", 10, static_cast<unsigned char>(65), 2, number_error::none));
  EXPECT_FALSE(convert::any_number<bool>);
  EXPECT_FALSE(convert::any_number<wchar_t>);
  EXPECT_FALSE(convert::any_number<char8_t>);
  EXPECT_FALSE(convert::any_number<char16_t>);
  EXPECT_FALSE(convert::any_number<char32_t>);
  EXPECT_FALSE(convert::any_number<const int>);
  EXPECT_FALSE(convert::any_number<void*>);
}

TEST(read_number, every_kind_of_text_is_taken) {
  EXPECT_EQ(parse_number<int>(std::string("42")), 42);
  EXPECT_EQ(parse_number<int>(std::string_view("42,", 2)), 42);
  EXPECT_EQ(parse_number<int>(strings::ustring8("42")), 42);
  EXPECT_EQ(parse_number<int>(strings::ustring16(widen<code_unit16>("42"))), 42);
  EXPECT_EQ(parse_number<double>(strings::ustring32(widen<code_unit32>("4.5"))), 4.5);
  const char* const pointer = "42";
  EXPECT_EQ(parse_number<int>(pointer), 42);
  EXPECT_EQ(parse_number<int>(std::string_view()), std::nullopt);
}

TEST(parse_number, whole_text_has_to_be_a_number_in_range) {
  EXPECT_EQ(parse_number<int>("-7f", 16), -127);
  EXPECT_EQ(parse_number<int>("0x7f", radix::prefix), 127);
  EXPECT_EQ(parse_number<double>("1e3"), 1000.0);
  for (const char* text : {"", " 1", "1 ", "1.", "+", "--1", "99999999999", "-99999999999", "1,000", "09"}) {
    EXPECT_EQ(parse_number<int>(text, radix::prefix), std::nullopt) << text;
  }
  for (const char* text :
       {"", " 1", "1 ", "1e", "1e+", ".", "+-1", "1e400", "1e-400", "0x", "nan(1)", "1,5"}) {
    EXPECT_EQ(parse_number<double>(text), std::nullopt) << text;
  }
}

/// Reads with the library from units without a terminator, so that sanitizers detect a read outside them.
template <typename Integer, typename Unit>
read_number_result<Integer> read_exact_units(const std::basic_string<Unit>& text, unsigned int base) {
  const auto units = std::make_unique<Unit[]>(text.size());
  std::copy(text.begin(), text.end(), units.get());
  return read_number<Integer>(std::basic_string_view<Unit>(units.get(), text.size()), base);
}

template <typename Integer>
bool as_reference(const std::string& text, unsigned int base) {
  return read_exact_units<Integer>(text, base) == orva_test::reference_read_integer<Integer>(text, base);
}

template <typename Integer>
class read_small_integer : public testing::Test {};
using small_integers = testing::Types<char, signed char, unsigned char, short, unsigned short>;
TYPED_TEST_SUITE(read_small_integer, small_integers);

TYPED_TEST(read_small_integer, reads_as_itself_in_every_radix) {
  using limits = std::numeric_limits<TypeParam>;
  for (int base = 2; base <= 36; ++base) {
    for (int value = limits::min(); value <= limits::max(); ++value) {
      char text[32];
      const char* const end = std::to_chars(text, text + sizeof text, value, base).ptr;
      const auto length = static_cast<std::size_t>(end - text);
      const auto [read, read_length, error] =
          read_number<TypeParam>(std::string_view(text, length), static_cast<unsigned int>(base));
      if (read != value || read_length != length || error != number_error::none)
        FAIL() << value << ' ' << base;
    }
  }
}

TYPED_TEST(read_small_integer, out_of_range_is_the_nearest_limit_in_every_radix) {
  using limits = std::numeric_limits<TypeParam>;
  for (int base = 2; base <= 36; ++base) {
    for (int distance = 1; distance <= 1500; ++distance) {
      for (const int value : {limits::max() + distance, limits::min() - distance}) {
        char text[32];
        const char* const end = std::to_chars(text, text + sizeof text, value, base).ptr;
        const auto length = static_cast<std::size_t>(end - text);
        const bool is_large = value > 0;
        const read_number_result<TypeParam> expected = {
            is_large ? limits::max() : limits::min(), length,
            is_large ? number_error::too_large : number_error::too_small};
        const auto result =
            read_number<TypeParam>(std::string_view(text, length), static_cast<unsigned int>(base));
        if (result != expected) FAIL() << value << ' ' << base;
      }
    }
  }
}

template <typename Integer>
class read_integer_type : public testing::Test {};
using integers = testing::Types<char, signed char, unsigned char, short, unsigned short, int, unsigned int,
                                long, unsigned long, long long, unsigned long long>;
TYPED_TEST_SUITE(read_integer_type, integers);

/// A text around the limits: the digits of a limit, with one of them changed, removed or added.
template <typename Integer>
std::string text_near_limit(orva_test::random_engine& random, int base) {
  using limits = std::numeric_limits<Integer>;
  char text[80];
  const Integer limit = random() % 2 ? limits::max() : limits::min();
  std::string digits(text, std::to_chars(text, text + sizeof text, limit, base).ptr);
  constexpr std::string_view units = "0123456789abcdefghijklmnopqrstuvwxyzAFZ+-.";
  const auto unit = [&] { return units[random() % units.size()]; };
  switch (random() % 5) {
    case 0:
      digits[random() % digits.size()] = unit();
      break;
    case 1:
      digits.push_back(unit());
      break;
    case 2:
      digits.pop_back();
      break;
    case 3:
      digits.insert(digits.front() == '-' ? 1 : 0, random() % 70, '0');
      break;
    default:
      digits.back() = unit();
  }
  if (random() % 8 == 0) digits.insert(0, 1, "+-"[random() % 2]);
  return digits;
}

TYPED_TEST(read_integer_type, texts_near_the_limits_as_the_reference) {
  orva_test::random_engine random;
  for (int run = 0; run < 20000; ++run) {
    const int base = 2 + static_cast<int>(random() % 35);
    const std::string text = text_near_limit<TypeParam>(random, run % 4 == 0 ? 10 : base);
    const auto read_base = static_cast<unsigned int>(run % 4 == 0 ? 10 : run % 16 == 1 ? 0 : base);
    if (!as_reference<TypeParam>(text, read_base)) FAIL() << text << " in radix " << read_base;
  }
}

TYPED_TEST(read_integer_type, limits_and_the_numbers_beside_them_as_the_reference) {
  using limits = std::numeric_limits<TypeParam>;
  for (unsigned int base = 2; base <= 36; ++base) {
    for (const TypeParam limit : {limits::max(), limits::min()}) {
      char text[80];
      const auto number = [&](auto value) {
        return std::string(text, std::to_chars(text, text + sizeof text, value, static_cast<int>(base)).ptr);
      };
      for (const std::string& each :
           {number(limit), number(limit) + '0', number(limit) + '1', "0" + number(limit)}) {
        EXPECT_TRUE(as_reference<TypeParam>(each, base)) << each << ' ' << base;
      }
      // One more than the limit, or two where that has no carry.
      const auto magnitude = static_cast<std::uint64_t>(limits::max());
      if (magnitude == std::numeric_limits<std::uint64_t>::max()) continue;
      for (const std::uint64_t above : {magnitude + 1, magnitude + 2}) {
        EXPECT_TRUE(as_reference<TypeParam>(number(above), base));
        EXPECT_TRUE(as_reference<TypeParam>('-' + number(above), base));
      }
    }
  }
  EXPECT_TRUE(as_reference<TypeParam>("18446744073709551615", 10));
  EXPECT_TRUE(as_reference<TypeParam>("18446744073709551616", 10));
  EXPECT_TRUE(as_reference<TypeParam>("-9223372036854775808", 10));
  EXPECT_TRUE(as_reference<TypeParam>("-9223372036854775809", 10));
}

TYPED_TEST(read_integer_type, long_texts_are_read_to_their_end) {
  using limits = std::numeric_limits<TypeParam>;
  const std::string zeros(1'000'000, '0');
  const std::string nines(1'000'000, '9');
  EXPECT_TRUE(reads(zeros + "7;", 10, TypeParam{7}, zeros.size() + 1, number_error::none));
  EXPECT_TRUE(reads(nines + ";", 10, limits::max(), nines.size(), number_error::too_large));
  EXPECT_TRUE(reads("-" + nines + ";", 10, limits::min(), nines.size() + 1, number_error::too_small));
}

TEST(read_number, every_short_text_as_the_reference) {
  for (const std::string& text : orva_test::short_texts("-+ 0127afxXbB.", 4)) {
    for (const unsigned int base : {0U, 2U, 8U, 10U, 16U, 36U}) {
      if (!as_reference<signed char>(text, base) || !as_reference<unsigned int>(text, base)) {
        FAIL() << '"' << text << "\" in radix " << base;
      }
    }
  }
}

TEST(read_number, every_byte_is_the_digit_that_it_is_to_from_chars) {
  for (unsigned int base = 0; base <= 36; ++base) {
    for (int byte = 0; byte < 256; ++byte) {
      for (const char* front : {"", "-", "1", "0"}) {
        const std::string text = front + std::string(1, static_cast<char>(byte));
        EXPECT_TRUE(as_reference<int>(text, base)) << byte << " after \"" << front << "\" in radix " << base;
      }
    }
  }
}

template <typename Unit>
class read_wide_unit : public testing::Test {};
using wide_units = testing::Types<code_unit16, code_unit32>;
TYPED_TEST_SUITE(read_wide_unit, wide_units);

TYPED_TEST(read_wide_unit, text_reads_as_that_of_bytes) {
  orva_test::random_engine random;
  for (int run = 0; run < 20000; ++run) {
    const auto base = static_cast<unsigned int>(random() % 37);
    const std::string text = text_near_limit<long long>(random, base < 2 ? 10 : static_cast<int>(base));
    const auto wide = widen<TypeParam>(text);
    if (read_exact_units<long long>(wide, base) != read_exact_units<long long>(text, base) ||
        read_exact_units<unsigned short>(wide, base) != read_exact_units<unsigned short>(text, base)) {
      FAIL() << text << " in radix " << base;
    }
  }
}

TYPED_TEST(read_wide_unit, with_the_low_bits_of_a_digit_is_no_digit) {
  for (unsigned int high = 1; high < 0x80; ++high) {
    for (const char low : std::string_view("019azAZ+-.xeEinp")) {
      const auto unit = static_cast<TypeParam>(high << 8 | static_cast<unsigned char>(low));
      const std::basic_string<TypeParam> alone(1, unit);
      EXPECT_EQ(read_number<int>(alone, 36).error, number_error::no_number);
      EXPECT_EQ(read_number<double>(alone).error, number_error::no_number);
      EXPECT_EQ(read_number<double>(alone, 16).error, number_error::no_number);
      for (const char* front : {"1", "0", "1.", "1.5", "0x1.8"}) {
        const auto text = widen<TypeParam>(front) + unit + widen<TypeParam>("1");
        EXPECT_EQ(read_number<int>(text, 0), read_number<int>(std::string(front), 0));
        EXPECT_EQ(read_number<double>(text, 0), read_number<double>(std::string(front), 0));
      }
    }
  }
}

}  // namespace
