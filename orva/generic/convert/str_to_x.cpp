#include "orva/generic/convert/str_to_x.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

#include "orva/internal/number_text/digit_run.hpp"
#include "orva/internal/raise.hpp"
#include "orva/internal/text/character_class.hpp"

namespace ORVA_NAMESPACE::generic::convert {

namespace {

/// The functions that the exceptions name.
constexpr const char* signed_reader = ORVA_QUALIFIED("generic::convert::strtointx");
constexpr const char* unsigned_reader = ORVA_QUALIFIED("generic::convert::strtouintx");

[[noreturn]] void raise_radix(const char* function) {
  ORVA_RAISE(exceptions::invalid_argument_value,
             "invalid radix value, values of 0, 2-36 are the only valid values", function);
}

[[noreturn]] void raise_overflow(const char* function) {
  ORVA_RAISE(exceptions::overflow_error, "Number value is to large", function);
}

[[noreturn]] void raise_underflow(const char* function) {
  ORVA_RAISE(exceptions::underflow_error, "Number value is to small", function);
}

using internal::as_unsigned;
using internal::decimal_digits;
using internal::digit_run;
using internal::digits_of;

/// A cursor over the text of a number. Its unit can be read as long as no step has returned that the text
/// ends; the first unit is read before any test of the length.
///
/// It counts the units that are left instead of comparing with an end: a caller may give a length that
/// exceeds the text, which then ends at its first unit that is no digit, and `text + length` need not exist.
template <strings::code_unit Unit>
class number_text {
 public:
  number_text(const Unit* text, std::size_t length)
      : cursor_(text), units_left_(std::max<std::size_t>(length, 1)) {}

  bool skip_white_space() {
    while (internal::character_class::isspace(*cursor_)) {
      if (!advance()) return false;
    }
    return true;
  }

  bool skip_sign(bool& negative) {
    negative = unit() == '-';
    return (!negative && unit() != '+') || advance();
  }

  /// Settles radix 0 by the prefix. False: the text ends within it.
  bool skip_prefix(unsigned int& radix) {
    radix = 10;
    if (unit() != '0' && unit() != '\\') return true;
    radix = 8;
    if (!advance()) return false;
    if (unit() == 'x' || unit() == 'X') {
      radix = 16;
      return advance();
    }
    if (unit() == 'b' || unit() == 'B') {
      radix = 2;
      return advance();
    }
    return true;
  }

  /// Reads digits as long as they keep the value within `bound`.
  template <typename Digits>
  digit_run read_digits(Digits digits, std::uint64_t bound) {
    return internal::read_digits(digits, cursor_, units_left_, bound);
  }

 private:
  std::uint32_t unit() const { return as_unsigned(*cursor_); }

  /// Moves to the next unit. False: the text ends here.
  bool advance() {
    ++cursor_;
    return --units_left_ != 0;
  }

  const Unit* cursor_;
  std::size_t units_left_;
};

struct number {
  digit_run digits;
  bool negative = false;
};

/// The steps that both forms share. `bound` returns the greatest magnitude of a number of that sign.
template <strings::code_unit Unit, typename Bound>
number read(const Unit* text, std::size_t length, unsigned int radix, const char* function, Bound bound) {
  number_text<Unit> rest(text, length);
  bool negative = false;
  if (!rest.skip_white_space() || !rest.skip_sign(negative)) return {};
  if (radix == 0 && !rest.skip_prefix(radix)) return {};
  if (radix == 1 || radix > 36) raise_radix(function);
  if (radix == 10) return {rest.read_digits(decimal_digits{}, bound(negative)), negative};
  return {rest.read_digits(digits_of{radix}, bound(negative)), negative};
}

/// A fast path for the most frequent texts: decimal digits that fit, and in front of them at most a minus
/// where `Integer` is signed. False: the text is another one, and `result` is unchanged.
template <typename Integer, strings::code_unit Unit>
bool read_short_decimal(const Unit* text, std::size_t length, types::radix_t::base radix, Integer max,
                        Integer& result) {
  if (radix != types::radix_t::decimal && radix != types::radix_t::prefix) return false;
  if (text == nullptr || length == 0) return false;
  const bool negative = std::is_signed_v<Integer> && *text == '-';
  const Unit* const digits = text + (negative ? 1 : 0);
  const std::size_t count = length - (negative ? 1 : 0);
  if (count == 0 || count > std::numeric_limits<Integer>::digits10) return false;
  unsigned int digit = decimal_digits::value(as_unsigned(digits[0]));
  if (digit >= 10 || (digit == 0 && radix == types::radix_t::prefix)) return false;
  auto value = static_cast<Integer>(digit);
  for (std::size_t i = 1; i < count && (digit = decimal_digits::value(as_unsigned(digits[i]))) < 10; ++i) {
    value = value * 10 + static_cast<Integer>(digit);
  }
  if (value > max) return false;
  result = negative ? 0 - value : value;
  return true;
}

template <strings::code_unit Unit>
[[gnu::noinline]] long long read_any_signed(const Unit* text, std::size_t length, unsigned int radix,
                                            bool throw_on_range, long long max) {
  if (text == nullptr) return 0;
  if (length == 0) length = std::char_traits<Unit>::length(text);
  const auto [digits, negative] = read(text, length, radix, signed_reader, [max](bool below_zero) {
    return static_cast<std::uint64_t>(max) + (below_zero ? 1u : 0u);
  });
  if (digits.in_range) return static_cast<long long>(negative ? 0 - digits.value : digits.value);
  if (!throw_on_range) return negative ? -max - 1 : max;
  if (negative) raise_underflow(signed_reader);
  raise_overflow(signed_reader);
}

template <strings::code_unit Unit>
[[gnu::noinline]] unsigned long long read_any_unsigned(const Unit* text, std::size_t length,
                                                       unsigned int radix, bool throw_on_range,
                                                       unsigned long long max) {
  if (text == nullptr) return 0;
  const auto [digits, negative] = read(text, length, radix, unsigned_reader, [max](bool) { return max; });
  const bool below_zero = negative && (digits.value != 0 || !digits.in_range);
  if (throw_on_range && below_zero) raise_underflow(unsigned_reader);
  if (throw_on_range && !digits.in_range) raise_overflow(unsigned_reader);
  if (below_zero) return 0;
  return digits.in_range ? digits.value : max;
}

template <strings::code_unit Unit>
long long read_signed(const Unit* text, std::size_t length, types::radix_t::base radix, bool throw_on_range,
                      long long max) {
  long long result;
  if (read_short_decimal(text, length, radix, max, result)) return result;
  return read_any_signed(text, length, radix, throw_on_range, max);
}

template <strings::code_unit Unit>
unsigned long long read_unsigned(const Unit* text, std::size_t length, types::radix_t::base radix,
                                 bool throw_on_range, unsigned long long max) {
  unsigned long long result;
  if (read_short_decimal(text, length, radix, max, result)) return result;
  return read_any_unsigned(text, length, radix, throw_on_range, max);
}

}  // namespace

namespace _private {

long long read_signed(const char* text, std::size_t length, types::radix_t::base radix, bool throw_on_range,
                      long long max) {
  return convert::read_signed(text, length, radix, throw_on_range, max);
}

long long read_signed(const strings::code_unit16* text, std::size_t length, types::radix_t::base radix,
                      bool throw_on_range, long long max) {
  return convert::read_signed(text, length, radix, throw_on_range, max);
}

long long read_signed(const strings::code_unit32* text, std::size_t length, types::radix_t::base radix,
                      bool throw_on_range, long long max) {
  return convert::read_signed(text, length, radix, throw_on_range, max);
}

unsigned long long read_unsigned(const char* text, std::size_t length, types::radix_t::base radix,
                                 bool throw_on_range, unsigned long long max) {
  return convert::read_unsigned(text, length, radix, throw_on_range, max);
}

unsigned long long read_unsigned(const strings::code_unit16* text, std::size_t length,
                                 types::radix_t::base radix, bool throw_on_range, unsigned long long max) {
  return convert::read_unsigned(text, length, radix, throw_on_range, max);
}

unsigned long long read_unsigned(const strings::code_unit32* text, std::size_t length,
                                 types::radix_t::base radix, bool throw_on_range, unsigned long long max) {
  return convert::read_unsigned(text, length, radix, throw_on_range, max);
}

}  // namespace _private

}  // namespace ORVA_NAMESPACE::generic::convert
