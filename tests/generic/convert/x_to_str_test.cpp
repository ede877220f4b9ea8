#include "orva/generic/convert/x_to_str.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "orva/debug/assert.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_numbers.hpp"

namespace {

namespace convert = ORVA_NAMESPACE::generic::convert;
namespace debug = ORVA_NAMESPACE::debug;
using ORVA_NAMESPACE::strings::code_unit;
using ORVA_NAMESPACE::strings::code_unit16;
using ORVA_NAMESPACE::strings::code_unit32;

enum class untouched : std::uint8_t { mark = 0x5A };

/// A buffer that shows whether anything was written after the terminator.
template <code_unit Unit>
struct marked_buffer {
  marked_buffer() { units.fill(static_cast<Unit>(untouched::mark)); }

  bool holds(const std::vector<std::uint32_t>& expected) const {
    const auto same = [](Unit unit, std::uint32_t value) { return unit == static_cast<Unit>(value); };
    return std::equal(expected.begin(), expected.end(), units.begin(),
                      [&](std::uint32_t value, Unit unit) { return same(unit, value); }) &&
           units[expected.size()] == 0 &&
           std::all_of(units.begin() + static_cast<std::ptrdiff_t>(expected.size()) + 1, units.end(),
                       [&](Unit unit) { return same(unit, static_cast<std::uint32_t>(untouched::mark)); });
  }

  std::array<Unit, convert::number_buffer_size> units;
};

template <code_unit Unit>
bool writes_unsigned(unsigned long long value, unsigned int radix) {
  marked_buffer<Unit> buffer;
  convert::ulltoa(value, buffer.units.data(), radix);
  return buffer.holds(orva_test::reference_write(false, value, radix));
}

template <code_unit Unit>
bool writes_signed(long long value, unsigned int radix) {
  marked_buffer<Unit> buffer;
  convert::lltoa(value, buffer.units.data(), radix);
  const auto bits = static_cast<std::uint64_t>(value);
  return buffer.holds(orva_test::reference_write(value < 0, value < 0 ? 0 - bits : bits, radix));
}

void expect_as_reference(std::uint64_t value, unsigned int radix) {
  const auto number = static_cast<long long>(value);
  if (!writes_unsigned<char>(value, radix) || !writes_signed<char>(number, radix) ||
      !writes_unsigned<code_unit16>(value, radix) || !writes_signed<code_unit16>(number, radix) ||
      !writes_unsigned<code_unit32>(value, radix) || !writes_signed<code_unit32>(number, radix)) {
    ADD_FAILURE() << value << " in radix " << radix;
  }
}

template <typename Write>
std::string text_of(Write write) {
  char buffer[convert::number_buffer_size];
  write(buffer);
  return buffer;
}

TEST(x_to_str, documentation_example) {
  EXPECT_EQ(text_of([](char* buffer) { convert::ltoa(-2147483647L - 1, buffer, 10); }), "-2147483648");
  EXPECT_EQ(text_of([](char* buffer) { convert::ltoa(255, buffer, 16); }), "ff");
  EXPECT_EQ(text_of([](char* buffer) { convert::ltoa(-255, buffer, 16); }), "-ff");
  EXPECT_EQ(text_of([](char* buffer) { convert::ultoa(0, buffer, 2); }), "0");
}

TEST(x_to_str, limits_of_each_type_are_written) {
  EXPECT_EQ(text_of([](char* buffer) { convert::lltoa(std::numeric_limits<long long>::min(), buffer, 10); }),
            "-9223372036854775808");
  EXPECT_EQ(text_of([](char* buffer) { convert::lltoa(std::numeric_limits<long long>::max(), buffer, 10); }),
            "9223372036854775807");
  EXPECT_EQ(text_of([](char* buffer) {
              convert::ulltoa(std::numeric_limits<unsigned long long>::max(), buffer, 10);
            }),
            "18446744073709551615");
  EXPECT_EQ(text_of([](char* buffer) { convert::ltoa(std::numeric_limits<long>::min(), buffer, 10); }),
            std::to_string(std::numeric_limits<long>::min()));
  EXPECT_EQ(
      text_of([](char* buffer) { convert::ultoa(std::numeric_limits<unsigned long>::max(), buffer, 10); }),
      std::to_string(std::numeric_limits<unsigned long>::max()));
}

TEST(x_to_str, longest_number_fills_the_buffer) {
  const std::string text =
      text_of([](char* buffer) { convert::lltoa(std::numeric_limits<long long>::min(), buffer, 2); });
  EXPECT_EQ(text, "-1" + std::string(63, '0'));
  EXPECT_EQ(text.size() + 1, convert::number_buffer_size);
}

TEST(x_to_str, radix_above_36_continues_after_z) {
  EXPECT_EQ(text_of([](char* buffer) { convert::ulltoa(36, buffer, 37); }), "{");
  EXPECT_EQ(text_of([](char* buffer) { convert::ulltoa(37, buffer, 37); }), "10");
}

TEST(x_to_str, radix_0_and_1_write_an_empty_text_and_fail_an_assertion) {
  static int failures;
  failures = 0;
  struct count_failures : ORVA_NAMESPACE::functor::function_type_interface<debug::assert_hook> {
    void operator()(const char*, const char*, unsigned int&) override { ++failures; }
    bool equal(const ORVA_NAMESPACE::functor::function_type_interface<debug::assert_hook>&) const override {
      return false;
    }
    count_failures* clone() const override { return new count_failures; }
  };
  debug::set_assert_hook(ORVA_NAMESPACE::functor::delegate_t<debug::assert_hook>(count_failures{}));
  EXPECT_EQ(text_of([](char* buffer) { convert::lltoa(-5, buffer, 0); }), "");
  EXPECT_EQ(text_of([](char* buffer) { convert::lltoa(5, buffer, 1); }), "");
  EXPECT_EQ(text_of([](char* buffer) { convert::ultoa(0, buffer, 0); }), "");
  EXPECT_EQ(failures, 3);
  debug::set_assert_hook(ORVA_NAMESPACE::types::nil);
}

TEST(x_to_str, every_16_bit_number_in_every_radix_as_the_reference) {
  for (unsigned int radix = 2; radix <= 40; ++radix) {
    for (int value = -32768; value <= 32767; value += (radix == 10 ? 1 : 31)) {
      if (!writes_signed<char>(value, radix)) FAIL() << value << " in radix " << radix;
    }
  }
}

TEST(x_to_str, numbers_around_every_change_of_length_as_the_reference) {
  for (unsigned int radix = 2; radix <= 40; ++radix) {
    for (std::uint64_t power = 1;; power *= radix) {
      for (const std::uint64_t value : {power - 1, power, power + 1, 0 - power})
        expect_as_reference(value, radix);
      if (power > std::numeric_limits<std::uint64_t>::max() / radix) break;
    }
  }
  for (int bit = 0; bit < 64; ++bit) {
    const std::uint64_t power = std::uint64_t{1} << bit;
    for (const std::uint64_t value : {power - 1, power, power + 1}) {
      for (const unsigned int radix : {2u, 4u, 8u, 10u, 16u, 32u, 36u, 300u})
        expect_as_reference(value, radix);
    }
  }
}

TEST(x_to_str, random_numbers_as_the_reference) {
  orva_test::random_engine random;
  for (int run = 0; run < 20000; ++run) {
    const std::uint64_t value = random.bits64() >> random() % 64;
    expect_as_reference(value, 10);
    expect_as_reference(value, 2 + static_cast<unsigned int>(random() % 40));
  }
}

}  // namespace
