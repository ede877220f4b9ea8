#include "orva/internal/number_text/integer_text.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "tests/support/random_engine.hpp"
#include "tests/support/reference_numbers.hpp"

namespace {

using namespace ORVA_NAMESPACE::internal;

/// The text of an integer, after a test that nothing was written beyond the room that is required.
template <typename Unit, typename Integer>
std::vector<std::uint32_t> text_of(Integer value) {
  std::array<Unit, integer_text_size + 8> units;
  units.fill(Unit{'?'});
  Unit* const end = write_integer(value, units.data());
  for (std::size_t i = integer_text_size; i < units.size(); ++i) EXPECT_EQ(units[i], Unit{'?'}) << i;
  return {units.data(), end};
}

template <typename Integer>
void expect_as_reference(Integer value) {
  const bool negative = value < 0;
  const auto bits = static_cast<std::uint64_t>(value);
  const auto expected = orva_test::reference_write(negative, negative ? 0 - bits : bits, 10);
  ASSERT_EQ(text_of<char>(value), expected) << value;
  ASSERT_EQ(text_of<char16_t>(value), expected) << value;
  ASSERT_EQ(text_of<char32_t>(value), expected) << value;
}

TEST(integer_text, documentation_example) {
  char digits[integer_text_size];
  std::string text;
  text.append(digits, write_integer(-42, digits));
  EXPECT_EQ(text, "-42");
}

template <typename Integer>
void expect_limits_as_reference() {
  expect_as_reference(Integer{0});
  expect_as_reference(std::numeric_limits<Integer>::min());
  expect_as_reference(std::numeric_limits<Integer>::max());
}

TEST(integer_text, limits_of_each_type_are_written) {
  expect_limits_as_reference<signed char>();
  expect_limits_as_reference<unsigned char>();
  expect_limits_as_reference<short>();
  expect_limits_as_reference<unsigned short>();
  expect_limits_as_reference<int>();
  expect_limits_as_reference<unsigned int>();
  expect_limits_as_reference<long>();
  expect_limits_as_reference<unsigned long>();
  expect_limits_as_reference<long long>();
  expect_limits_as_reference<unsigned long long>();
}

TEST(integer_text, numbers_of_every_length_are_written) {
  std::uint64_t power = 1;
  for (int digits = 1; digits <= 20; ++digits, power *= 10) {
    for (const std::uint64_t value : {power - 1, power, power + 1, power * 9, power + power / 2}) {
      expect_as_reference(value);
      expect_as_reference(static_cast<std::int64_t>(0 - value));
    }
  }
}

TEST(integer_text, random_numbers_are_written) {
  orva_test::random_engine random;
  for (int run = 0; run < 20'000; ++run) {
    const std::uint64_t value = random.bits64() >> random() % 64;
    expect_as_reference(value);
    expect_as_reference(static_cast<std::int64_t>(value));
    expect_as_reference(static_cast<std::int32_t>(value));
  }
}

TEST(integer_text, every_radix_returns_the_end_of_its_digits) {
  for (unsigned int radix = 2; radix <= 40; ++radix) {
    for (const std::uint64_t value :
         {std::uint64_t{0}, std::uint64_t{1}, std::uint64_t{12345678901234}, ~std::uint64_t{0}}) {
      std::array<char32_t, 64> units;
      const std::vector<std::uint32_t> text(units.data(), write_digits(value, radix, units.data()));
      EXPECT_EQ(text, orva_test::reference_write(false, value, radix)) << value << " in radix " << radix;
    }
  }
}

}  // namespace
