// The writers of floating values, against the standard library's.
#include "orva/internal/number_text/floating_text.hpp"

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "orva/internal/number_text/scaled_digits.hpp"
#include "tests/support/random_engine.hpp"

namespace {

using namespace ORVA_NAMESPACE::internal;

using writer = char* (*)(double, int, char*);

/// The text, after a test that nothing was written beyond the room that is required.
std::string text_of(writer write, double value, int precision, std::size_t room) {
  std::array<char, fixed_text_size + 16> units;
  units.fill('?');
  char* const end = write(value, precision, units.data());
  for (std::size_t i = room; i < units.size(); ++i) EXPECT_EQ(units[i], '?') << i;
  return {units.data(), end};
}

std::string by_standard(double value, std::chars_format form, int precision) {
  std::array<char, fixed_text_size + 16> units;
  return {units.data(), std::to_chars(units.data(), units.data() + units.size(), value, form, precision).ptr};
}

void expect_as_standard(double value, int precision) {
  const std::size_t room = general_text_size(static_cast<std::size_t>(precision));
  ASSERT_EQ(text_of(write_general, value, precision, room),
            by_standard(value, std::chars_format::general, precision))
      << "precision " << precision;
  ASSERT_EQ(text_of(write_fixed, value, precision, fixed_text_size),
            by_standard(value, std::chars_format::fixed, precision))
      << precision << " decimals";
  ASSERT_EQ(text_of(write_scientific, value, precision, fixed_text_size),
            by_standard(value, std::chars_format::scientific, precision))
      << precision << " decimals";
}

/// A value and its neighbours, of both signs, with every precision of the fast way and a few more.
void expect_around(double value) {
  for (const double each : {value, std::nextafter(value, 0.0), std::nextafter(value, HUGE_VAL)}) {
    for (int precision = 0; precision <= 20; ++precision) {
      expect_as_standard(each, precision);
      expect_as_standard(-each, precision);
    }
  }
}

TEST(floating_text, documentation_example) {
  EXPECT_EQ(text_of(write_general, 0.1, 6, general_text_size(6)), "0.1");
  EXPECT_EQ(text_of(write_fixed, 0.1, 2, fixed_text_size), "0.10");
  EXPECT_EQ(text_of(write_scientific, 0.1, 2, fixed_text_size), "1.00e-01");
  EXPECT_EQ(scaled_digits(3.14159, 2), 314u);
}

TEST(floating_text, extreme_values_are_as_by_the_standard_library) {
  for (const double value : {0.0, 0.000999, 1e15, 1e300, 5e-324, std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::min(), HUGE_VAL, std::nan("")}) {
    for (const int precision : {0, 1, 2, 3, 6, 17, 18, 100, 800, max_decimals}) {
      expect_as_standard(value, precision);
      expect_as_standard(-value, precision);
    }
  }
}

TEST(floating_text, number_that_rounds_to_another_length_is_as_by_the_standard_library) {
  EXPECT_EQ(text_of(write_general, 9.99, 2, general_text_size(2)), "10");
  EXPECT_EQ(text_of(write_general, 1500000.0, 2, general_text_size(2)), "1.5e+06");
  EXPECT_EQ(text_of(write_fixed, 999.9996, 3, fixed_text_size), "1000.000");
  EXPECT_EQ(text_of(write_fixed, -0.001, 2, fixed_text_size), "-0.00");
}

TEST(floating_text, every_power_of_ten_and_two_and_their_neighbours_are_as_by_the_standard_library) {
  for (int exponent = -4; exponent <= 16; ++exponent) {
    for (int digit = 1; digit <= 9; ++digit) expect_around(digit * std::pow(10.0, exponent));
  }
  for (int exponent = -12; exponent <= 53; ++exponent) expect_around(std::ldexp(1.0, exponent));
}

TEST(floating_text, halves_are_rounded_to_even_as_by_the_standard_library) {
  for (int number = 0; number < 100; ++number) expect_around(number + 0.5);
  for (int number = 0; number < 100; ++number) expect_around((number + 0.5) / 64);
}

TEST(floating_text, numbers_with_few_digits_are_as_by_the_standard_library) {
  for (int number = 1; number < 3000; ++number) {
    expect_as_standard(number / 100.0, 6);
    expect_as_standard(number / 1000.0, 17);
    expect_as_standard(number / 1000.0, 2);
    expect_as_standard(number * 1000.0, 15);
  }
}

TEST(floating_text, random_values_are_as_by_the_standard_library) {
  orva_test::random_engine random;
  for (int run = 0; run < 10000; ++run) {
    const double value =
        std::ldexp(static_cast<double>(random() >> random() % 64), static_cast<int>(random() % 80) - 78);
    expect_as_standard(value, static_cast<int>(random() % 18));
    expect_as_standard(-value, static_cast<int>(random() % 4));
  }
}

TEST(scaled_digits, product_of_two_words_has_all_its_bits) {
  const auto largest = std::numeric_limits<std::uint64_t>::max();
  EXPECT_EQ(wide_product(largest, largest).high, largest - 1);
  EXPECT_EQ(wide_product(largest, largest).low, 1U);
  EXPECT_EQ(wide_product(std::uint64_t{1} << 32, std::uint64_t{1} << 32).high, 1U);
  EXPECT_EQ(wide_product(powers_of_ten[19], 100).high, 54U);
  EXPECT_EQ(wide_product(powers_of_ten[19], 100).low, 3875820019684212736U);
  EXPECT_EQ(wide_product(123456789, 987654321).low, 123456789ULL * 987654321ULL);
}

}  // namespace
