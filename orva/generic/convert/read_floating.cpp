#include <bit>
#include <cstdint>
#include <limits>
#include <string_view>

#include "orva/generic/convert/read_number.hpp"
#include "orva/internal/number_text/decimal_number.hpp"
#include "orva/internal/number_text/nearest_floating.hpp"
#include "orva/internal/number_text/round_to_floating.hpp"

namespace ORVA_NAMESPACE::generic::convert::_private {

namespace {

using internal::as_unsigned;
using internal::decimal_number;
using internal::digits_of;

/// A number without its sign, from the front of a text up to `end`, which is null if there is none.
template <typename Floating, typename Unit>
struct magnitude {
  Floating value = 0;
  const Unit* end = nullptr;
  number_error error = number_error::no_number;
};

/// A value that is the nearest to a number. `is_zero`: the number itself is 0.
template <typename Floating, typename Unit>
magnitude<Floating, Unit> nearest(Floating value, const Unit* end, bool is_zero) {
  constexpr Floating infinity = std::numeric_limits<Floating>::infinity();
  if (value == infinity) return {value, end, number_error::too_large};
  if (value == 0 && !is_zero) return {value, end, number_error::too_small};
  return {value, end, number_error::none};
}

/// Whether a text begins with a word of small letters, in any case.
template <typename Unit>
bool begins_with(const Unit* at, const Unit* end, std::string_view word) {
  if (static_cast<std::size_t>(end - at) < word.size()) return false;
  for (const char letter : word) {
    if ((as_unsigned(*at++) | 0x20) != as_unsigned(letter)) return false;
  }
  return true;
}

template <typename Floating, typename Unit>
[[gnu::noinline]] magnitude<Floating, Unit> read_word(const Unit* at, const Unit* end) {
  using limits = std::numeric_limits<Floating>;
  if (begins_with(at, end, "infinity")) return {limits::infinity(), at + 8, number_error::none};
  if (begins_with(at, end, "inf")) return {limits::infinity(), at + 3, number_error::none};
  if (begins_with(at, end, "nan")) return {limits::quiet_NaN(), at + 3, number_error::none};
  return {};
}

template <typename Floating, typename Unit>
[[gnu::always_inline]] inline magnitude<Floating, Unit> read_decimal(const Unit* at, const Unit* end) {
  const decimal_number<Unit> number = internal::find_decimal(at, end);
  if (number.end == nullptr) return read_word<Floating>(at, end);
  return nearest(internal::nearest_floating<Floating>(number), number.end,
                 number.digits == 0 && !number.is_long);
}

/// The end of digits with at most one point; `at` if there is no digit.
template <typename Unit>
const Unit* end_of_hexadecimal_digits(const Unit* at, const Unit* end) {
  const Unit* const begin = at;
  bool has_point = false;
  bool has_digit = false;
  for (; at != end; ++at) {
    const std::uint32_t unit = as_unsigned(*at);
    if (unit == '.' && !has_point) {
      has_point = true;
    } else if (digits_of::value(unit) < 16) {
      has_digit = true;
    } else {
      break;
    }
  }
  return has_digit ? at : begin;
}

/// 31 digits are more than a mantissa has. Of others it matters only whether one is not 0, which the lowest
/// bit records.
template <typename Floating, typename Unit>
magnitude<Floating, Unit> read_hexadecimal(const Unit* at, const Unit* end) {
  const Unit* const digits_end = end_of_hexadecimal_digits(at, end);
  if (digits_end == at) return read_word<Floating>(at, end);
  internal::wide_number digits = {0, 0};
  const auto append = [&digits](unsigned int digit) {
    digits = internal::shifted_left(digits, 4);
    digits.low |= digit;
  };
  const internal::digit_tail tail = internal::take_first_digits(digits_of{16}, at, digits_end, 31, append);
  std::int64_t exponent = 0;
  const Unit* const number_end = internal::read_exponent(digits_end, end, 'p', exponent);
  if (digits.is_zero()) return {0, number_end, number_error::none};
  exponent += 4 * tail.exponent;
  digits.low |= tail.has_further_digits ? 1 : 0;
  if (digits.high == 0) {
    digits = {digits.low, 0};
    exponent -= 64;
  }
  const int leading = std::countl_zero(digits.high);
  digits = internal::shifted_left(digits, leading);
  return nearest(internal::round_to_floating<Floating>(digits, exponent - leading), number_end, false);
}

/// The radix is one that floating values have.
template <typename Floating, typename Unit>
[[gnu::always_inline]] inline magnitude<Floating, Unit> read_magnitude(const Unit* at, const Unit* end,
                                                                       unsigned int radix) {
  if (radix == types::radix_t::decimal) return read_decimal<Floating>(at, end);
  if (radix == types::radix_t::hexadecimal) return read_hexadecimal<Floating>(at, end);
  const bool has_prefix = end - at > 2 && as_unsigned(at[0]) == '0' && (as_unsigned(at[1]) | 0x20) == 'x' &&
                          end_of_hexadecimal_digits(at + 2, end) != at + 2;
  if (has_prefix) return read_hexadecimal<Floating>(at + 2, end);
  return read_decimal<Floating>(at, end);
}

constexpr bool is_floating_radix(unsigned int radix) {
  return radix == types::radix_t::decimal || radix == types::radix_t::hexadecimal ||
         radix == types::radix_t::prefix;
}

}  // namespace

template <any_floating Floating, strings::code_unit Unit>
read_number_result<Floating> read_floating(view<Unit> text, unsigned int radix) {
  if (!is_floating_radix(radix)) return {0, 0, number_error::bad_radix};
  const Unit* const begin = text.data();
  const Unit* const end = begin + text.size();
  const std::uint32_t first = text.empty() ? 0 : as_unsigned(*begin);
  const bool is_negative = first == '-';
  const Unit* const unsigned_begin = begin + (is_negative || first == '+' ? 1 : 0);
  const magnitude<Floating, Unit> number = read_magnitude<Floating>(unsigned_begin, end, radix);
  if (number.end == nullptr) return {0, 0, number_error::no_number};
  return {is_negative ? -number.value : number.value, static_cast<std::size_t>(number.end - begin),
          number.error};
}

template read_number_result<float> read_floating(view<char>, unsigned int);
template read_number_result<float> read_floating(view<code_unit16>, unsigned int);
template read_number_result<float> read_floating(view<code_unit32>, unsigned int);
template read_number_result<double> read_floating(view<char>, unsigned int);
template read_number_result<double> read_floating(view<code_unit16>, unsigned int);
template read_number_result<double> read_floating(view<code_unit32>, unsigned int);
template read_number_result<long double> read_floating(view<char>, unsigned int);
template read_number_result<long double> read_floating(view<code_unit16>, unsigned int);
template read_number_result<long double> read_floating(view<code_unit32>, unsigned int);

}  // namespace ORVA_NAMESPACE::generic::convert::_private
