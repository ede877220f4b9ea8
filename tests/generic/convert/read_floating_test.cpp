#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <locale>
#include <memory>
#include <string>
#include <string_view>

#include "orva/generic/convert/read_number.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/random_floating.hpp"
#include "tests/support/reference_read_number.hpp"
#include "tests/support/short_texts.hpp"
#include "tests/support/single_byte_locale.hpp"

namespace {

namespace convert = ORVA_NAMESPACE::generic::convert;
using convert::number_error;
using convert::parse_number;
using convert::read_number;
using ORVA_NAMESPACE::strings::code_unit16;
using ORVA_NAMESPACE::strings::code_unit32;
using orva_test::random_value;

/// Reads with the library from units without a terminator, so that sanitizers detect a read outside them.
template <typename Floating, typename Unit>
auto read_exact_units(const std::basic_string<Unit>& text, unsigned int base) {
  const auto units = std::make_unique<Unit[]>(text.size());
  std::copy(text.begin(), text.end(), units.get());
  return read_number<Floating>(std::basic_string_view<Unit>(units.get(), text.size()), base);
}

template <typename Floating>
bool as_reference(const std::string& text, unsigned int base = 10) {
  return orva_test::same_result(read_exact_units<Floating>(text, base),
                                orva_test::reference_read_floating<Floating>(text, base));
}

bool every_type_as_reference(const std::string& text, unsigned int base = 10) {
  return as_reference<float>(text, base) && as_reference<double>(text, base) &&
         as_reference<long double>(text, base);
}

TEST(read_floating, texts_as_the_reference) {
  for (const char* text : {
           "0",
           "-0",
           "+0.0",
           "00.00e5",
           "0e99999999999999999999",
           "1",
           "007",
           "1.",
           ".1",
           ".",
           "-.",
           "..1",
           "1..2",
           "1.2.3",
           "e5",
           ".e5",
           "1e",
           "1e+",
           "1e-",
           "1e5",
           "1E+5",
           "1e-05x",
           "1e5e5",
           "1e5.5",
           "1 2",
           "1,5",
           "+1",
           "+-1",
           "-+1",
           "--1",
           " 1",
           "i",
           "in",
           "inf",
           "INF",
           "iNfIniT",
           "infinity",
           "-infinityx",
           "n",
           "na",
           "nan",
           "-NaN",
           "nan(",
           "nan(12)",
           "nanx",
           "0x10",
           "1p3",
           "1e400",
           "-1e400",
           "1e-400",
           "-1e-400",
           "1e38",
           "1e39",
           "1e-45",
           "1e-46",
           "1e308",
           "1e309",
           "1e-323",
           "1e-324",
           "2e-324",
           "3e-324",
           "1e4932",
           "1e4933",
           "1e-4950",
           "1e-4951",
           "1e-4952",
           "1e99999999999999999999",
           "-1e99999999999999999999",
           "1e-99999999999999999999",
           "1e9223372036854775807",
           "1e-9223372036854775808",
           "1.7976931348623157e308",
           "1.7976931348623158e308",
           "1.7976931348623159e308",
           "3.4028235e38",
           "3.4028236e38",
           "1.18973149535723176502e4932",
           "1.18973149535723176509e4932",
           "2.2250738585072011e-308",
           "2.2250738585072012e-308",
           "2.2250738585072014e-308",
           "4.9406564584124654e-324",
           "2.4703282292062327e-324",
           "2.4703282292062328e-324",
           "3.6451995318824746e-4951",
           "1.8225997659412373e-4951",
           "9007199254740992",
           "9007199254740993",
           "9007199254740994",
           "9007199254740995",
           "9007199254740993.0000000000000000000000000000000001",
           "18446744073709551615",
           "18446744073709551616",
           "36893488147419103231",
           "36893488147419103232",
           "36893488147419103233",
           "9999999999999999999",
           "99999999999999999999",
           "10000000000000000000000",
           "0.000000000000000000000000000000000001",
           "1234567890123456789",
           "12345678901234567890",
           "123456789.0123456789",
           "8.5070591730234615e37",
           "7.2057594037927933e16",
           "1.00000005960464477539062499999999999999999999999999",
           "1.00000005960464477539062500000000000000000000000000",
           "1.00000005960464477539062500000000000000000000000001",
       }) {
    EXPECT_TRUE(every_type_as_reference(text)) << text;
  }
}

TEST(read_floating, every_short_text_as_the_reference) {
  for (const std::string& text : orva_test::short_texts("-+0.19eExpinfa ", 4)) {
    for (const unsigned int base : {0U, 10U, 16U}) {
      if (!as_reference<double>(text, base)) FAIL() << '"' << text << "\" in radix " << base;
    }
  }
}

std::string random_digits(orva_test::random_engine& random, std::size_t most, unsigned int base = 10) {
  std::string digits(random() % (most + 1), '0');
  for (char& digit : digits) digit = "0123456789abcdefABCDEF"[random() % (base == 10 ? 10 : 22)];
  return digits;
}

/// Mostly numbers in all their forms, and some texts that are nearly numbers.
std::string random_number(orva_test::random_engine& random, unsigned int base = 10) {
  const std::size_t lengths[] = {3, 8, 20, 40};
  std::string text;
  if (random() % 3 == 0) text += "+-"[random() % 2];
  text += random_digits(random, lengths[random() % 4], base);
  if (random() % 2) text += '.' + random_digits(random, lengths[random() % 4], base);
  if (random() % 3 != 0) {
    text += base == 10 ? "eE"[random() % 2] : "pP"[random() % 2];
    if (random() % 2) text += "+-"[random() % 2];
    text += random_digits(random, random() % 8 == 0 ? 5 : 3);
  }
  if (random() % 16 == 0) text.insert(random() % (text.size() + 1), 1, ".eE+-, x\xE4"[random() % 9]);
  return text;
}

TEST(read_floating, random_decimal_texts_as_the_reference) {
  orva_test::random_engine random;
  for (int run = 0; run < 100000; ++run) {
    const std::string text = random_number(random);
    if (!every_type_as_reference(text)) FAIL() << text;
  }
}

TEST(read_floating, random_hexadecimal_texts_as_the_reference) {
  orva_test::random_engine random;
  for (int run = 0; run < 50000; ++run) {
    const std::string text = random_number(random, 16);
    if (!every_type_as_reference(text, 16)) FAIL() << text;
  }
}

TEST(read_floating, hexadecimal_ties_and_limits_as_the_reference) {
  for (const char* text : {
           "1.00000000000008",
           "1.00000000000018",
           "1.000000000000080000000000000000000000000000001",
           "1.000001",
           "1.000003",
           "1.0000000000000001",
           "1.0000000000000003",
           "1.00000000000000010000000000000000000001",
           "ffffffffffffffff",
           "fffffffffffffffff",
           "ffffffffffffffff8",
           "ffffffffffffffff7fffffff",
           "1.fffffffffffff8p1023",
           "1.fffffffffffff7ffp1023",
           "1.ffffffp127",
           "1.fffffefp127",
           "1p-1074",
           "1p-1075",
           "1p-149",
           "1p-150",
           "3p-16446",
           "1p-16445",
           "1p-16446",
           "1.8p-16446",
           "1p16384",
           "1.fffffffffffffffep16383",
           "1.ffffffffffffffffp16383",
           "0.00000000000000000000000000000000001p300",
           "1p99999999999999999999",
           "1p-99999999999999999999",
           "0p99999999999999999999",
           "-.8p",
           ".8p+",
           "1.8p-1x",
           "f.fP2",
       }) {
    EXPECT_TRUE(every_type_as_reference(text, 16)) << text;
    EXPECT_TRUE(every_type_as_reference(std::string("-0x") + text, 0)) << text;
  }
}

// Not every C library sees the last digit.
TEST(read_floating, hexadecimal_text_just_above_half_of_the_least_double_is_the_least_double) {
  const auto above = read_number<double>("1.0000000000000000000001p-1075", 16);
  EXPECT_EQ(above.value, std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(above.error, number_error::none);
}

/// All digits of a value that is not negative.
template <typename Floating>
std::string all_digits(Floating value) {
  const auto exponent = static_cast<int>(std::ceil(std::abs(std::log2(static_cast<long double>(value)))));
  const int decimals = value >= 1 ? 64 : exponent + 70;
  std::string text(static_cast<std::size_t>(exponent + decimals + 32), '\0');
  const int length =
      std::snprintf(text.data(), text.size(), "%.*Lf", decimals, static_cast<long double>(value));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

/// Half the sum of two texts of digits with a point.
std::string mean(std::string left, std::string right) {
  const auto decimals = [](const std::string& text) { return text.size() - text.find('.'); };
  const std::size_t most_decimals = std::max(decimals(left), decimals(right));
  left.append(most_decimals - decimals(left), '0');
  right.append(most_decimals - decimals(right), '0');
  const std::size_t length = std::max(left.size(), right.size()) + 1;
  left.insert(0, length - left.size(), '0');
  right.insert(0, length - right.size(), '0');
  int carry = 0;
  for (std::size_t i = length; i-- > 0;) {
    if (left[i] == '.') continue;
    const int sum = left[i] - '0' + right[i] - '0' + carry;
    left[i] = static_cast<char>('0' + sum % 10);
    carry = sum / 10;
  }
  left.push_back('0');
  int rest = 0;
  for (char& unit : left) {
    if (unit == '.') continue;
    const int dividend = rest * 10 + (unit - '0');
    unit = static_cast<char>('0' + dividend / 2);
    rest = dividend % 2;
  }
  return left;
}

/// The text of a number that is less by one in its last digit. The number is not 0.
std::string decremented(std::string text) {
  std::size_t i = text.size() - 1;
  for (; text[i] == '0' || text[i] == '.'; --i) {
    if (text[i] == '0') text[i] = '9';
  }
  --text[i];
  return text;
}

template <typename Floating>
class read_floating_type : public testing::Test {};
using floatings = testing::Types<float, double, long double>;
TYPED_TEST_SUITE(read_floating_type, floatings);

TYPED_TEST(read_floating_type, digits_beyond_any_count_decide_a_tie) {
  orva_test::random_engine random;
  const int runs = sizeof(TypeParam) > 8 ? 100 : 1000;
  for (int run = 0; run < runs; ++run) {
    const auto value = random_value<TypeParam>(random);
    const TypeParam next = std::nextafter(value, std::numeric_limits<TypeParam>::infinity());
    if (value == 0 || std::isinf(next)) continue;
    const std::string tie = mean(all_digits(value), all_digits(next));
    const TypeParam even = orva_test::runtime_value<TypeParam>(tie);
    EXPECT_TRUE(even == value || even == next);
    EXPECT_EQ(read_number<TypeParam>(tie).value, even) << tie;
    EXPECT_EQ(read_number<TypeParam>(tie + "000").value, even) << tie;
    EXPECT_EQ(read_number<TypeParam>(tie + "0000000000000000000000000000000000000001").value, next) << tie;
    const std::string below = decremented(tie);
    EXPECT_EQ(read_number<TypeParam>(below + "9999999999999999999999999999999999999").value, value) << tie;
  }
}

TYPED_TEST(read_floating_type, every_exponent_with_random_digits_as_the_reference) {
  using limits = std::numeric_limits<TypeParam>;
  orva_test::random_engine random;
  const int least = limits::min_exponent10 - limits::digits10 - 25;
  for (int exponent = least; exponent <= limits::max_exponent10 + 2; ++exponent) {
    for (const std::size_t count : {std::size_t{1}, std::size_t{17}, std::size_t{19}, std::size_t{21}}) {
      const std::string text = '1' + random_digits(random, count) + 'e' + std::to_string(exponent);
      if (!as_reference<TypeParam>(text)) FAIL() << text;
    }
  }
}

TYPED_TEST(read_floating_type, random_values_read_back) {
  using limits = std::numeric_limits<TypeParam>;
  orva_test::random_engine random;
  for (int run = 0; run < 30000; ++run) {
    const auto value = random_value<TypeParam>(random);
    char text[128];
    for (const char* format : {"%.*Le", "%.*Lg"}) {
      std::snprintf(text, sizeof text, format, limits::max_digits10, static_cast<long double>(value));
      if (parse_number<TypeParam>(text) != value) FAIL() << text;
    }
    const auto end = std::to_chars(text, text + sizeof text, value).ptr;
    if (parse_number<TypeParam>(std::string_view(text, end)) != value) FAIL() << std::string(text, end);
  }
}

TYPED_TEST(read_floating_type, limits_read_back_and_half_beyond_them_is_out_of_range) {
  using limits = std::numeric_limits<TypeParam>;
  for (const TypeParam value : {limits::max(), limits::min(), limits::denorm_min(),
                                std::nextafter(limits::min(), TypeParam{0}), limits::epsilon()}) {
    EXPECT_EQ(parse_number<TypeParam>(all_digits(value)), value);
    EXPECT_EQ(parse_number<TypeParam>('-' + all_digits(value)), -value);
  }
  const std::string half = mean(all_digits(limits::denorm_min()), "0.0");
  EXPECT_EQ(read_number<TypeParam>(half).error, number_error::too_small);
  EXPECT_EQ(parse_number<TypeParam>(half + '1'), limits::denorm_min());
}

TEST(read_floating, every_float_on_a_stride_reads_back) {
  orva_test::random_engine random;
  for (std::uint64_t bits = random() % 16381; bits < 0x7F800000; bits += 16381) {
    const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    char text[64];
    const auto end = std::to_chars(text, text + sizeof text, value).ptr;
    if (parse_number<float>(std::string_view(text, end)) != value) FAIL() << std::string(text, end);
  }
}

TEST(read_floating, random_bits_of_a_double_read_back_from_17_digits) {
  orva_test::random_engine random;
  for (int run = 0; run < 50000; ++run) {
    const auto value = std::bit_cast<double>(random.bits64());
    if (!std::isfinite(value)) continue;
    char text[64];
    std::snprintf(text, sizeof text, "%.17g", value);
    if (parse_number<double>(text) != value) FAIL() << text;
  }
}

TEST(read_floating, very_long_texts_are_read_in_time) {
  const std::string zeros(1'000'000, '0');
  const std::string sevens(1'000'000, '7');
  const auto expect = [](const std::string& text, long double value) {
    EXPECT_EQ(parse_number<float>(text), static_cast<float>(value));
    EXPECT_EQ(parse_number<double>(text), static_cast<double>(value));
    EXPECT_EQ(parse_number<long double>(text), value);
  };
  expect("0." + sevens, 7.0L / 9);
  expect("0." + zeros + "125e1000000", 0.125L);
  expect("0." + zeros + "1e1000001", 1);
  expect('1' + zeros + "e-1000000", 1);
  expect('1' + zeros + '.' + zeros + "e-1000000", 1);
  expect('-' + zeros + "2.5", -2.5L);
  expect('0' + zeros + "e" + sevens, 0);
  EXPECT_EQ(read_number<double>("1e" + sevens).error, number_error::too_large);
  EXPECT_EQ(read_number<double>("1e-" + sevens).error, number_error::too_small);
  EXPECT_EQ(read_number<double>("1e" + sevens).length, sevens.size() + 2);
  EXPECT_EQ(read_number<long double>(sevens).error, number_error::too_large);
}

TEST(read_floating, number_with_the_most_digits_as_the_reference) {
  orva_test::random_engine random;
  for (const unsigned int count : {113U, 769U, 2000U, 11516U, 12000U, 20000U}) {
    for (const int exponent : {0, -4950, 300, -400}) {
      std::string digits(count, '0');
      for (char& digit : digits) digit = static_cast<char>('0' + random() % 10);
      const std::string text = "1." + digits + 'e' + std::to_string(exponent);
      EXPECT_TRUE(every_type_as_reference(text)) << count << " digits, exponent " << exponent;
    }
  }
}

template <typename Unit>
class read_wide_floating : public testing::Test {};
using wide_units = testing::Types<code_unit16, code_unit32>;
TYPED_TEST_SUITE(read_wide_floating, wide_units);

TYPED_TEST(read_wide_floating, text_reads_as_that_of_bytes) {
  orva_test::random_engine random;
  for (int run = 0; run < 30000; ++run) {
    const unsigned int base = run % 4 == 0 ? 16 : 10;
    std::string text = random_number(random, base);
    if (run % 16 == 0) text = text.substr(0, 1) + (run % 32 == 0 ? "nan" : "INFinity");
    std::basic_string<TypeParam> wide;
    for (const char unit : text) wide.push_back(static_cast<TypeParam>(static_cast<unsigned char>(unit)));
    if (!orva_test::same_result(read_exact_units<double>(wide, base), read_exact_units<double>(text, base)) ||
        !orva_test::same_result(read_exact_units<long double>(wide, base),
                                read_exact_units<long double>(text, base))) {
      FAIL() << text;
    }
  }
}

/// The decimal point is a comma, and points group the thousands.
struct swapped_points : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

template <typename Floating>
void expect_point() {
  EXPECT_EQ(parse_number<Floating>("1.5"), Floating{1.5});
  EXPECT_EQ(parse_number<Floating>("1234.5e2"), Floating{123450});
  EXPECT_EQ(read_number<Floating>("1,5").length, 1U);
  EXPECT_EQ(parse_number<Floating>("0." + std::string(1000, '0') + "25e1000"), Floating{0.25});
  EXPECT_EQ(parse_number<Floating>("1.8p1", 16), Floating{3});
}

TEST(read_floating, global_locale_decides_nothing) {
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new swapped_points));
  expect_point<float>();
  expect_point<double>();
  expect_point<long double>();
  std::locale::global(before);
}

TEST(read_floating, locale_of_the_c_runtime_decides_nothing) {
  const orva_test::single_byte_locale german("ISO-8859-1", "de_DE");
  if (!german.made()) GTEST_SKIP() << "localedef could not make a German locale";
  expect_point<float>();
  expect_point<double>();
  expect_point<long double>();
}

}  // namespace
