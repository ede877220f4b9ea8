#include "orva/internal/number_text/power_of_ten.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>

namespace ORVA_NAMESPACE::internal {

namespace {

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

constexpr auto make_table() {
  std::array<wide_number, greatest_table_power - least_table_power + 1> table{};
  constexpr std::size_t zero = -least_table_power;
  long_number power{1};
  for (std::size_t i = zero; i < table.size(); ++i, multiply_by_five(power)) table[i] = front_of(power);
  long_number quotient{};
  quotient.back() = 0x80000000;
  for (std::size_t i = zero; i-- > 0;) {
    divide_by_five(quotient);
    table[i] = front_of(quotient);
  }
  return table;
}

/// A power has three bits more than the one before it, or four if it has passed a power of two. Then its
/// highest bits are less than those of the one before.
constexpr bool highest_bits_agree_with_table() {
  constexpr auto table = make_table();
  for (std::size_t i = 1; i < table.size(); ++i) {
    const int exponent = static_cast<int>(i) + least_table_power;
    const bool has_passed = table[i].high < table[i - 1].high;
    if (highest_bit(exponent) - highest_bit(exponent - 1) != (has_passed ? 4 : 3)) return false;
  }
  return highest_bit(0) == 0;
}
static_assert(highest_bits_agree_with_table());
static_assert(greatest_exact_power * 2.3219281 < 128, "five to that power has no more bits");

}  // namespace

constexpr std::array<wide_number, greatest_table_power - least_table_power + 1> table_of_powers =
    make_table();

scaled_number power_as_product(int exponent) {
  const int first = std::clamp(exponent, least_table_power, greatest_table_power);
  scaled_number power = power_of_table(first);
  for (int rest = exponent - first; rest != 0;) {
    const int next = std::clamp(rest, least_table_power, greatest_table_power);
    power = product(power, power_of_table(next));
    rest -= next;
  }
  return power;
}

}  // namespace ORVA_NAMESPACE::internal
