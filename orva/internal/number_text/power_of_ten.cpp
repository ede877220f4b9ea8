#include "orva/internal/number_text/power_of_ten.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>

namespace ORVA_NAMESPACE::internal {

namespace {

/// The powers that a `double` of up to 19 digits needs.
constexpr int least_power = -342;
constexpr int greatest_power = 308;

/// Powers of five up to this fit into 128 bits.
constexpr int greatest_exact_power = 55;

/// A number of 960 bits, least significant part first: room for 5^308, and for 1 / 5^342 with 128 bits that
/// are not 0 at their front.
using long_number = std::array<std::uint32_t, 30>;

constexpr void multiply_by_five(long_number& number) {
  std::uint64_t carry = 0;
  for (auto& part : number) {
    carry += std::uint64_t{part} * 5;
    part = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
}

/// The quotient is rounded down. It is that of the first number by a power of five, however often the
/// number is divided.
constexpr void divide_by_five(long_number& number) {
  std::uint64_t rest = 0;
  for (auto part = number.rbegin(); part != number.rend(); ++part) {
    rest = rest << 32 | *part;
    *part = static_cast<std::uint32_t>(rest / 5);
    rest %= 5;
  }
}

/// The 128 bits from the highest that is set.
constexpr wide_number front_of(const long_number& number) {
  std::size_t top = number.size() - 1;
  while (number[top] == 0) --top;
  const auto part = [&](std::size_t i) { return i <= top ? std::uint64_t{number[top - i]} : 0; };
  const int shift = std::countl_zero(number[top]);
  const wide_number front{part(0) << 32 | part(1), part(2) << 32 | part(3)};
  const std::uint64_t next = part(4) << 32;
  const wide_number shifted = shifted_left(front, shift);
  return {shifted.high, shifted.low | (shift == 0 ? 0 : next >> (64 - shift))};
}

struct power_table {
  std::array<wide_number, greatest_power - least_power + 1> powers{};

  constexpr power_table() {
    long_number power{1};
    for (int i = 0; i <= greatest_power; ++i, multiply_by_five(power)) at(i) = front_of(power);
    long_number quotient{};
    quotient.back() = 0x80000000;
    for (int i = -1; i >= least_power; --i) {
      divide_by_five(quotient);
      at(i) = front_of(quotient);
    }
  }

  constexpr wide_number& at(int exponent) { return powers[static_cast<std::size_t>(exponent - least_power)]; }
  constexpr const wide_number& at(int exponent) const {
    return powers[static_cast<std::size_t>(exponent - least_power)];
  }
};

constexpr power_table table;
static_assert(table.at(0).high == std::uint64_t{1} << 63 && table.at(0).low == 0);
static_assert(table.at(-1).high == 0xCCCCCCCCCCCCCCCC && table.at(-1).low == 0xCCCCCCCCCCCCCCCC);
static_assert(greatest_exact_power * 2.3219281 < 128);

/// The exponent of the highest bit: the logarithm to the base of two, rounded down.
constexpr int highest_bit(int exponent) { return exponent * 217706 >> 16; }

/// A power has one bit more, or three or four, than the power before it, which a wrong rounding of
/// `highest_bit` would contradict: a front that is less than the one before it has passed a power of two.
constexpr bool highest_bits_agree_with_table() {
  for (int i = least_power + 1; i <= greatest_power; ++i) {
    const bool has_passed = table.at(i).high < table.at(i - 1).high;
    if (highest_bit(i) - highest_bit(i - 1) != (has_passed ? 4 : 3)) return false;
  }
  return highest_bit(0) == 0;
}
static_assert(highest_bits_agree_with_table());

scaled_number power_of_table(int exponent) {
  const bool is_exact = exponent >= 0 && exponent <= greatest_exact_power;
  return {table.at(exponent), highest_bit(exponent) - 127, is_exact ? 0U : 1U};
}

}  // namespace

scaled_number power_of_ten(int exponent) {
  const int first = std::clamp(exponent, least_power, greatest_power);
  scaled_number power = power_of_table(first);
  // Only `long double` has powers beyond the table.
  for (int rest = exponent - first; rest != 0;) {
    const int next = std::clamp(rest, least_power, greatest_power);
    power = product(power, power_of_table(next));
    rest -= next;
  }
  return power;
}

}  // namespace ORVA_NAMESPACE::internal
