/// All conversions: every accessor of every stored type, compared with an independent reference.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

#include "orva/types/variant.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_conversion.hpp"
#include "tests/support/sign_of_nan.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using orva_test::integer_form;
using orva_test::wide;
using orva_test::with_sign_of_nan;
using strings::code_unit16;
using strings::code_unit32;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using strings::wide_string;
using types::variant;

std::string decimal(wide number) {
  if (number < 0) return "-" + decimal(-number);
  if (number > 9) return decimal(number / 10) + static_cast<char>('0' + static_cast<int>(number % 10));
  return std::string(1, static_cast<char>('0' + static_cast<int>(number)));
}

template <typename Unit>
std::basic_string<Unit> widened(const std::string& text) {
  std::basic_string<Unit> result;
  for (const char byte : text) result += static_cast<Unit>(static_cast<unsigned char>(byte));
  return result;
}

template <typename Reference>
void expect_signed(const variant& value, Reference reference) {
  const auto expected = [&](int bits) { return decimal(reference(integer_form{bits, true})); };
  EXPECT_EQ(decimal(value.as_int8()), expected(8));
  EXPECT_EQ(decimal(value.as_int16()), expected(16));
  EXPECT_EQ(decimal(value.as_short()), expected(16));
  EXPECT_EQ(decimal(value.as_int32()), expected(32));
  EXPECT_EQ(decimal(value.as_long()), expected(32));
  EXPECT_EQ(decimal(value.as_int()), expected(32));
  EXPECT_EQ(decimal(value.as_signed()), expected(32));
  EXPECT_EQ(decimal(value.as_int64()), expected(64));
}

template <typename Reference>
void expect_unsigned(const variant& value, Reference reference) {
  const auto expected = [&](int bits) { return decimal(reference(integer_form{bits, false})); };
  EXPECT_EQ(decimal(value.as_uint8()), expected(8));
  EXPECT_EQ(decimal(value.as_uint16()), expected(16));
  EXPECT_EQ(decimal(value.as_uint32()), expected(32));
  EXPECT_EQ(decimal(value.as_uint64()), expected(64));
}

/// The unsigned accessors without a width use the signed ones.
template <typename Reference>
void expect_aliases(const variant& value, Reference reference) {
  const auto expected = [&](int bits) {
    return decimal(orva_test::cut(reference(integer_form{bits, true}), {bits, false}));
  };
  EXPECT_EQ(decimal(value.as_uint()), expected(32));
  EXPECT_EQ(decimal(value.as_unsigned()), expected(32));
  EXPECT_EQ(decimal(value.as_ulong()), expected(32));
  EXPECT_EQ(decimal(value.as_ushort()), expected(16));
}

template <typename Reference>
void expect_integers(const variant& value, Reference reference) {
  expect_signed(value, reference);
  expect_unsigned(value, reference);
  expect_aliases(value, reference);
}

void expect_text(const variant& value, const std::string& text) {
  EXPECT_EQ(value.as_string(), text);
  EXPECT_EQ(value.as_utf8(), text);
  EXPECT_EQ(value.as_wstring(), widened<code_unit16>(text));
  EXPECT_EQ(value.as_ustring(), widened<code_unit16>(text));
  EXPECT_EQ(value.as_utf16(), widened<code_unit16>(text));
  EXPECT_EQ(value.as_utf32(), widened<code_unit32>(text));
}

// Integers.

template <typename T>
class variant_of_integer : public testing::Test {
 public:
  static std::vector<T> boundaries() {
    std::vector<T> values = {0, 1, static_cast<T>(-1), std::numeric_limits<T>::min(),
                             std::numeric_limits<T>::max()};
    for (int bit = 1; bit < std::numeric_limits<T>::digits; ++bit) {
      const auto power = static_cast<T>(static_cast<T>(1) << bit);
      for (const int step : {-1, 0, 1}) {
        values.push_back(static_cast<T>(power + static_cast<T>(step)));
        values.push_back(static_cast<T>(static_cast<T>(0) - power + static_cast<T>(step)));
      }
    }
    return values;
  }
};

using integer_types = testing::Types<signed char, unsigned char, short, unsigned short, int, unsigned int,
                                     long, unsigned long, long long, unsigned long long>;
TYPED_TEST_SUITE(variant_of_integer, integer_types);

TYPED_TEST(variant_of_integer, is_cut_to_the_low_bits_in_every_integer) {
  for (const TypeParam stored : TestFixture::boundaries()) {
    SCOPED_TRACE(decimal(stored));
    expect_integers(stored, [stored](integer_form form) { return orva_test::cut(stored, form); });
  }
}

TYPED_TEST(variant_of_integer, is_true_unless_zero) {
  for (const TypeParam stored : TestFixture::boundaries()) {
    EXPECT_EQ(variant(stored).as_bool(), stored != 0) << decimal(stored);
  }
}

TYPED_TEST(variant_of_integer, rounds_to_every_floating_type) {
  for (const TypeParam stored : TestFixture::boundaries()) {
    SCOPED_TRACE(decimal(stored));
    const auto exact = static_cast<long double>(stored);
    EXPECT_EQ(variant(stored).as_float(), static_cast<float>(exact));
    EXPECT_EQ(variant(stored).as_double(), static_cast<double>(exact));
    EXPECT_EQ(variant(stored).as_long_double(), exact);
  }
}

TYPED_TEST(variant_of_integer, is_written_in_decimal_in_every_width) {
  for (const TypeParam stored : TestFixture::boundaries()) expect_text(stored, decimal(stored));
}

// bool.

TEST(variant_of_bool, is_one_or_zero_everywhere) {
  for (const bool stored : {false, true}) {
    const int number = stored ? 1 : 0;
    expect_integers(stored, [number](integer_form) { return wide{number}; });
    EXPECT_EQ(variant(stored).as_bool(), stored);
    EXPECT_EQ(variant(stored).as_float(), static_cast<float>(number));
    EXPECT_EQ(variant(stored).as_double(), number);
    EXPECT_EQ(variant(stored).as_long_double(), number);
    expect_text(stored, stored ? "1" : "0");
  }
}

TEST(variant_of_nil, is_zero_everywhere) {
  expect_integers(variant(), [](integer_form) { return wide{0}; });
  EXPECT_EQ(variant().as_float(), 0.0F);
  EXPECT_EQ(variant().as_long_double(), 0.0L);
  expect_text(variant(), "");
}

// Floating values.

template <typename T>
class variant_of_floating : public testing::Test {
 public:
  /// Values around each power of two and each limit of an integer type, infinities and NaN.
  static std::vector<T> boundaries() {
    using limits = std::numeric_limits<T>;
    std::vector<T> values = {0,
                             static_cast<T>(-0.0),
                             limits::min(),
                             limits::denorm_min(),
                             limits::max(),
                             limits::infinity(),
                             limits::quiet_NaN(),
                             static_cast<T>(0.5),
                             static_cast<T>(1.9)};
    for (int exponent = -2; exponent <= 70; ++exponent) {
      const T power = std::ldexp(T{1}, exponent);
      for (const T value :
           {power, std::nextafter(power, T{0}), std::nextafter(power, limits::max()), power - T{1},
            power + T{1}, power - static_cast<T>(0.5), power + static_cast<T>(0.5)}) {
        values.push_back(value);
      }
    }
    const std::size_t positive = values.size();
    for (std::size_t i = 0; i < positive; ++i) values.push_back(-values[i]);
    return values;
  }
};

using floating_types = testing::Types<float, double, long double>;
TYPED_TEST_SUITE(variant_of_floating, floating_types);

TYPED_TEST(variant_of_floating, is_truncated_into_every_integer_and_defined_beyond_its_range) {
  for (const TypeParam stored : TestFixture::boundaries()) {
    SCOPED_TRACE(stored);
    expect_integers(stored, [stored](integer_form form) { return orva_test::truncate(stored, form); });
  }
}

TYPED_TEST(variant_of_floating, is_true_unless_zero) {
  for (const TypeParam stored : TestFixture::boundaries()) {
    EXPECT_EQ(variant(stored).as_bool(), std::isnan(stored) || stored < 0 || stored > 0) << stored;
  }
}

template <typename T>
void expect_same(T actual, T expected) {
  if (std::isnan(expected)) {
    EXPECT_TRUE(std::isnan(actual));
  } else {
    EXPECT_EQ(actual, expected);
    EXPECT_EQ(std::signbit(actual), std::signbit(expected));
  }
}

TYPED_TEST(variant_of_floating, widens_exactly_and_narrows_by_rounding) {
  for (const TypeParam stored : TestFixture::boundaries()) {
    SCOPED_TRACE(stored);
    expect_same(variant(stored).as_float(), static_cast<float>(stored));
    expect_same(variant(stored).as_double(), static_cast<double>(stored));
    expect_same(variant(stored).as_long_double(), static_cast<long double>(stored));
  }
}

TYPED_TEST(variant_of_floating, text_is_what_a_stream_writes_in_every_width) {
  for (const TypeParam stored : TestFixture::boundaries()) {
    std::ostringstream stream;
    stream << stored;
    expect_text(stored, with_sign_of_nan(stored, stream.str()));
  }
}

TEST(variant_of_double, beyond_the_range_of_an_integer_gives_the_results_of_x86) {
  const variant huge(1e30);
  EXPECT_EQ(huge.as_int32(), std::numeric_limits<types::int32>::min());
  EXPECT_EQ(huge.as_int64(), std::numeric_limits<long long>::min());
  EXPECT_EQ(huge.as_int16(), 0);
  EXPECT_EQ(huge.as_uint8(), 0);
  EXPECT_EQ(huge.as_uint32(), 0U);
  EXPECT_EQ(huge.as_uint64(), 0x8000000000000000U);
  EXPECT_EQ(variant(-1.0).as_uint32(), 4294967295U);
  EXPECT_EQ(variant(-1.0).as_uint64(), 18446744073709551615U);
  EXPECT_EQ(variant(4294967296.0).as_uint32(), 0U);
  EXPECT_EQ(variant(3e9).as_uint32(), 3000000000U);
  EXPECT_EQ(variant(3e9).as_uint(), 0x80000000U);
  EXPECT_EQ(variant(18e18).as_uint64(), 18000000000000000000U);
  EXPECT_EQ(variant(std::nan("")).as_int32(), std::numeric_limits<types::int32>::min());
  EXPECT_EQ(variant(70000.0).as_int16(), 4464);
}

/// Values that a stream writes in all its forms: random bits, and random decimals of few digits.
std::vector<double> random_values(orva_test::random_engine& random, int count) {
  std::vector<double> values;
  for (int i = 0; i < count; ++i) {
    double from_bits = 0;
    const std::uint64_t bits = random.bits64();
    std::memcpy(&from_bits, &bits, sizeof from_bits);
    values.push_back(from_bits);
    const auto digits = static_cast<double>(static_cast<std::int64_t>(random() % 20'000'000) - 10'000'000);
    values.push_back(digits * std::pow(10.0, static_cast<int>(random() % 24) - 12));
  }
  return values;
}

TEST(variant_of_double, text_is_what_a_stream_writes_for_random_values) {
  orva_test::random_engine random;
  std::ostringstream stream;
  for (const double stored : random_values(random, 250'000)) {
    stream.str("");
    stream << stored;
    ASSERT_EQ(variant(stored).as_string(), with_sign_of_nan(stored, stream.str()));
    stream.str("");
    stream << static_cast<float>(stored);
    ASSERT_EQ(variant(static_cast<float>(stored)).as_string(), with_sign_of_nan(stored, stream.str()));
  }
}

TEST(variant_of_double, integers_are_those_of_the_reference_for_random_values) {
  orva_test::random_engine random;
  for (const double stored : random_values(random, 2'000)) {
    SCOPED_TRACE(stored);
    expect_integers(stored, [stored](integer_form form) { return orva_test::truncate(stored, form); });
    if (testing::Test::HasFailure()) return;
  }
}

/// Sets the global locale for as long as the object lives.
class global_locale {
 public:
  explicit global_locale(const std::locale& place) : before_(std::locale::global(place)) {}
  ~global_locale() { std::locale::global(before_); }
  global_locale(const global_locale&) = delete;
  global_locale& operator=(const global_locale&) = delete;

 private:
  std::locale before_;
};

class decimal_comma : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '\xA0'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(variant_of_double, text_follows_the_global_locale) {
  const global_locale comma(std::locale(std::locale::classic(), new decimal_comma));
  EXPECT_EQ(variant(0.5).as_string(), "0,5");
  EXPECT_EQ(variant(0.5F).as_string(), "0,5");
  expect_text(1234.5,
              "1\xA0"
              "234,5");
}

TEST(variant_of_double, integers_know_no_locale) {
  const global_locale comma(std::locale(std::locale::classic(), new decimal_comma));
  EXPECT_EQ(variant(1234567).as_string(), "1234567");
}

// Text.

/// The same text in each of the five classes that hold text.
std::array<variant, 5> in_every_class(const std::string& text) {
  return {variant(ustring8(text)), variant(text), variant(ustring16(widened<code_unit16>(text))),
          variant(wide_string(widened<code_unit16>(text))), variant(ustring32(widened<code_unit32>(text)))};
}

void expect_leading_number(const std::string& text) {
  SCOPED_TRACE(text);
  const wide number = orva_test::leading_number(text);
  for (const variant& value : in_every_class(text)) {
    expect_integers(value, [number](integer_form form) { return orva_test::saturate(number, form); });
  }
}

TEST(variant_of_text, saturates_at_the_limits_of_every_integer) {
  for (const int bits : {7, 8, 15, 16, 31, 32, 63, 64, 90}) {
    for (const int step : {-2, -1, 0, 1, 2}) {
      const std::string magnitude = decimal(orva_test::power_of_two(bits) + step);
      expect_leading_number(magnitude);
      expect_leading_number("-" + magnitude);
      expect_leading_number("+" + magnitude);
    }
  }
}

TEST(variant_of_text, reads_the_number_that_it_begins_with) {
  for (const char* text : {"",
                           "0",
                           "-0",
                           "+0",
                           "1",
                           "12abc",
                           "abc",
                           "0x1F",
                           "0X1f",
                           "0xZ",
                           "0x",
                           "0b101",
                           "0B11",
                           "0b",
                           "0b2",
                           "010",
                           "09",
                           "\\x1F",
                           "\\b11",
                           "\\17",
                           "\\",
                           "  42",
                           " \t-7",
                           "-  42",
                           "--5",
                           "+-5",
                           "5-",
                           "1,000",
                           "1.9",
                           "-1.9",
                           "1e3",
                           "   ",
                           "-",
                           "+",
                           "-0x10",
                           "+0b11",
                           "x10",
                           "yes",
                           "0 1",
                           "7 8",
                           "0xFFFFFFFF",
                           "-0xFFFFFFFFFFFFFFFFFF",
                           "0b11111111111111111",
                           "037777777777777777777777"}) {
    expect_leading_number(text);
  }
}

TEST(variant_of_text, ends_its_number_at_a_zero_or_a_wide_digit) {
  EXPECT_EQ(variant(std::string("1\0002", 3)).as_int32(), 1);
  EXPECT_EQ(variant(ustring16{'1', 0x0662}).as_int32(), 1);
  EXPECT_EQ(variant(ustring16{0x0131, '2'}).as_int32(), 0);
  EXPECT_EQ(variant(ustring32{'1', 0x10032}).as_int32(), 1);
}

TEST(variant_of_text, documentation_example) {
  EXPECT_EQ(variant("0x1F").as_int32(), 31);
  EXPECT_EQ(variant("12abc").as_int32(), 12);
  EXPECT_EQ(variant("abc").as_int32(), 0);
  EXPECT_EQ(variant("010").as_int32(), 8);
  EXPECT_EQ(variant("0b101").as_int32(), 5);
  EXPECT_EQ(variant("  42").as_int32(), 42);
  EXPECT_EQ(variant("300").as_int8(), 127);
  EXPECT_EQ(variant("-300").as_int8(), -128);
  EXPECT_EQ(variant("300").as_uint8(), 255);
  EXPECT_EQ(variant("-1").as_uint32(), 0U);
  EXPECT_EQ(variant(300).as_int8(), 44);
  EXPECT_EQ(variant(-1).as_uint64(), 18446744073709551615U);
  EXPECT_EQ(variant(-1.9).as_int32(), -1);
  EXPECT_EQ(variant(0.5).as_int32(), 0);
  EXPECT_EQ(variant(true).as_string(), "1");
  EXPECT_EQ(variant(1.5F).as_string(), "1.5");
  EXPECT_EQ(variant(1234567.0).as_string(), "1.23457e+06");
}

TEST(variant_of_text, unsigned_names_without_a_width_read_through_the_signed_accessor) {
  EXPECT_EQ(variant("4000000000").as_uint32(), 4000000000U);
  EXPECT_EQ(variant("4000000000").as_uint(), 2147483647U);
  EXPECT_EQ(variant("4000000000").as_unsigned(), 2147483647U);
  EXPECT_EQ(variant("4000000000").as_ulong(), 2147483647U);
  EXPECT_EQ(variant("60000").as_ushort(), 32767);
  EXPECT_EQ(variant("-1").as_uint(), 4294967295U);
}

TEST(variant_of_text, floating_values_are_read_as_a_stream_does) {
  const struct {
    const char* text;
    double value;
  } rows[] = {{"1.5", 1.5}, {"  -2.25x", -2.25}, {"1e3", 1000}, {"12abc", 12}, {"abc", 0},
              {"", 0},      {"x1", 0},           {".5", 0.5},   {"+7", 7},     {"1e400", 0},
              {"yes", 0},   {"-0.5", -0.5},      {"1e", 0},     {"1.", 1},     {"-", 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    std::istringstream stream(row.text);
    double read = 0;
    EXPECT_EQ(stream >> read ? read : 0.0, row.value);
    for (const variant& value : in_every_class(row.text)) {
      EXPECT_EQ(value.as_double(), row.value);
      EXPECT_EQ(value.as_float(), static_cast<float>(row.value));
    }
  }
}

TEST(variant_of_text, floating_values_are_read_in_the_width_that_is_asked_for) {
  for (const variant& value : in_every_class("1e300")) {
    EXPECT_EQ(value.as_float(), 0.0F);
    EXPECT_EQ(value.as_double(), 1e300);
  }
  for (const variant& value : in_every_class("0.1")) {
    EXPECT_EQ(value.as_float(), 0.1F);
    EXPECT_EQ(value.as_long_double(), 0.1L);
  }
}

TEST(variant_of_text, true_words_and_numbers_are_true) {
  const struct {
    const char* text;
    bool answer;
  } rows[] = {{"yes", true},  {"Yes", true},    {"YES", true}, {"on", true},     {"oN", true},
              {"true", true}, {"TRUE", true},   {"1", true},   {"2", true},      {"0x10", true},
              {"-1", true},   {" 7", true},     {"1no", true}, {"", false},      {"no", false},
              {"off", false}, {"false", false}, {"0", false},  {" yes", false},  {"yes ", false},
              {"on!", false}, {"tru", false},   {"y", false},  {"trues", false}, {"0x0", false},
              {"0.9", false}, {"o", false},     {"00", false}, {"\x80n", false}, {"xn", false}};
  for (const auto& row : rows) {
    for (const variant& value : in_every_class(row.text)) EXPECT_EQ(value.as_bool(), row.answer) << row.text;
  }
}

TEST(variant_of_text, every_case_of_a_true_word_is_true) {
  for (const std::string word : {"yes", "on", "true"}) {
    for (unsigned int capitals = 0; capitals < (1U << word.size()); ++capitals) {
      std::string text = word;
      for (std::size_t i = 0; i < text.size(); ++i) {
        if ((capitals >> i) & 1U) text[i] = static_cast<char>(text[i] - 'a' + 'A');
      }
      for (const variant& value : in_every_class(text)) EXPECT_TRUE(value.as_bool()) << text;
    }
  }
}

TEST(variant_of_text, no_single_unit_beside_the_letters_makes_a_true_word) {
  for (unsigned int unit = 1; unit < 0x400; ++unit) {
    const bool is_letter = unit == 'o' || unit == 'O';
    const bool is_digit = unit >= '1' && unit <= '9';
    EXPECT_EQ(variant(ustring16{static_cast<code_unit16>(unit), 'n'}).as_bool(), is_letter || is_digit)
        << unit;
    EXPECT_EQ(variant(ustring32{static_cast<code_unit32>(unit), 'n'}).as_bool(), is_letter || is_digit)
        << unit;
  }
}

TEST(variant_of_text, a_number_beyond_the_range_is_true) {
  EXPECT_TRUE(variant("4294967296").as_bool());
  EXPECT_TRUE(variant("-99999999999999999999").as_bool());
}

TEST(variant_of_text, numbers_written_and_read_back_are_the_same) {
  orva_test::random_engine random;
  for (int i = 0; i < 20'000; ++i) {
    const auto number = static_cast<long long>(random.bits64()) >> (random() % 64);
    const std::string text = variant(number).as_string();
    for (const variant& value : in_every_class(text)) {
      ASSERT_EQ(value.as_int64(), number);
      ASSERT_EQ(value.as_string(), text);
    }
  }
}

TEST(variant_of_text, random_texts_are_read_as_by_the_reference) {
  orva_test::random_engine random;
  const std::string alphabet = "0123456789abfxABFX+-\\ 01";
  for (int i = 0; i < 4'000; ++i) {
    std::string text(random() % 24, ' ');
    for (char& unit : text) unit = alphabet[random() % alphabet.size()];
    expect_leading_number(text);
    if (testing::Test::HasFailure()) return;
  }
}

}  // namespace
