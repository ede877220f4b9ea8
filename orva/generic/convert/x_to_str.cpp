#include "orva/generic/convert/x_to_str.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <limits>

#include "orva/debug/assert.hpp"

namespace ORVA_NAMESPACE::generic::convert {

namespace {

/// A digit of any radix: above 36 they go on with the units behind z.
template <typename Unit>
constexpr Unit digit_unit(std::uint64_t digit) {
  return static_cast<Unit>(digit < 10 ? '0' + digit : 'a' + (digit - 10));
}

/// The digits up to radix 36 by a look-up, which costs no decision between figures and letters.
template <typename Unit>
constexpr auto common_digits = [] {
  std::array<Unit, 36> digits{};
  for (std::size_t i = 0; i < digits.size(); ++i) digits[i] = digit_unit<Unit>(i);
  return digits;
}();

// Decimal numbers are written from the front, two digits at a time: the divisions do not wait for each other,
// and nothing needs to know the length before.

/// The numbers 00 to 99.
template <typename Unit>
constexpr auto digit_pairs = [] {
  std::array<std::array<Unit, 2>, 100> pairs{};
  for (std::size_t i = 0; i < pairs.size(); ++i)
    pairs[i] = {digit_unit<Unit>(i / 10), digit_unit<Unit>(i % 10)};
  return pairs;
}();

template <typename Unit>
Unit* write_pair(std::uint32_t value, Unit* at) {
  return std::copy_n(digit_pairs<Unit>[value].data(), 2, at);
}

template <typename Unit>
Unit* write_four(std::uint32_t value, Unit* at) {
  return write_pair(value % 100, write_pair(value / 100, at));
}

template <typename Unit>
Unit* write_eight(std::uint32_t value, Unit* at) {
  return write_four(value % 10000, write_four(value / 10000, at));
}

/// One or two digits, without a branch: lengths of numbers are hard to foresee.
template <typename Unit>
Unit* write_first(std::uint32_t value, Unit* at) {
  const auto& pair = digit_pairs<Unit>[value];
  *at = pair[0];
  at += value >= 10 ? 1 : 0;
  *at = pair[1];
  return at + 1;
}

/// How many pairs of digits a number has, without a branch. The one jump by the result is hard enough to
/// foresee.
inline unsigned int count_pairs(std::uint32_t value) {
  return 1u + (value >= 100) + (value >= 10000) + (value >= 1000000) + (value >= 100000000);
}

/// A number without leading zeros.
template <typename Unit>
[[gnu::always_inline]] inline Unit* write_decimal(std::uint32_t value, Unit* at) {
  switch (count_pairs(value)) {
    case 1:
      return write_first(value, at);
    case 2:
      return write_pair(value % 100, write_first(value / 100, at));
    case 3:
      return write_four(value % 10000, write_first(value / 10000, at));
    case 4:
      return write_four(value % 10000, write_pair(value / 10000 % 100, write_first(value / 1000000, at)));
    default:
      return write_eight(value % 100000000, write_first(value / 100000000, at));
  }
}

template <typename Unit>
[[gnu::always_inline]] inline Unit* write_decimal(std::uint64_t value, Unit* at) {
  if (value <= std::numeric_limits<std::uint32_t>::max()) {
    return write_decimal(static_cast<std::uint32_t>(value), at);
  }
  constexpr std::uint64_t eight_digits = 100000000;
  const auto low = static_cast<std::uint32_t>(value % eight_digits);
  const std::uint64_t high = value / eight_digits;
  if (high < eight_digits) return write_eight(low, write_decimal(static_cast<std::uint32_t>(high), at));
  at = write_decimal(static_cast<std::uint32_t>(high / eight_digits), at);
  return write_eight(low, write_eight(static_cast<std::uint32_t>(high % eight_digits), at));
}

/// Digits of `bits` bits each; as a template argument, the shift is free.
template <unsigned int bits, typename Unit>
Unit* write_bits(std::uint64_t value, Unit* buffer) {
  constexpr unsigned int digit = (1u << bits) - 1;
  Unit* const end = buffer + (static_cast<unsigned int>(std::bit_width(value | 1)) + bits - 1) / bits;
  for (Unit* at = end; at != buffer; value >>= bits) *--at = common_digits<Unit>[value & digit];
  return end;
}

/// Any radix from 2, least significant digit first.
template <typename Unit>
Unit* write_by_division(std::uint64_t value, Unit* buffer, unsigned int radix) {
  std::array<Unit, 64> digits;
  auto at = digits.end();
  for (; value >= radix; value /= radix) *--at = digit_unit<Unit>(value % radix);
  *--at = digit_unit<Unit>(value);
  return std::copy(at, digits.end(), buffer);
}

template <typename Unit>
Unit* write_digits(std::uint64_t value, Unit* buffer, unsigned int radix) {
  switch (radix) {
    case 2:
      return write_bits<1>(value, buffer);
    case 8:
      return write_bits<3>(value, buffer);
    case 16:
      return write_bits<4>(value, buffer);
    default:
      return write_by_division(value, buffer, radix);
  }
}

/// Every radix but 10. Apart from the decimal numbers, so that these pay nothing for it.
template <typename Unit>
[[gnu::noinline]] void write_in_radix(bool negative, std::uint64_t magnitude, Unit* buffer,
                                      unsigned int radix) {
  ORVA_ASSERT(radix >= 2);
  if (radix >= 2) {
    if (negative) *buffer++ = '-';
    buffer = write_digits(magnitude, buffer, radix);
  }
  *buffer = 0;
}

template <typename Unit>
void write(bool negative, std::uint64_t magnitude, Unit* buffer, unsigned int radix) {
  if (radix != 10) return write_in_radix(negative, magnitude, buffer, radix);
  // Where there is no sign, the first digit takes its place.
  *buffer = '-';
  *write_decimal(magnitude, buffer + (negative ? 1 : 0)) = 0;
}

}  // namespace

template <strings::code_unit Unit>
void ulltoa(unsigned long long value, Unit* buffer, unsigned int radix) {
  write(false, value, buffer, radix);
}

template <strings::code_unit Unit>
void lltoa(long long value, Unit* buffer, unsigned int radix) {
  const auto bits = static_cast<unsigned long long>(value);
  write(value < 0, value < 0 ? 0 - bits : bits, buffer, radix);
}

template void ulltoa(unsigned long long, char*, unsigned int);
template void ulltoa(unsigned long long, strings::code_unit16*, unsigned int);
template void ulltoa(unsigned long long, strings::code_unit32*, unsigned int);
template void lltoa(long long, char*, unsigned int);
template void lltoa(long long, strings::code_unit16*, unsigned int);
template void lltoa(long long, strings::code_unit32*, unsigned int);

}  // namespace ORVA_NAMESPACE::generic::convert
