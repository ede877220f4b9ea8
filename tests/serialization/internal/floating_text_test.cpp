// The fast writer of floating values, against the standard library's.
#include "orva/serialization/internal/floating_text.hpp"

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace {

using ORVA_NAMESPACE::serialization::_private::multiply;
using ORVA_NAMESPACE::serialization::_private::powers_of_ten;
using ORVA_NAMESPACE::serialization::_private::write_everyday_value;

std::string by_standard(double value, std::uint32_t precision) {
  std::array<char, 64> units;
  return {units.data(), std::to_chars(units.data(), units.data() + units.size(), value,
                                      std::chars_format::general, static_cast<int>(precision))
                            .ptr};
}

/// Whether the value was one for the fast writer; its text must be the standard's.
bool writes_as_standard(double value, std::uint32_t precision) {
  std::array<char, 64> units;
  units.fill('?');
  char* const end = write_everyday_value(value, precision, units.data());
  if (end == nullptr) return false;
  EXPECT_EQ(std::string(units.data(), end), by_standard(value, precision)) << "precision " << precision;
  for (std::size_t i = 24; i < units.size(); ++i) EXPECT_EQ(units[i], '?');
  return true;
}

/// A value and its neighbours, of both signs, with every precision.
void expect_around(double value) {
  for (const double each : {value, std::nextafter(value, 0.0), std::nextafter(value, HUGE_VAL)}) {
    for (std::uint32_t precision = 0; precision <= 20; ++precision) {
      writes_as_standard(each, precision);
      writes_as_standard(-each, precision);
    }
  }
}

TEST(floating_text, everyday_values_are_written) {
  for (const double value : {1.0, 0.5, 0.1, 3.14159265, 100.0, 123456.789, 0.001, 99999999999999.0}) {
    EXPECT_TRUE(writes_as_standard(value, 17)) << value;
    EXPECT_TRUE(writes_as_standard(-value, 17)) << value;
  }
}

TEST(floating_text, other_values_are_left_to_the_standard_library) {
  for (const double value : {0.0, -0.0, 0.000999, 1e15, 1e300, 5e-324, HUGE_VAL, std::nan("")}) {
    EXPECT_FALSE(writes_as_standard(value, 6)) << value;
  }
  EXPECT_FALSE(writes_as_standard(1.5, 0));
  EXPECT_FALSE(writes_as_standard(1.5, 18));
  EXPECT_FALSE(writes_as_standard(1500000.0, 2)) << "another notation";
  EXPECT_FALSE(writes_as_standard(9.99, 2)) << "rounded to another length";
}

TEST(floating_text, every_power_of_ten_and_two_and_their_neighbours_are_as_by_the_standard_library) {
  for (int exponent = -4; exponent <= 16; ++exponent) {
    for (int digit = 1; digit <= 9; ++digit) expect_around(digit * std::pow(10.0, exponent));
  }
  for (int exponent = -12; exponent <= 52; ++exponent) expect_around(std::ldexp(1.0, exponent));
}

TEST(floating_text, halves_are_rounded_to_even_as_by_the_standard_library) {
  for (int number = 0; number < 800; ++number) expect_around(number + 0.5);
  for (int number = 0; number < 800; ++number) expect_around((number + 0.5) / 64);
}

TEST(floating_text, numbers_with_few_digits_are_as_by_the_standard_library) {
  for (int number = 1; number < 30000; ++number) {
    writes_as_standard(number / 100.0, 6);
    writes_as_standard(number / 1000.0, 17);
    writes_as_standard(number * 1000.0, 15);
  }
}

TEST(floating_text, random_values_are_as_by_the_standard_library) {
  const unsigned int seed = 20261121;
  SCOPED_TRACE(seed);
  std::mt19937_64 random(seed);
  int written = 0;
  for (int run = 0; run < 60000; ++run) {
    const double value =
        std::ldexp(static_cast<double>(random() >> random() % 64), static_cast<int>(random() % 80) - 78);
    written += writes_as_standard(value, static_cast<std::uint32_t>(1 + random() % 17)) ? 1 : 0;
  }
  EXPECT_GT(written, 6000);
}

TEST(floating_text, product_of_two_words_has_all_its_bits) {
  const auto largest = std::numeric_limits<std::uint64_t>::max();
  EXPECT_EQ(multiply(largest, largest).high, largest - 1);
  EXPECT_EQ(multiply(largest, largest).low, 1U);
  EXPECT_EQ(multiply(std::uint64_t{1} << 32, std::uint64_t{1} << 32).high, 1U);
  EXPECT_EQ(multiply(powers_of_ten[19], 100).high, 54U);
  EXPECT_EQ(multiply(powers_of_ten[19], 100).low, 3875820019684212736U);
  EXPECT_EQ(multiply(123456789, 987654321).low, 123456789ULL * 987654321ULL);
}

}  // namespace
