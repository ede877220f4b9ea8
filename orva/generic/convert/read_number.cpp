#include "orva/generic/convert/read_number.hpp"

#include "orva/internal/number_text/digit_run.hpp"

namespace ORVA_NAMESPACE::generic::convert::_private {

namespace {

using internal::as_unsigned;
using internal::decimal_digits;
using internal::digit_run;
using internal::digits_of;

constexpr integer_result result_of(std::uint64_t bits, std::size_t length, number_error error) {
  constexpr std::uint64_t length_mask = (std::uint64_t{1} << 61) - 1;
  return {bits, length & length_mask, static_cast<std::uint64_t>(error) & 7};
}

/// The radix that a text without its sign has by its prefix, and the length of the prefix. The zero of octal
/// numbers is a digit as well.
struct prefix {
  unsigned int radix;
  std::size_t length;
};

template <typename Unit>
prefix prefix_of(view<Unit> text) {
  if (text.empty() || as_unsigned(text[0]) != '0') return {10, 0};
  if (text.size() < 3) return {8, 0};
  const std::uint32_t letter = as_unsigned(text[1]) | 0x20;
  const unsigned int radix = letter == 'x' ? 16 : letter == 'b' ? 2 : 8;
  if (radix == 8 || digits_of::value(as_unsigned(text[2])) >= radix) return {8, 0};
  return {radix, 2};
}

/// Reads the digits at the front of a text of which `skipped` units were read before. `bound` is the greatest
/// magnitude of a number of that sign.
template <typename Digits, typename Unit>
[[gnu::always_inline]] inline integer_result read_magnitude(Digits digits, view<Unit> text,
                                                            std::size_t skipped, bool is_negative,
                                                            std::uint64_t bound) {
  digit_run run = internal::read_digits(digits, text.data(), text.size(), bound);
  if (run.length == 0) return result_of(0, 0, number_error::no_number);
  if (run.in_range)
    return result_of(is_negative ? 0 - run.value : run.value, skipped + run.length, number_error::none);
  while (run.length < text.size() && digits.value(as_unsigned(text[run.length])) < digits.radix) ++run.length;
  if (is_negative) return result_of(0 - bound, skipped + run.length, number_error::too_small);
  return result_of(bound, skipped + run.length, number_error::too_large);
}

/// Every radix but 10. Apart from the decimal numbers, which would be slower otherwise.
template <typename Unit>
[[gnu::noinline]] integer_result read_in_radix(view<Unit> text, unsigned int radix, std::size_t skipped,
                                               bool is_negative, std::uint64_t bound) {
  if (radix == 1 || radix > 36) return result_of(0, 0, number_error::bad_radix);
  if (radix == types::radix_t::prefix) {
    const prefix found = prefix_of(text);
    radix = found.radix;
    skipped += found.length;
    text.remove_prefix(found.length);
  }
  return read_magnitude(digits_of{radix}, text, skipped, is_negative, bound);
}

}  // namespace

template <strings::code_unit Unit>
integer_result read_integer(view<Unit> text, unsigned int radix, integer_limits limits) {
  const std::uint32_t first = text.empty() ? 0 : as_unsigned(text[0]);
  const bool is_negative = first == '-';
  const std::size_t sign_length = is_negative || first == '+' ? 1 : 0;
  const std::uint64_t bound = is_negative ? limits.min_magnitude : limits.max;
  text.remove_prefix(sign_length);
  if (radix != types::radix_t::decimal) return read_in_radix(text, radix, sign_length, is_negative, bound);
  return read_magnitude(decimal_digits{}, text, sign_length, is_negative, bound);
}

template integer_result read_integer(view<char>, unsigned int, integer_limits);
template integer_result read_integer(view<code_unit16>, unsigned int, integer_limits);
template integer_result read_integer(view<code_unit32>, unsigned int, integer_limits);

}  // namespace ORVA_NAMESPACE::generic::convert::_private
