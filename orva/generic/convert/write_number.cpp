#include "orva/generic/convert/write_number.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "orva/internal/number_text/integer_text.hpp"

namespace ORVA_NAMESPACE::generic::convert::_private {

namespace {

/// Calls `write`, which takes the beginning of `number_buffer_size` units and returns the end of a number,
/// with the output itself, or with a buffer if the output may be too small.
template <typename Unit, typename Write>
[[gnu::always_inline]] inline write_number_result<Unit> write_where_it_fits(Unit* first, Unit* last,
                                                                            Write write) {
  const std::ptrdiff_t room = last - first;
  if (room >= static_cast<std::ptrdiff_t>(number_buffer_size))
    return {write(first), write_number_error::none};
  Unit text[number_buffer_size];
  Unit* const end = write(text);
  if (room < end - text) return {first, write_number_error::no_room};
  return {std::copy(text, end, first), write_number_error::none};
}

char* end_of(char* buffer) { return buffer + number_buffer_size; }

template <typename Floating>
char* write_decimal(char* output, Floating value) {
  return std::to_chars(output, end_of(output), value).ptr;
}

/// A whole number below 1e27, with all its digits.
char* write_whole(char* output, long double value) {
  constexpr long double unit = 1e18L;
  if (std::signbit(value)) *output++ = '-';
  const long double magnitude = std::abs(value);
  const long double low = std::fmod(magnitude, unit);
  // The difference may be rounded, so the quotient may be next to a whole number.
  const auto high = static_cast<std::uint64_t>((magnitude - low) / unit + 0.5L);
  const auto rest = static_cast<std::uint64_t>(low);
  if (high == 0) return internal::write_integer(rest, output);
  // A one in front keeps the zeros, and is replaced by the last digit before them.
  output = internal::write_integer(high, output);
  const char last_digit = *--output;
  char* const end = internal::write_integer(static_cast<std::uint64_t>(unit) + rest, output);
  *output = last_digit;
  return end;
}

/// `std::to_chars` of GCC writes whole numbers of this type by `sprintf`, which allocates on some platforms.
/// The text is the same: the one without an exponent if it is not longer. From 1e27 on it is.
char* write_decimal(char* output, long double value) {
  const bool is_whole = value == std::trunc(value) && std::abs(value) < 1e27L;
  if (!is_whole) return std::to_chars(output, end_of(output), value).ptr;
  char* const end = std::to_chars(output, end_of(output), value, std::chars_format::scientific).ptr;
  char whole[number_buffer_size];
  char* const whole_end = write_whole(whole, value);
  return whole_end - whole <= end - output ? std::copy(whole, whole_end, output) : end;
}

template <typename Floating>
char* write_bytes(char* output, Floating value, unsigned int radix) {
  if (radix == types::radix_t::decimal) return write_decimal(output, value);
  return std::to_chars(output, end_of(output), value, std::chars_format::hex).ptr;
}

template <typename Floating, typename Unit>
Unit* write_units(Unit* output, Floating value, unsigned int radix) {
  if constexpr (std::is_same_v<Unit, char>) {
    return write_bytes(output, value, radix);
  } else {
    char text[number_buffer_size];
    return std::copy(text, write_bytes(text, value, radix), output);
  }
}

}  // namespace

template <strings::code_unit Unit>
write_number_result<Unit> write_integer(Unit* first, Unit* last, bool is_negative, std::uint64_t magnitude,
                                        unsigned int radix) {
  if (radix < 2 || radix > 36) return {first, write_number_error::bad_radix};
  return write_where_it_fits(first, last, [=](Unit* output) {
    if (radix == types::radix_t::decimal) {
      return internal::write_signed_decimal(is_negative, magnitude, output);
    }
    if (is_negative) *output++ = '-';
    return internal::write_digits(magnitude, radix, output);
  });
}

template write_number_result<char> write_integer(char*, char*, bool, std::uint64_t, unsigned int);
template write_number_result<code_unit16> write_integer(code_unit16*, code_unit16*, bool, std::uint64_t,
                                                        unsigned int);
template write_number_result<code_unit32> write_integer(code_unit32*, code_unit32*, bool, std::uint64_t,
                                                        unsigned int);

template <any_floating Floating, strings::code_unit Unit>
write_number_result<Unit> write_floating(Unit* first, Unit* last, Floating value, unsigned int radix) {
  if (radix != types::radix_t::decimal && radix != types::radix_t::hexadecimal) {
    return {first, write_number_error::bad_radix};
  }
  return write_where_it_fits(first, last, [=](Unit* output) { return write_units(output, value, radix); });
}

template write_number_result<char> write_floating(char*, char*, float, unsigned int);
template write_number_result<code_unit16> write_floating(code_unit16*, code_unit16*, float, unsigned int);
template write_number_result<code_unit32> write_floating(code_unit32*, code_unit32*, float, unsigned int);
template write_number_result<char> write_floating(char*, char*, double, unsigned int);
template write_number_result<code_unit16> write_floating(code_unit16*, code_unit16*, double, unsigned int);
template write_number_result<code_unit32> write_floating(code_unit32*, code_unit32*, double, unsigned int);
template write_number_result<char> write_floating(char*, char*, long double, unsigned int);
template write_number_result<code_unit16> write_floating(code_unit16*, code_unit16*, long double,
                                                         unsigned int);
template write_number_result<code_unit32> write_floating(code_unit32*, code_unit32*, long double,
                                                         unsigned int);

}  // namespace ORVA_NAMESPACE::generic::convert::_private
