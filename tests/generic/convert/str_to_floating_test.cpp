#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <locale>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>

#include "orva/generic/convert/str_to_x.hpp"
#include "orva/strings/ustring.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/short_texts.hpp"
#include "tests/support/single_byte_locale.hpp"

namespace {

namespace convert = ORVA_NAMESPACE::generic::convert;

template <typename Floating>
Floating from_stream(const std::string& text, const std::locale& locale = std::locale()) {
  std::stringstream stream(text);
  stream.imbue(locale);
  Floating value = 0;
  stream >> value;
  return stream.fail() || stream.bad() ? 0 : value;
}

/// Whether both are the same number, with the same sign also if they are 0.
template <typename Floating>
bool same(Floating left, Floating right) {
  return left == right && std::signbit(left) == std::signbit(right);
}

void expect_as_stream(const std::string& text) {
  // A copy of the exact size, so that sanitizers detect a read outside it.
  const auto bytes = std::make_unique<char[]>(text.size());
  std::copy(text.begin(), text.end(), bytes.get());
  const std::string_view view(bytes.get(), text.size());
  EXPECT_TRUE(same(convert::str_to_float(view), from_stream<float>(text))) << text;
  EXPECT_TRUE(same(convert::str_to_double(view), from_stream<double>(text))) << text;
  EXPECT_TRUE(same(convert::str_to_long_double(view), from_stream<long double>(text))) << text;
}

TEST(str_to_floating, documentation_example) {
  EXPECT_EQ(convert::str_to_double("1e3"), 1000.0);
  EXPECT_EQ(convert::str_to_double("12abc"), 12.0);
  EXPECT_EQ(convert::str_to_double("12e"), 0.0);
  EXPECT_EQ(convert::str_to_double("1e400"), 0.0);
  EXPECT_EQ(convert::str_to_double("abc"), 0.0);
  EXPECT_EQ(convert::str_to_double(""), 0.0);
}

TEST(str_to_floating, every_string_class_of_bytes_is_taken) {
  EXPECT_EQ(convert::str_to_float(ORVA_NAMESPACE::strings::ustring8("0.5")), 0.5f);
  EXPECT_EQ(convert::str_to_double(std::string("0.5")), 0.5);
  EXPECT_EQ(convert::str_to_long_double("0.5"), 0.5L);
  EXPECT_EQ(convert::str_to_double(std::string_view()), 0.0);
}

TEST(str_to_floating, odd_texts_read_as_by_a_stream) {
  for (const char* text : {"",
                           " ",
                           "-",
                           "+",
                           ".",
                           "-.",
                           "e",
                           "e5",
                           ".e5",
                           "1",
                           "+1",
                           "-1",
                           "+-1",
                           "--1",
                           " \t\n\v\f\r1",
                           "- 1",
                           "1 2",
                           "0",
                           "-0",
                           "-0.0",
                           "00",
                           "007",
                           "0.5",
                           ".5",
                           "5.",
                           "5.e1",
                           "-.5",
                           "1.2.3",
                           "1e5",
                           "1E5",
                           "1e+5",
                           "1e-5",
                           "1e+-5",
                           "1e",
                           "1e+",
                           "1e-",
                           "1ee5",
                           "1e5e5",
                           "1e5.5",
                           "1e 5",
                           "1.e",
                           ".5e",
                           "1,000",
                           "1,000.5",
                           "1'000",
                           "0x10",
                           "0x1p3",
                           "0X1F",
                           "1p3",
                           "inf",
                           "-inf",
                           "INFINITY",
                           "nan",
                           "nan(1)",
                           "12abc",
                           "12e3abc",
                           "1e400",
                           "-1e400",
                           "1e-400",
                           "-1e-400",
                           "1e38",
                           "1e39",
                           "1e308",
                           "1e309",
                           "1e-45",
                           "1e-46",
                           "1e-310",
                           "1e-324",
                           "2e-324",
                           "4.9e-324",
                           "1e4932",
                           "1e4933",
                           "1e-4951",
                           "1e-4952",
                           "1e99999999999999999999",
                           "-1e99999999999999999999",
                           "1e-99999999999999999999",
                           "0e99999999999999999999",
                           "1.7976931348623157e308",
                           "1.7976931348623159e308",
                           "3.4028235e38",
                           "3.4028236e38",
                           "9007199254740993",
                           "9007199254740993.0000000000000000000001",
                           "18446744073709551615",
                           "18446744073709551616",
                           "9999999999999999999",
                           "0.000000000000000001",
                           "1234567890123456789",
                           "123456789.0123456789",
                           "\xC2\xA0"
                           "1",
                           "\xA0"
                           "1",
                           "1\xE2\x82\xAC",
                           "\xEF\xBB\xBF"
                           "1"}) {
    expect_as_stream(text);
  }
  expect_as_stream(std::string("1\0002", 3));
  expect_as_stream(std::string("\0001", 2));
}

TEST(str_to_floating, every_short_text_as_by_a_stream) {
  for (const std::string& text : orva_test::short_texts(" +-01.eExn,", 4)) {
    if (!same(convert::str_to_double(text), from_stream<double>(text))) FAIL() << text;
  }
}

std::string random_digits(orva_test::random_engine& random, unsigned int most) {
  std::string digits(random() % (most + 1), '0');
  for (char& digit : digits) digit = static_cast<char>('0' + random() % 10);
  return digits;
}

/// Mostly numbers in all their forms, and some texts that are nearly numbers.
std::string random_number(orva_test::random_engine& random) {
  const unsigned int lengths[] = {3, 8, 20, 40};
  std::string text;
  if (random() % 8 == 0) text += " \t\n"[random() % 3];
  if (random() % 3 == 0) text += "+-"[random() % 2];
  text += random_digits(random, lengths[random() % 4]);
  if (random() % 2) text += '.' + random_digits(random, lengths[random() % 4]);
  if (random() % 3 == 0) {
    text += "eE"[random() % 2];
    if (random() % 2) text += "+-"[random() % 2];
    text += random_digits(random, 3);
  }
  if (random() % 16 == 0) text.insert(random() % (text.size() + 1), 1, ".eE+-, x\xE4"[random() % 9]);
  return text;
}

TEST(str_to_floating, a_million_readings_as_by_a_stream) {
  orva_test::random_engine random;
  std::stringstream stream;
  for (int run = 0; run < 340000; ++run) {
    const std::string text = random_number(random);
    const auto same_as_stream = [&](auto value) {
      decltype(value) expected = 0;
      stream.clear();
      stream.str(text);
      stream >> expected;
      return same(value, stream.fail() ? decltype(value){0} : expected);
    };
    if (!same_as_stream(convert::str_to_double(text)) || !same_as_stream(convert::str_to_float(text)) ||
        !same_as_stream(convert::str_to_long_double(text))) {
      FAIL() << text;
    }
  }
}

TEST(str_to_floating, shortest_and_longest_forms_of_random_doubles_read_back) {
  orva_test::random_engine random;
  for (int run = 0; run < 20000; ++run) {
    const auto value = std::bit_cast<double>(random.bits64());
    if (!std::isfinite(value)) continue;
    char text[64];
    std::snprintf(text, sizeof text, "%.17g", value);
    EXPECT_EQ(convert::str_to_double(text), value) << text;
  }
}

TEST(str_to_floating, very_long_texts_are_read_in_time) {
  const std::string sevens(1'000'000, '7');
  const auto expect = [](const std::string& text, long double value) {
    EXPECT_EQ(convert::str_to_float(text), static_cast<float>(value));
    EXPECT_EQ(convert::str_to_double(text), static_cast<double>(value));
    EXPECT_EQ(convert::str_to_long_double(text), value);
  };
  expect("0." + sevens, 7.0L / 9);
  expect("1e" + sevens, 0);
  for (const char unit : {' ', '0'}) {
    std::string text(1'000'001, unit);
    text.back() = '1';
    expect(text, 1);
  }
}

TEST(str_to_floating, digit_after_a_million_others_decides_a_tie) {
  // Half of the distance between 1 and the next number, in all its digits; then a little more.
  const std::string half_double = "1.00000000000000011102230246251565404236316680908203125";
  const std::string half_long_double = "1.0000000000000000000542101086242752217003726400434970855712890625";
  const std::string zeros(1'000'000, '0');
  EXPECT_EQ(convert::str_to_double(half_double + zeros), 1);
  EXPECT_EQ(convert::str_to_double(half_double + zeros + '1'), std::nextafter(1.0, 2.0));
  if (std::numeric_limits<long double>::digits != 64) GTEST_SKIP() << "half of another distance";
  EXPECT_EQ(convert::str_to_long_double(half_long_double + zeros), 1);
  EXPECT_EQ(convert::str_to_long_double(half_long_double + zeros + '1'), std::nextafter(1.0L, 2.0L));
  EXPECT_EQ(convert::str_to_long_double('1' + zeros + '.' + zeros + "e-1000000"), 1);
}

/// The decimal point is a comma, and points group the thousands.
struct swapped_points : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(str_to_floating, given_locale_chooses_point_and_grouping) {
  const std::locale locale(std::locale::classic(), new swapped_points);
  EXPECT_EQ(convert::str_to_double("1.234,5", locale), 1234.5);
  EXPECT_EQ(convert::str_to_float("1,5", locale), 1.5f);
  EXPECT_EQ(convert::str_to_long_double("1,5", locale), 1.5L);
  EXPECT_EQ(convert::str_to_double("1.23,5", locale), 0.0);
  for (const char* text : {"1.234,5", "12.34", "1,2,3", ".5", ",5", "1..2", "-1.234.567", "1e3", "1e"}) {
    EXPECT_TRUE(same(convert::str_to_double(text, locale), from_stream<double>(text, locale))) << text;
  }
}

TEST(str_to_floating, without_a_locale_the_global_one_is_taken) {
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new swapped_points));
  const double global = convert::str_to_double("1.234,5");
  const double classic = convert::str_to_double("1.234,5", std::locale::classic());
  std::locale::global(before);
  EXPECT_EQ(global, 1234.5);
  EXPECT_EQ(classic, 1.234);
}

TEST(str_to_floating, locale_of_the_c_runtime_decides_nothing) {
  const orva_test::single_byte_locale german("ISO-8859-1", "de_DE");
  if (!german.made()) GTEST_SKIP() << "localedef could not make a German locale";
  EXPECT_EQ(convert::str_to_double("1.5"), 1.5);
  EXPECT_EQ(convert::str_to_double("1,5"), 1.0);
  EXPECT_EQ(convert::str_to_float("1.5e1"), 15.0f);
  EXPECT_EQ(convert::str_to_long_double("1.5"), 1.5L);
  EXPECT_EQ(convert::str_to_long_double("1.5e1"), 15.0L);
  EXPECT_EQ(convert::str_to_double("1e400"), 0.0);
}

}  // namespace
