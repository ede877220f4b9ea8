#include "orva/generic/convert/write_number.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <locale>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "orva/generic/convert/read_number.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/random_floating.hpp"
#include "tests/support/single_byte_locale.hpp"

namespace {

namespace convert = ORVA_NAMESPACE::generic::convert;
using convert::number_buffer_size;
using convert::number_text;
using convert::parse_number;
using convert::write_number;
using convert::write_number_error;
using ORVA_NAMESPACE::strings::code_unit16;
using ORVA_NAMESPACE::strings::code_unit32;
using orva_test::random_value;

template <typename Unit, typename Number>
std::basic_string<Unit> text_of(Number value, unsigned int base = 10) {
  Unit text[number_buffer_size];
  const auto [end, error] = write_number(text, text + number_buffer_size, value, base);
  EXPECT_EQ(error, write_number_error::none);
  return {text, end};
}

template <typename Unit>
std::basic_string<Unit> widen(std::string_view text) {
  return {text.begin(), text.end()};
}

TEST(write_number, documentation_example) {
  char text[number_buffer_size];
  const auto written = write_number(text, text + sizeof text, 0.1);
  EXPECT_EQ(std::string_view(text, written.end), "0.1");
  EXPECT_EQ(number_text(-42), "-42");
  EXPECT_EQ(number_text(1e-7), "1e-07");

  EXPECT_EQ(text_of<char>(-255, 16), "-ff");
  EXPECT_EQ(number_text(std::int8_t{65}), "65");
  EXPECT_EQ(number_text(3.0), "3");
  EXPECT_EQ(number_text(-0.0), "-0");
  EXPECT_EQ(number_text(100000.0), "1e+05");
  EXPECT_EQ(number_text(123456.0), "123456");
  EXPECT_EQ(number_text(0.1f), "0.1");
  EXPECT_EQ(number_text(std::numeric_limits<double>::infinity()), "inf");
  EXPECT_EQ(number_text(std::numeric_limits<double>::quiet_NaN()), "nan");
  EXPECT_EQ(text_of<char>(12.0, 16), "1.8p+3");
}

TEST(write_number, radix_that_the_type_does_not_have_is_an_error) {
  char text[number_buffer_size] = "untouched";
  const auto refuses = [&](auto value, unsigned int base) {
    const auto [end, error] = write_number(text, text + sizeof text, value, base);
    return end == text && error == write_number_error::bad_radix && std::strcmp(text, "untouched") == 0;
  };
  for (const unsigned int base : {0U, 1U, 37U, 0xFFFFFFFFU}) {
    EXPECT_TRUE(refuses(5, base));
    EXPECT_TRUE(refuses(5.0, base));
  }
  for (const unsigned int base : {2U, 8U, 36U}) {
    EXPECT_TRUE(refuses(5.0f, base));
    EXPECT_TRUE(refuses(5.0L, base));
  }
}

/// Gives each possible room, and expects the number where it fits, and else that no unit was written.
template <typename Unit, typename Number>
void expect_room_is_respected(Number value, unsigned int base) {
  const auto expected = text_of<Unit>(value, base);
  for (std::size_t room = 0; room <= number_buffer_size + 1; ++room) {
    const auto units = std::make_unique<Unit[]>(room);
    std::fill_n(units.get(), room, Unit{'#'});
    Unit* const first = units.get();
    const auto [end, error] = write_number(first, first + room, value, base);
    if (room < expected.size()) {
      EXPECT_EQ(error, write_number_error::no_room) << room;
      EXPECT_EQ(end, first) << room;
      EXPECT_EQ(std::count(first, first + room, Unit{'#'}), static_cast<std::ptrdiff_t>(room));
    } else {
      EXPECT_EQ(error, write_number_error::none) << room;
      EXPECT_EQ((std::basic_string<Unit>(first, end)), expected) << room;
    }
  }
}

template <typename Unit>
class write_width : public testing::Test {};
using units = testing::Types<char, code_unit16, code_unit32>;
TYPED_TEST_SUITE(write_width, units);

TYPED_TEST(write_width, nothing_is_written_where_the_room_is_too_small) {
  expect_room_is_respected<TypeParam>(0, 10);
  expect_room_is_respected<TypeParam>(-7, 10);
  expect_room_is_respected<TypeParam>(std::numeric_limits<std::int64_t>::min(), 10);
  expect_room_is_respected<TypeParam>(std::numeric_limits<std::int64_t>::min(), 2);
  expect_room_is_respected<TypeParam>(std::numeric_limits<std::uint64_t>::max(), 36);
  expect_room_is_respected<TypeParam>(0.1f, 10);
  expect_room_is_respected<TypeParam>(-std::numeric_limits<double>::denorm_min(), 10);
  expect_room_is_respected<TypeParam>(-std::numeric_limits<long double>::max(), 10);
  expect_room_is_respected<TypeParam>(123456789e15L, 10);
  expect_room_is_respected<TypeParam>(-std::numeric_limits<long double>::max(), 16);
}

TYPED_TEST(write_width, random_numbers_have_the_text_of_to_chars) {
  orva_test::random_engine random;
  const auto has_text_of_to_chars = [](auto value, int base) {
    char text[number_buffer_size];
    const char* const end = std::to_chars(text, text + sizeof text, value, base).ptr;
    return text_of<TypeParam>(value, static_cast<unsigned int>(base)) ==
           widen<TypeParam>(std::string_view(text, end));
  };
  for (int run = 0; run < 20000; ++run) {
    const int base = run % 4 == 0 ? 10 : 2 + static_cast<int>(random() % 35);
    const std::uint64_t bits = random.bits64() >> random() % 64;
    if (!has_text_of_to_chars(bits, base) ||
        !has_text_of_to_chars(static_cast<std::int64_t>(0 - bits), base) ||
        !has_text_of_to_chars(static_cast<int>(bits), base) ||
        !has_text_of_to_chars(static_cast<short>(bits), base)) {
      FAIL() << bits << " in radix " << base;
    }
    const auto value = std::bit_cast<double>(random.bits64());
    char text[number_buffer_size];
    const char* const end = std::to_chars(text, text + sizeof text, value).ptr;
    EXPECT_EQ(text_of<TypeParam>(value), widen<TypeParam>(std::string_view(text, end)));
  }
}

template <typename Integer>
class write_small_integer : public testing::Test {};
using small_integers = testing::Types<char, signed char, unsigned char, short, unsigned short>;
TYPED_TEST_SUITE(write_small_integer, small_integers);

TYPED_TEST(write_small_integer, has_the_text_of_to_chars_in_every_radix) {
  using limits = std::numeric_limits<TypeParam>;
  for (int base = 2; base <= 36; ++base) {
    for (int value = limits::min(); value <= limits::max(); ++value) {
      char expected[32];
      const std::string_view expected_text(expected, std::to_chars(expected, expected + 32, value, base).ptr);
      char text[number_buffer_size];
      const auto [end, error] = write_number(text, text + sizeof text, static_cast<TypeParam>(value),
                                             static_cast<unsigned int>(base));
      if (std::string_view(text, end) != expected_text || error != write_number_error::none) {
        FAIL() << value << " in radix " << base;
      }
    }
  }
}

template <typename Floating>
class write_floating_type : public testing::Test {};
using floatings = testing::Types<float, double, long double>;
TYPED_TEST_SUITE(write_floating_type, floatings);

template <typename Floating>
testing::AssertionResult reads_back(Floating value) {
  for (const Floating each : {value, -value}) {
    const std::string text = text_of<char>(each);
    if (parse_number<Floating>(text) != each) return testing::AssertionFailure() << text;
    const std::string hexadecimal = text_of<char>(each, 16);
    if (parse_number<Floating>(hexadecimal, 16) != each) return testing::AssertionFailure() << hexadecimal;
  }
  return testing::AssertionSuccess();
}

TYPED_TEST(write_floating_type, reads_back) {
  orva_test::random_engine random;
  for (int run = 0; run < 20000; ++run) ASSERT_TRUE(reads_back(random_value<TypeParam>(random)));
  using limits = std::numeric_limits<TypeParam>;
  for (const TypeParam value : {limits::max(), limits::min(), limits::denorm_min(), limits::epsilon(),
                                limits::infinity(), TypeParam{0}}) {
    EXPECT_TRUE(reads_back(value));
  }
  for (int exponent = limits::min_exponent - limits::digits; exponent < limits::max_exponent; ++exponent) {
    const TypeParam power = std::ldexp(TypeParam{1}, exponent);
    ASSERT_TRUE(reads_back(power));
    ASSERT_TRUE(reads_back(std::nextafter(power, TypeParam{0})));
  }
}

TYPED_TEST(write_floating_type, has_the_text_of_to_chars) {
  orva_test::random_engine random;
  const auto expect = [](TypeParam value) {
    char text[128];
    const char* const end = std::to_chars(text, text + sizeof text, value).ptr;
    ASSERT_EQ(number_text(value), std::string_view(text, end));
  };
  for (int run = 0; run < 20000; ++run) {
    expect(random_value<TypeParam>(random));
    // Whole numbers of all sizes, with and without zeros at their end.
    TypeParam whole = static_cast<TypeParam>(random.bits64() >> random() % 64);
    for (std::size_t i = random() % 16; i > 0; --i) whole *= 10;
    expect(-whole);
  }
  for (const TypeParam value : {TypeParam{0}, -TypeParam{0}, std::numeric_limits<TypeParam>::infinity()}) {
    expect(value);
  }
}

/// The number of significant digits in a decimal text.
int count_digits(std::string_view text) {
  text = text.substr(0, text.find('e'));
  std::string digits;
  for (const char unit : text) {
    if (unit >= '0' && unit <= '9') digits += unit;
  }
  const std::size_t first = digits.find_first_not_of('0');
  if (first == digits.npos) return 0;
  return static_cast<int>(digits.find_last_not_of('0') + 1 - first);
}

TYPED_TEST(write_floating_type, no_text_of_fewer_digits_reads_back) {
  orva_test::random_engine random;
  for (int run = 0; run < 5000; ++run) {
    const auto value = random_value<TypeParam>(random);
    if (value == 0) continue;
    const std::string text = number_text(value);
    const int digits = count_digits(text);
    // A whole number without an exponent may show more than the fewest.
    if (digits < 2 || (text.find_first_of(".e") == text.npos)) continue;
    char fewer[128];
    std::snprintf(fewer, sizeof fewer, "%.*Le", digits - 2, static_cast<long double>(value));
    if (parse_number<TypeParam>(fewer) == value) FAIL() << text << ' ' << fewer;
  }
}

TYPED_TEST(write_floating_type, nan_keeps_its_sign) {
  const TypeParam nan = std::numeric_limits<TypeParam>::quiet_NaN();
  EXPECT_EQ(number_text(std::copysign(nan, TypeParam{1})), "nan");
  EXPECT_EQ(number_text(std::copysign(nan, TypeParam{-1})), "-nan");
  EXPECT_TRUE(std::signbit(*parse_number<TypeParam>("-nan")));
  EXPECT_FALSE(std::signbit(*parse_number<TypeParam>("nan")));
}

TEST(write_number, every_float_on_a_stride_reads_back) {
  orva_test::random_engine random;
  for (std::uint64_t bits = random() % 16381; bits < 0x7F800000; bits += 16381) {
    const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    if (parse_number<float>(number_text(value)) != value) FAIL() << number_text(value);
  }
}

/// The decimal point is a comma, and points group the thousands.
struct swapped_points : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

void expect_point() {
  EXPECT_EQ(number_text(1234.5), "1234.5");
  EXPECT_EQ(number_text(1234.5f), "1234.5");
  EXPECT_EQ(number_text(1234.5L), "1234.5");
  EXPECT_EQ(number_text(12345678901234567890.0L), "12345678901234567890");
  EXPECT_EQ(number_text(1234567), "1234567");
}

TEST(write_number, global_locale_decides_nothing) {
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new swapped_points));
  expect_point();
  std::locale::global(before);
}

TEST(write_number, locale_of_the_c_runtime_decides_nothing) {
  const orva_test::single_byte_locale german("ISO-8859-1", "de_DE");
  if (!german.made()) GTEST_SKIP() << "localedef could not make a German locale";
  expect_point();
}

}  // namespace
