/// `try_as`, `holds` and `same` for every pair of types, compared with an independent reference.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <locale>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "orva/types/variant.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_conversion.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using orva_test::wide;
using strings::code_unit16;
using strings::code_unit32;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using strings::wide_string;
using types::nil;
using types::nil_t;
using types::variant;

using integer_types = std::tuple<signed char, unsigned char, short, unsigned short, int, unsigned int, long,
                                 unsigned long, long long, unsigned long long>;
using floating_types = std::tuple<float, double, long double>;
using number_types = decltype(std::tuple_cat(integer_types(), floating_types()));
using text_types = std::tuple<std::string, wide_string, ustring8, ustring16, ustring32>;
using all_types = decltype(std::tuple_cat(std::tuple<nil_t, bool>(), number_types(), text_types()));
static_assert(std::tuple_size_v<all_types> == 20);

/// Calls `action` with a value of each of the types.
template <typename Types, typename Action>
void for_each_type(Action action) {
  std::apply([&](const auto&... each) { (action(each), ...); }, Types());
}

template <typename T>
constexpr bool can_be_asked_for = requires(const variant value) {
  value.try_as<T>();
  value.holds<T>();
};
static_assert(can_be_asked_for<nil_t> && can_be_asked_for<std::size_t> && can_be_asked_for<types::int32>);
static_assert(!can_be_asked_for<char> && !can_be_asked_for<const int> && !can_be_asked_for<int&>);
static_assert(!can_be_asked_for<const char*> && !can_be_asked_for<variant>);

/// Equal, with the sign of zeros, and a NaN equal to a NaN.
template <typename T>
bool equal_values(const T& one, const T& other) {
  if constexpr (std::is_same_v<T, nil_t>) {
    return true;
  } else if constexpr (std::is_floating_point_v<T>) {
    if (std::isnan(one) || std::isnan(other)) return std::isnan(one) && std::isnan(other);
    return !(one < other) && !(other < one) && std::signbit(one) == std::signbit(other);
  } else {
    return one == other;
  }
}

template <typename T>
std::string shown(const std::optional<T>& value) {
  if (!value) return "nothing";
  const variant number(const_cast<T&>(*value));
  return number.as_utf8();
}

template <typename T>
void expect_value(const variant& stored, const std::optional<T>& expected) {
  const std::optional<T> actual = stored.try_as<T>();
  const bool equal =
      actual.has_value() == expected.has_value() && (!actual || equal_values(*actual, *expected));
  EXPECT_TRUE(equal) << typeid(T).name() << " of a " << stored.type().name() << ' ' << stored.as_utf8()
                     << ": " << shown(actual) << " instead of " << shown(expected);
}

template <typename Unit>
std::basic_string<Unit> widened(const std::string& text) {
  std::basic_string<Unit> result;
  for (const char byte : text) result += static_cast<Unit>(static_cast<unsigned char>(byte));
  return result;
}

/// The same text in each of the five classes that hold text.
std::array<variant, 5> in_every_class(const std::string& text) {
  return {variant(ustring8(text)), variant(text), variant(ustring16(widened<code_unit16>(text))),
          variant(widened<code_unit16>(text)), variant(ustring32(widened<code_unit32>(text)))};
}

// The reference.

template <typename Integer>
std::optional<Integer> as_integer(wide number) {
  if (number < wide(std::numeric_limits<Integer>::min()) ||
      number > wide(std::numeric_limits<Integer>::max()))
    return {};
  return static_cast<Integer>(number);
}

/// Whether a finite number has a Floating of the same value: its lowest bit is not below that of the type at
/// its size.
template <typename Floating>
bool is_representable(long double number) {
  using limits = std::numeric_limits<Floating>;
  if (!(number < 0) && !(number > 0)) return true;
  int exponent = 0;
  static_cast<void>(std::frexp(number, &exponent));
  const int lowest_bit = std::max(exponent, limits::min_exponent) - limits::digits;
  const long double in_lowest_bits = std::ldexp(number, -lowest_bit);
  return exponent <= limits::max_exponent && std::trunc(in_lowest_bits) == in_lowest_bits;
}

template <typename Target>
std::optional<Target> number_as(long double number) {
  if constexpr (std::is_floating_point_v<Target>) {
    if (std::isfinite(number) && !is_representable<Target>(number)) return {};
    return static_cast<Target>(number);
  } else {
    const bool has_integer =
        std::isfinite(number) && std::trunc(number) == number && std::abs(number) < 1e30L;
    const bool negative_zero = !(number < 0) && std::signbit(number);
    return has_integer && !negative_zero ? as_integer<Target>(static_cast<wide>(number)) : std::nullopt;
  }
}

template <typename Target>
std::optional<Target> number_as(wide number) {
  if constexpr (std::is_floating_point_v<Target>) {
    wide odd_part = number < 0 ? -number : number;
    while (odd_part != 0 && odd_part % 2 == 0) odd_part /= 2;
    if (odd_part >= orva_test::power_of_two(std::numeric_limits<Target>::digits)) return {};
    return static_cast<Target>(number);
  } else {
    return as_integer<Target>(number);
  }
}

template <typename Stored>
using widest = std::conditional_t<std::is_floating_point_v<Stored>, long double, wide>;

// Numbers to numbers.

template <typename T>
std::vector<T> integer_boundaries() {
  std::vector<T> values = {
      0, 1, 2, static_cast<T>(-1), std::numeric_limits<T>::min(), std::numeric_limits<T>::max()};
  for (int bit = 1; bit < std::numeric_limits<T>::digits; ++bit) {
    const auto power = static_cast<T>(static_cast<T>(1) << bit);
    for (const int step : {-1, 0, 1}) {
      values.push_back(static_cast<T>(power + static_cast<T>(step)));
      values.push_back(static_cast<T>(static_cast<T>(0) - power + static_cast<T>(step)));
    }
  }
  return values;
}

template <typename T>
std::vector<T> floating_boundaries() {
  using limits = std::numeric_limits<T>;
  std::vector<T> values = {0,
                           limits::min(),
                           limits::denorm_min(),
                           limits::max(),
                           limits::infinity(),
                           limits::quiet_NaN(),
                           static_cast<T>(0.1L),
                           static_cast<T>(std::numeric_limits<float>::max()),
                           static_cast<T>(std::numeric_limits<float>::denorm_min())};
  if constexpr (limits::digits >= std::numeric_limits<double>::digits) {
    values.push_back(static_cast<T>(std::numeric_limits<double>::max()));
    values.push_back(static_cast<T>(std::numeric_limits<double>::denorm_min()));
    values.push_back(static_cast<T>(std::numeric_limits<float>::max()) * 2);
    values.push_back(static_cast<T>(std::numeric_limits<float>::denorm_min()) / 2);
  }
  for (int exponent = -2; exponent <= 130 && exponent < limits::max_exponent; ++exponent) {
    const T power = std::ldexp(T{1}, exponent);
    for (const T value :
         {power, std::nextafter(power, T{0}), std::nextafter(power, limits::max()), power - T{1},
          power + T{1}, power - static_cast<T>(0.5), power + static_cast<T>(0.5)})
      values.push_back(value);
  }
  const std::size_t positive = values.size();
  for (std::size_t i = 0; i < positive; ++i) values.push_back(-values[i]);
  return values;
}

template <typename T>
std::vector<T> boundaries() {
  if constexpr (std::is_floating_point_v<T>) return floating_boundaries<T>();
  if constexpr (std::is_integral_v<T>) return integer_boundaries<T>();
}

template <typename Stored>
void expect_reference_numbers(Stored stored) {
  const variant value(stored);
  const auto number = static_cast<widest<Stored>>(stored);
  for_each_type<number_types>(
      [&]<typename Target>(Target) { expect_value(value, number_as<Target>(number)); });
  const auto bit = number_as<unsigned char>(number);
  expect_value(value, bit && *bit < 2 ? std::optional<bool>(*bit == 1) : std::nullopt);
  expect_value(value, std::optional<nil_t>());
}

TEST(try_as, number_of_every_type_is_each_type_that_has_exactly_this_number) {
  for_each_type<number_types>([]<typename Stored>(Stored) {
    for (const Stored stored : boundaries<Stored>()) expect_reference_numbers(stored);
  });
}

TEST(try_as, random_numbers_are_each_type_that_has_exactly_this_number) {
  orva_test::random_engine random;
  for (int i = 0; i < 2'000 && !testing::Test::HasFailure(); ++i) {
    const std::uint64_t bits = random.bits64();
    double from_bits = 0;
    std::memcpy(&from_bits, &bits, sizeof from_bits);
    expect_reference_numbers(from_bits);
    expect_reference_numbers(static_cast<float>(static_cast<int>(random() % 2048)) / 8);
    // Numbers of few bits are often exact, those of many seldom.
    expect_reference_numbers(static_cast<long long>(bits) >> random() % 64 << random() % 8);
    expect_reference_numbers(static_cast<long double>(bits) / static_cast<long double>(1 << random() % 8));
  }
}

TEST(try_as, negative_zero_is_a_floating_value_only) {
  EXPECT_EQ(variant(-0.0).try_as<int>(), std::nullopt);
  EXPECT_EQ(variant(-0.0).try_as<bool>(), std::nullopt);
  EXPECT_TRUE(std::signbit(variant(-0.0).try_as<float>().value()));
  EXPECT_EQ(variant(-0.0).try_as<std::string>(), "-0");
}

TEST(try_as, nan_is_every_floating_type_and_no_integer) {
  const variant value(std::nan(""));
  EXPECT_TRUE(std::isnan(value.try_as<float>().value()));
  EXPECT_TRUE(std::isnan(value.try_as<long double>().value()));
  EXPECT_EQ(value.try_as<long long>(), std::nullopt);
  EXPECT_EQ(value.try_as<bool>(), std::nullopt);
}

TEST(try_as, bool_is_0_or_1_of_every_number) {
  for (const bool stored : {false, true}) {
    for_each_type<number_types>([stored]<typename Target>(Target) {
      expect_value(variant(stored), std::optional<Target>(static_cast<Target>(stored ? 1 : 0)));
    });
    expect_value(variant(stored), std::optional<bool>(stored));
    expect_value(variant(stored), std::optional<nil_t>());
  }
}

// The same type, and nil.

TEST(try_as, stored_type_is_always_returned_unchanged) {
  for_each_type<number_types>([]<typename T>(T) {
    for (const T stored : boundaries<T>()) expect_value(variant(stored), std::optional<T>(stored));
  });
  for_each_type<text_types>([]<typename T>(const T&) {
    // Malformed in each width, with a zero.
    const T stored = {static_cast<typename T::value_type>(0xDC80), 0, 'x'};
    expect_value(variant(stored), std::optional<T>(stored));
  });
  EXPECT_TRUE(variant(nil).try_as<nil_t>().has_value());
}

TEST(try_as, nil_is_nothing_else) {
  variant moved("text");
  const variant taken = std::move(moved);
  for_each_type<all_types>([&]<typename T>(const T&) {
    EXPECT_EQ(variant().try_as<T>().has_value(), (std::is_same_v<T, nil_t>)) << typeid(T).name();
    EXPECT_EQ(moved.try_as<T>().has_value(), (std::is_same_v<T, nil_t>)) << typeid(T).name();
    EXPECT_EQ(variant("").try_as<nil_t>(), std::nullopt);
  });
}

// Numbers to text.

void expect_text(const variant& value, const std::string& text) {
  EXPECT_EQ(value.try_as<std::string>(), text);
  EXPECT_EQ(value.try_as<ustring8>(), ustring8(text));
  EXPECT_EQ(value.try_as<ustring16>(), ustring16(widened<code_unit16>(text)));
  EXPECT_EQ(value.try_as<wide_string>(), widened<code_unit16>(text));
  EXPECT_EQ(value.try_as<ustring32>(), ustring32(widened<code_unit32>(text)));
}

TEST(try_as, integer_of_every_type_is_its_decimal_text) {
  for_each_type<integer_types>([]<typename Stored>(Stored) {
    for (const Stored stored : boundaries<Stored>()) expect_text(variant(stored), wide(stored).str());
  });
}

TEST(try_as, bool_is_the_text_1_or_0) {
  expect_text(variant(true), "1");
  expect_text(variant(false), "0");
}

template <typename Floating>
Floating read_by_the_c_library(const std::string& text) {
  if constexpr (std::is_same_v<Floating, float>) return std::strtof(text.c_str(), nullptr);
  if constexpr (std::is_same_v<Floating, double>) return std::strtod(text.c_str(), nullptr);
  if constexpr (std::is_same_v<Floating, long double>) return std::strtold(text.c_str(), nullptr);
}

/// The length of the shortest text in the form 1.5e+02 that the C library writes and that reads back as
/// `value`.
template <typename Floating>
std::size_t shortest_length(Floating value) {
  char text[64] = "";
  for (int decimals = 0; decimals < std::numeric_limits<Floating>::max_digits10; ++decimals) {
    std::snprintf(text, sizeof text, "%.*Le", decimals, static_cast<long double>(value));
    if (equal_values(read_by_the_c_library<Floating>(text), value)) break;
  }
  return std::strlen(text);
}

template <typename Floating>
void expect_shortest_text(Floating stored) {
  const auto text = variant(stored).try_as<std::string>();
  ASSERT_TRUE(text.has_value());
  EXPECT_TRUE(equal_values(read_by_the_c_library<Floating>(*text), stored)) << *text;
  // C libraries differ in the sign of a NaN.
  if (!std::isnan(stored)) {
    EXPECT_LE(text->size(), shortest_length(stored)) << *text;
  }
  for (const variant& written : in_every_class(*text)) expect_value(written, std::optional<Floating>(stored));
}

TEST(try_as, floating_value_is_the_shortest_text_that_reads_back) {
  for_each_type<floating_types>([]<typename Stored>(Stored) {
    for (const Stored stored : boundaries<Stored>()) expect_shortest_text(stored);
  });
  expect_text(variant(0.1), "0.1");
  expect_text(variant(0.1F), "0.1");
  expect_text(variant(1234567.0), "1234567");
  expect_text(variant(3.141592653589793), "3.141592653589793");
  expect_text(variant(-1e100), "-1e+100");
  expect_text(variant(std::numeric_limits<double>::infinity()), "inf");
}

TEST(try_as, random_floating_value_is_the_shortest_text_that_reads_back) {
  orva_test::random_engine random;
  for (int i = 0; i < 2'000 && !testing::Test::HasFailure(); ++i) {
    const std::uint64_t bits = random.bits64();
    double from_bits = 0;
    std::memcpy(&from_bits, &bits, sizeof from_bits);
    if (std::isnan(from_bits)) continue;
    expect_shortest_text(from_bits);
    expect_shortest_text(static_cast<long double>(from_bits) / 3);
  }
}

class decimal_comma : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
};

TEST(try_as, ignores_the_locale) {
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new decimal_comma));
  EXPECT_EQ(variant(0.5).try_as<std::string>(), "0.5");
  EXPECT_EQ(variant("0.5").try_as<double>(), 0.5);
  EXPECT_EQ(variant("0,5").try_as<double>(), std::nullopt);
  std::locale::global(before);
}

// Text to numbers.

/// An integer, `nullopt` for text that is none.
struct integer_row {
  const char* text;
  std::optional<wide> number;
};

const integer_row integer_rows[] = {
    {"0", 0},
    {"-0", 0},
    {"+0", 0},
    {"7", 7},
    {"+7", 7},
    {"-7", -7},
    {"127", 127},
    {"128", 128},
    {"-128", -128},
    {"-129", -129},
    {"255", 255},
    {"256", 256},
    {"65535", 65535},
    {"65536", 65536},
    {"2147483647", 2147483647},
    {"2147483648", 2147483648},
    {"-2147483648", -wide(2147483648)},
    {"-2147483649", -wide(2147483649)},
    {"4294967295", 4294967295},
    {"4294967296", 4294967296},
    {"9223372036854775807", orva_test::power_of_two(63) - 1},
    {"9223372036854775808", orva_test::power_of_two(63)},
    {"-9223372036854775808", -orva_test::power_of_two(63)},
    {"-9223372036854775809", -orva_test::power_of_two(63) - 1},
    {"18446744073709551615", orva_test::power_of_two(64) - 1},
    {"18446744073709551616", orva_test::power_of_two(64)},
    {"-18446744073709551615", -orva_test::power_of_two(64) + 1},
    {"100000000000000000000000000", orva_test::power_of_two(80)},
    // The prefix gives the radix, as for the accessors.
    {"0x1F", 31},
    {"0X1f", 31},
    {"-0x80", -128},
    {"0b101", 5},
    {"-0B1", -1},
    {"010", 8},
    {"-010", -8},
    {"007", 7},
    {"08", {}},
    {"0x", {}},
    {"0b", {}},
    {"0b2", {}},
    {"0xG", {}},
    // Not wholly a number.
    {"", {}},
    {" ", {}},
    {"-", {}},
    {"+", {}},
    {"--1", {}},
    {"+-1", {}},
    {"-+1", {}},
    {" 1", {}},
    {"1 ", {}},
    {"1\n", {}},
    {"- 1", {}},
    {"12abc", {}},
    {"abc", {}},
    {"1.0", {}},
    {"1e3", {}},
    {"1,000", {}},
    {"1'000", {}},
    {"true", {}},
    {"inf", {}},
};

TEST(try_as, text_is_an_integer_if_it_is_wholly_one_that_the_type_has) {
  for (const integer_row& row : integer_rows) {
    for (const variant& value : in_every_class(row.text)) {
      for_each_type<integer_types>([&]<typename Target>(Target) {
        expect_value(value, row.number ? as_integer<Target>(*row.number) : std::nullopt);
      });
    }
  }
}

TEST(try_as, every_small_integer_is_read_in_every_type) {
  for (int number = -70'000; number <= 70'000; number += number > -400 && number < 400 ? 1 : 97) {
    const variant value(std::to_string(number));
    for_each_type<integer_types>(
        [&]<typename Target>(Target) { expect_value(value, as_integer<Target>(number)); });
  }
}

TEST(try_as, text_with_a_zero_or_a_character_beyond_ascii_is_no_number) {
  EXPECT_EQ(variant(std::string("1\0", 2)).try_as<int>(), std::nullopt);
  EXPECT_EQ(variant(std::string("\0001", 2)).try_as<int>(), std::nullopt);
  EXPECT_EQ(variant(ustring16{'1', 0}).try_as<double>(), std::nullopt);
  // A fullwidth digit, and units whose low byte is a digit.
  EXPECT_EQ(variant(ustring16{0xFF11}).try_as<int>(), std::nullopt);
  EXPECT_EQ(variant(ustring16{0x0131}).try_as<int>(), std::nullopt);
  EXPECT_EQ(variant(ustring32{0x10031}).try_as<double>(), std::nullopt);
  EXPECT_EQ(variant(ustring32{0x80000031}).try_as<int>(), std::nullopt);
  EXPECT_EQ(variant("\xEF\xBC\x91").try_as<int>(), std::nullopt);
}

struct floating_row {
  const char* text;
  std::optional<double> number;
};

constexpr double infinity = std::numeric_limits<double>::infinity();
const floating_row floating_rows[] = {
    {"0", 0.0},      {"-0", -0.0},      {"0.5", 0.5},        {"-2.5e-1", -0.25},
    {"1e3", 1000.0}, {"1E+3", 1000},    {"010", 10.0},       {".5", 0.5},
    {"5.", 5.0},     {"inf", infinity}, {"-inf", -infinity}, {"INFINITY", infinity},
    {"", {}},        {".", {}},         {"-", {}},           {"e3", {}},
    {"1e", {}},      {"1e+", {}},       {" 1", {}},          {"1 ", {}},
    {"1,5", {}},     {"1.5.2", {}},     {"0x10", {}},        {"12abc", {}},
    {"one", {}},     {"1e40000", {}},   {"-1e40000", {}},    {"1e-40000", {}},
    {"--1", {}},     {"infinit", {}},
};

TEST(try_as, text_is_a_floating_value_if_it_is_wholly_one) {
  for (const floating_row& row : floating_rows) {
    for (const variant& value : in_every_class(row.text)) {
      for_each_type<floating_types>([&]<typename Target>(Target) {
        expect_value(value,
                     row.number ? std::optional<Target>(static_cast<Target>(*row.number)) : std::nullopt);
      });
    }
  }
  EXPECT_TRUE(std::isnan(variant("nan").try_as<double>().value()));
}

TEST(try_as, text_beyond_the_range_of_a_floating_type_is_nothing) {
  EXPECT_EQ(variant("1e39").try_as<float>(), std::nullopt);
  EXPECT_EQ(variant("1e39").try_as<double>(), 1e39);
  EXPECT_EQ(variant("1e309").try_as<double>(), std::nullopt);
  EXPECT_EQ(variant("1e-50").try_as<float>(), std::nullopt);
  EXPECT_EQ(variant("1e-50").try_as<double>(), 1e-50);
}

TEST(try_as, decimal_text_is_the_nearest_floating_value) {
  EXPECT_EQ(variant("0.1").try_as<float>(), 0.1F);
  EXPECT_EQ(variant("0.1").try_as<double>(), 0.1);
  EXPECT_EQ(variant("9007199254740993").try_as<double>(), 9007199254740992.0);
  EXPECT_EQ(variant(9007199254740993).try_as<double>(), std::nullopt) << "but a number is never rounded";
}

// Text to bool.

TEST(try_as, text_is_bool_for_the_words_and_digits_of_both_values) {
  const std::pair<std::vector<const char*>, std::optional<bool>> rows[] = {
      {{"true", "True", "TRUE", "yes", "YES", "on", "oN", "1"}, true},
      {{"false", "False", "FALSE", "no", "No", "off", "OFF", "0"}, false},
      {{"", " yes", "yes ", "y", "n", "t", "f", "tru", "truee", "2", "-1", "00", "01", "+1", "1.0", "0x1",
        "nil"},
       {}}};
  for (const auto& [texts, expected] : rows) {
    for (const char* const text : texts) {
      for (const variant& value : in_every_class(text)) expect_value(value, expected);
    }
  }
}

TEST(try_as, words_with_a_character_beyond_ascii_are_no_bool) {
  EXPECT_EQ(variant("o\xC5\x8A").try_as<bool>(), std::nullopt);
  EXPECT_EQ(variant(ustring16{'o', 0x014E}).try_as<bool>(), std::nullopt);
  // KELVIN SIGN and LATIN SMALL LETTER LONG S have ASCII letters in other cases.
  EXPECT_EQ(variant(ustring32{'y', 'e', 0x017F}).try_as<bool>(), std::nullopt);
}

// Text to text.

/// Encodes by arithmetic, as the Unicode Standard has it.
void encode(std::uint32_t code_point, ustring8& utf8, ustring16& utf16, ustring32& utf32) {
  const auto byte = [&](std::uint32_t value) {
    utf8.push_back(static_cast<char>(static_cast<unsigned char>(value)));
  };
  if (code_point < 0x80) {
    byte(code_point);
  } else if (code_point < 0x800) {
    byte(0xC0 + code_point / 64);
  } else if (code_point < 0x10000) {
    byte(0xE0 + code_point / 4096);
    byte(0x80 + code_point / 64 % 64);
  } else {
    byte(0xF0 + code_point / 262144);
    byte(0x80 + code_point / 4096 % 64);
    byte(0x80 + code_point / 64 % 64);
  }
  if (code_point >= 0x80) byte(0x80 + code_point % 64);
  if (code_point >= 0x10000) {
    utf16.push_back(static_cast<code_unit16>(0xD800 + (code_point - 0x10000) / 1024));
    utf16.push_back(static_cast<code_unit16>(0xDC00 + (code_point - 0x10000) % 1024));
  } else {
    utf16.push_back(static_cast<code_unit16>(code_point));
  }
  utf32.push_back(static_cast<code_unit32>(code_point));
}

TEST(try_as, text_of_every_code_point_is_exact_in_every_width) {
  constexpr std::uint32_t block = 0x100;
  for (std::uint32_t first = 0; first < 0x110000; first += block) {
    if (first >= 0xD800 && first < 0xE000) continue;
    ustring8 utf8;
    ustring16 utf16;
    ustring32 utf32;
    for (std::uint32_t code_point = first; code_point < first + block; ++code_point)
      encode(code_point, utf8, utf16, utf32);
    for (const variant& value : {variant(utf8), variant(utf16), variant(utf32)}) {
      ASSERT_EQ(value.try_as<std::string>(), utf8) << first;
      ASSERT_EQ(value.try_as<wide_string>(), utf16) << first;
      ASSERT_EQ(value.try_as<ustring32>(), utf32) << first;
    }
  }
}

TEST(try_as, both_classes_of_a_width_are_converted_alike) {
  const ustring8 utf8 = "\xF0\x9F\x98\x80";
  const ustring16 utf16 = {0xD83D, 0xDE00};
  EXPECT_EQ(variant(std::string(utf8)).try_as<ustring16>(), utf16);
  EXPECT_EQ(variant(wide_string(utf16)).try_as<ustring8>(), utf8);
  EXPECT_EQ(variant(wide_string(utf16)).try_as<ustring16>(), utf16);
  EXPECT_EQ(variant(std::string(utf8)).try_as<ustring8>(), utf8);
}

TEST(try_as, text_that_begins_with_a_byte_order_mark_keeps_it) {
  for (const std::uint32_t mark : {0xFEFFu, 0xFFFEu}) {
    ustring8 utf8;
    ustring16 utf16;
    ustring32 utf32;
    for (const std::uint32_t code_point : {mark, mark, std::uint32_t{'x'}})
      encode(code_point, utf8, utf16, utf32);
    EXPECT_EQ(variant(utf8).try_as<ustring16>(), utf16);
    EXPECT_EQ(variant(utf16).try_as<ustring8>(), utf8);
    EXPECT_EQ(variant(utf16).try_as<ustring32>(), utf32);
    EXPECT_EQ(variant(utf32).try_as<ustring16>(), utf16);
  }
}

TEST(try_as, surrogate_without_its_pair_is_kept_in_its_width_and_nothing_in_another) {
  for (std::uint32_t unit = 0xD800; unit < 0xE000; ++unit) {
    const ustring16 utf16 = {'a', static_cast<code_unit16>(unit), 'b'};
    EXPECT_EQ(variant(utf16).try_as<wide_string>(), utf16);
    EXPECT_EQ(variant(utf16).try_as<ustring8>(), std::nullopt);
    EXPECT_EQ(variant(utf16).try_as<ustring32>(), std::nullopt);
    const ustring32 utf32 = {'a', static_cast<code_unit32>(unit), 'b'};
    EXPECT_EQ(variant(utf32).try_as<ustring32>(), utf32);
    EXPECT_EQ(variant(utf32).try_as<std::string>(), std::nullopt);
    EXPECT_EQ(variant(utf32).try_as<ustring16>(), std::nullopt);
  }
}

TEST(try_as, pair_of_surrogates_in_utf32_is_nothing_in_another_width) {
  const ustring32 pair = {0xD83D, 0xDE00};
  EXPECT_EQ(variant(pair).try_as<ustring16>(), std::nullopt);
  EXPECT_EQ(variant(pair).try_as<ustring8>(), std::nullopt);
}

TEST(try_as, unit_above_unicode_is_nothing_in_another_width) {
  for (const std::uint32_t unit : {0x110000u, 0x10000041u, 0x7FFFFFFFu, 0x80000041u, 0xFFFFFFFFu}) {
    const ustring32 utf32 = {'a', static_cast<code_unit32>(unit)};
    EXPECT_EQ(variant(utf32).try_as<std::string>(), std::nullopt);
    EXPECT_EQ(variant(utf32).try_as<ustring16>(), std::nullopt);
  }
}

/// Whether bytes are well-formed by Table 3-7 of the Unicode Standard.
bool is_well_formed(const std::string& bytes) {
  const auto in = [&](std::size_t at, unsigned char low, unsigned char high) {
    return at < bytes.size() && static_cast<unsigned char>(bytes[at]) >= low &&
           static_cast<unsigned char>(bytes[at]) <= high;
  };
  const auto tail = [&](std::size_t at) { return in(at, 0x80, 0xBF); };
  std::size_t at = 0;
  while (at < bytes.size()) {
    if (in(at, 0, 0x7F)) {
      at += 1;
    } else if (in(at, 0xC2, 0xDF) && tail(at + 1)) {
      at += 2;
    } else if (tail(at + 2) &&
               ((in(at, 0xE0, 0xE0) && in(at + 1, 0xA0, 0xBF)) || (in(at, 0xE1, 0xEC) && tail(at + 1)) ||
                (in(at, 0xED, 0xED) && in(at + 1, 0x80, 0x9F)) || (in(at, 0xEE, 0xEF) && tail(at + 1)))) {
      at += 3;
    } else if (tail(at + 2) && tail(at + 3) &&
               ((in(at, 0xF0, 0xF0) && in(at + 1, 0x90, 0xBF)) || (in(at, 0xF1, 0xF3) && tail(at + 1)) ||
                (in(at, 0xF4, 0xF4) && in(at + 1, 0x80, 0x8F)))) {
      at += 4;
    } else {
      return false;
    }
  }
  return true;
}

/// The bytes at which the rules of UTF-8 change.
constexpr std::array<unsigned char, 22> boundary_bytes = {0x00, 'A',  0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0,
                                                          0xBF, 0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xE1, 0xED,
                                                          0xEF, 0xF0, 0xF3, 0xF4, 0xF5, 0xFF};

void expect_filled_if_well_formed(const std::string& bytes) {
  const variant value(bytes);
  const bool expected = is_well_formed(bytes);
  ASSERT_EQ(value.try_as<ustring16>().has_value(), expected);
  ASSERT_EQ(value.try_as<ustring32>().has_value(), expected);
  ASSERT_EQ(value.try_as<ustring8>(), bytes);
}

TEST(try_as, bytes_are_text_of_another_width_only_if_they_are_well_formed) {
  for (const unsigned char first : boundary_bytes) {
    for (const unsigned char second : boundary_bytes) {
      const std::string two = {static_cast<char>(first), static_cast<char>(second)};
      expect_filled_if_well_formed(two);
      for (const unsigned char third : boundary_bytes) {
        const std::string three = two + static_cast<char>(third);
        expect_filled_if_well_formed(three);
        if (first < 0xF0) continue;
        for (const unsigned char fourth : boundary_bytes)
          expect_filled_if_well_formed(three + static_cast<char>(fourth));
      }
    }
  }
}

TEST(try_as, text_that_means_failure_to_the_transforms_is_a_text_like_any_other) {
  for (const variant& value : in_every_class("-1")) expect_text(value, "-1");
  for (const variant& value : in_every_class("a?b")) expect_text(value, "a?b");
}

// Beside the accessors.

/// What `try_as` returns is what the accessor returns, for integers and bool.
void expect_agreement(const variant& value) {
  const auto check = [&](const auto& tried, auto read) {
    if (tried) {
      EXPECT_EQ(*tried, read) << value.type().name() << " " << value.as_utf8();
    }
  };
  check(value.try_as<signed char>(), value.as_int8());
  check(value.try_as<short>(), value.as_int16());
  check(value.try_as<int>(), value.as_int());
  check(value.try_as<types::int32>(), value.as_int32());
  check(value.try_as<long long>(), value.as_int64());
  check(value.try_as<unsigned char>(), value.as_uint8());
  check(value.try_as<unsigned short>(), value.as_uint16());
  check(value.try_as<types::uint32>(), value.as_uint32());
  check(value.try_as<unsigned long long>(), value.as_uint64());
  check(value.try_as<bool>(), value.as_bool());
}

TEST(try_as, returns_what_the_accessor_returns) {
  for_each_type<number_types>([]<typename Stored>(Stored) {
    for (const Stored stored : boundaries<Stored>()) expect_agreement(variant(stored));
  });
  for (const integer_row& row : integer_rows) {
    for (const variant& value : in_every_class(row.text)) expect_agreement(value);
  }
  for (const floating_row& row : floating_rows) expect_agreement(variant(row.text));
  for (const char* const text : {"yes", "no", "on", "off", "true", "false"}) expect_agreement(variant(text));
  expect_agreement(variant(true));
  expect_agreement(variant(false));
}

// holds and same.

TEST(holds, is_true_for_the_stored_type_only) {
  for_each_type<all_types>([]<typename Stored>(Stored stored) {
    const variant value(stored);
    for_each_type<all_types>([&]<typename T>(const T&) {
      EXPECT_EQ(value.holds<T>(), (std::is_same_v<T, Stored>)) << typeid(Stored).name() << typeid(T).name();
    });
  });
}

TEST(holds, moved_from_variant_holds_nil) {
  variant moved("text");
  const variant taken = std::move(moved);
  EXPECT_TRUE(moved.holds<nil_t>());
  EXPECT_TRUE(taken.holds<ustring8>());
}

TEST(same, needs_the_same_type) {
  for_each_type<all_types>([]<typename One>(One one) {
    for_each_type<all_types>([&]<typename Other>(Other other) {
      EXPECT_EQ(same(variant(one), variant(other)), (std::is_same_v<One, Other>))
          << typeid(One).name() << ' ' << typeid(Other).name();
    });
  });
}

TEST(same, needs_the_same_value) {
  for_each_type<number_types>([]<typename T>(T) {
    const std::vector<T> values = boundaries<T>();
    const std::size_t step = values.size() / 40 + 1;
    for (std::size_t i = 0; i < values.size(); i += step) {
      for (std::size_t k = 0; k < values.size(); k += step)
        EXPECT_EQ(same(variant(values[i]), variant(values[k])), equal_values(values[i], values[k]));
    }
  });
  EXPECT_TRUE(same(variant(true), variant(true)));
  EXPECT_FALSE(same(variant(true), variant(false)));
  for_each_type<text_types>([]<typename T>(const T&) {
    const T text = {'a', 0, 'b'};
    EXPECT_TRUE(same(variant(text), variant(T(text))));
    EXPECT_FALSE(same(variant(text), variant(T{'a', 0, 'c'})));
    EXPECT_FALSE(same(variant(text), variant(T{'a'})));
    EXPECT_FALSE(same(variant(text), variant(T())));
  });
}

TEST(same, is_true_for_each_nan_of_a_type) {
  const double nan = std::nan("");
  EXPECT_TRUE(same(variant(nan), variant(nan)));
  EXPECT_TRUE(same(variant(nan), variant(-nan)));
  EXPECT_TRUE(same(variant(std::nan("1")), variant(std::nan("2"))));
  EXPECT_FALSE(same(variant(nan), variant(static_cast<float>(nan))));
  EXPECT_FALSE(same(variant(nan), variant(0.0)));
  EXPECT_FALSE(same(variant(0.0), variant(nan)));
}

TEST(same, is_false_for_zeros_of_different_sign) {
  EXPECT_FALSE(same(variant(0.0), variant(-0.0)));
  EXPECT_TRUE(same(variant(-0.0), variant(-0.0)));
  EXPECT_FALSE(same(variant(0.0F), variant(-0.0F)));
  EXPECT_FALSE(same(variant(0.0L), variant(-0.0L)));
}

TEST(same, is_true_for_copies_and_for_nil) {
  const variant original(std::nan(""));
  const variant copy = original;
  EXPECT_TRUE(same(original, copy));
  EXPECT_TRUE(same(original, original));
  variant moved("text");
  const variant taken = std::move(moved);
  EXPECT_TRUE(same(variant(), moved));
  EXPECT_TRUE(same(moved, variant(nil)));
  EXPECT_FALSE(same(variant(), variant("")));
}

TEST(try_as, documentation_example) {
  EXPECT_EQ(variant("12").try_as<int>(), 12);
  EXPECT_EQ(variant("12abc").try_as<int>(), std::nullopt);
  EXPECT_EQ(variant(300).try_as<signed char>(), std::nullopt);
  EXPECT_TRUE(variant(300).holds<int>());
  EXPECT_FALSE(same(variant(300), variant("300")));
}

}  // namespace
