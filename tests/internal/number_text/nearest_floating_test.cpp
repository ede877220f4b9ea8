#include "orva/internal/number_text/nearest_floating.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "tests/support/random_engine.hpp"

namespace {

using namespace ORVA_NAMESPACE::internal;

decimal_number<char> decimal(const std::string& text) {
  return find_decimal(text.data(), text.data() + text.size());
}

TEST(wide_number, portable_product_is_that_of_the_compiler) {
  orva_test::random_engine random;
  for (int run = 0; run < 10000; ++run) {
    const std::uint64_t a = random.bits64() >> random() % 64;
    const std::uint64_t b = random.bits64() >> random() % 64;
    const wide_number product = wide_product(a, b);
    const wide_number portable = portable_wide_product(a, b);
    EXPECT_EQ(product.high, portable.high);
    EXPECT_EQ(product.low, portable.low);
  }
}

TEST(power_of_ten, has_its_128_bits) {
  EXPECT_EQ(power_of_ten(0).bits.high, std::uint64_t{1} << 63);
  EXPECT_EQ(power_of_ten(0).exponent, -127);
  EXPECT_EQ(power_of_ten(27).bits.high, 7450580596923828125U << 1);
  EXPECT_EQ(power_of_ten(27).exponent, 27 + 63 - 128);
  EXPECT_EQ(power_of_ten(-1).bits.high, 0xCCCCCCCCCCCCCCCCU);
  EXPECT_EQ(power_of_ten(-1).exponent, -131);
  for (int exponent = 0; exponent <= 55; ++exponent) EXPECT_EQ(power_of_ten(exponent).error, 0U);
  EXPECT_EQ(power_of_ten(56).error, 1U);
  EXPECT_EQ(power_of_ten(-1).error, 1U);
}

/// Two powers one apart: ten times the one lies within the bounds of the other.
TEST(power_of_ten, beyond_the_table_is_ten_times_the_power_before) {
  const auto as_fraction = [](const scaled_number& power, std::uint64_t low) {
    return std::ldexp(static_cast<long double>(power.bits.high), 64) + static_cast<long double>(low);
  };
  for (int exponent = -5000; exponent < 5000; ++exponent) {
    const scaled_number power = power_of_ten(exponent);
    const scaled_number next = power_of_ten(exponent + 1);
    const long double ratio =
        std::ldexp(as_fraction(next, next.bits.low) / as_fraction(power, power.bits.low),
                   next.exponent - power.exponent);
    EXPECT_NEAR(static_cast<double>(ratio), 10, 1e-14) << exponent;
    EXPECT_LT(power.error, std::uint64_t{1} << 24) << exponent;
  }
}

TEST(find_decimal, has_the_digits_of_one_word) {
  EXPECT_EQ(decimal("12.5e3;").digits, 125U);
  EXPECT_EQ(decimal("12.5e3;").exponent, 2);
  EXPECT_EQ(decimal("0000000000000000000000.0000000000000000000012").digits, 12U);
  EXPECT_EQ(decimal("0000000000000000000000.0000000000000000000012").exponent, -22);
  EXPECT_FALSE(decimal("0000000000000000000000.0000000000000000000012").is_long);
  EXPECT_EQ(decimal("1234567890123456789").digits, 1234567890123456789U);
  EXPECT_FALSE(decimal("1234567890123456789").is_long);
  EXPECT_TRUE(decimal("1234567890123456789.0").is_long);
  EXPECT_EQ(decimal(".").end, nullptr);
  EXPECT_EQ(decimal("").end, nullptr);
}

TEST(first_digits, are_those_of_two_words) {
  const auto first = [](const std::string& text) {
    return first_digits_of(text.data(), text.data() + text.size());
  };
  const std::string two_words = "12345678901234567890123456789012345678";
  EXPECT_EQ(first(two_words).digits.high, 0x949B0F6F0023313U);
  EXPECT_EQ(first(two_words).digits.low, 0xC4499050DE38F34EU);
  EXPECT_EQ(first(two_words).tail.exponent, 0);
  EXPECT_FALSE(first(two_words).tail.has_further_digits);
  EXPECT_FALSE(first(two_words + "000").tail.has_further_digits);
  EXPECT_EQ(first(two_words + "000").tail.exponent, 3);
  EXPECT_TRUE(first(two_words + "001").tail.has_further_digits);
  EXPECT_TRUE(first(two_words + ".01").tail.has_further_digits);
  EXPECT_EQ(first(two_words + ".01").tail.exponent, 0);
  EXPECT_EQ(first("123456789012345.6789000").tail.exponent, -7);
}

template <typename Floating>
class nearest : public testing::Test {};
using floatings = testing::Types<float, double, long double>;
TYPED_TEST_SUITE(nearest, floatings);

TYPED_TEST(nearest, ways_agree) {
  using limits = decimal_limits<TypeParam>;
  orva_test::random_engine random;
  int ties = 0;
  for (int run = 0; run < 3000; ++run) {
    std::string text(1 + random() % 40, '0');
    for (char& digit : text) digit = static_cast<char>('0' + random() % 10);
    const int range = run % 2 == 0 ? 30 : limits::greatest_power - limits::least_power;
    const int exponent = static_cast<int>(random() % static_cast<unsigned int>(range));
    text += 'e' + std::to_string(run % 2 == 0 ? exponent - 25 : exponent + limits::least_power);
    const auto number = decimal(text);
    const first_digits first = first_digits_of(number.mantissa, number.mantissa_end);
    const std::int64_t power = first.tail.exponent + number.written_exponent;
    if (first.digits.is_zero() || power < limits::least_power || power > limits::greatest_power) continue;
    const auto exact =
        nearest_by_all_digits<TypeParam>(number.mantissa, number.mantissa_end, number.written_exponent);
    const auto by_two_words =
        nearest_by_two_words<TypeParam>(first.digits, static_cast<int>(power), first.tail.has_further_digits);
    EXPECT_EQ(by_two_words.value_or(exact), exact) << text;
    if (!by_two_words) ++ties;
    if (number.is_long) continue;
    EXPECT_EQ(nearest_by_one_operation<TypeParam>(number).value_or(exact), exact) << text;
    if (!is_in_table(number.exponent)) continue;
    const auto by_one_word = nearest_by_one_word<TypeParam>(number.digits, static_cast<int>(number.exponent));
    EXPECT_EQ(by_one_word.value_or(exact), exact) << text;
  }
  // About two of the 3,000 texts are ties. 10 are, in one of 10,000 runs; 20, in none.
  EXPECT_LT(ties, 20) << "only ties need all digits";
}

TYPED_TEST(nearest, tie_is_left_to_all_digits) {
  // A whole number of all bits of a mantissa, and a half.
  const std::uint64_t whole = std::uint64_t{1} << (std::numeric_limits<TypeParam>::digits - 1);
  const std::string text = std::to_string(whole) + ".5";
  const auto number = decimal(text);
  const first_digits first = first_digits_of(number.mantissa, number.mantissa_end);
  EXPECT_FALSE(nearest_by_two_words<TypeParam>(first.digits, -1, false));
  EXPECT_EQ(nearest_floating<TypeParam>(number), static_cast<TypeParam>(whole)) << text;
}

}  // namespace
