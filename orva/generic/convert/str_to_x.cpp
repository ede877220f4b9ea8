#include "orva/generic/convert/str_to_x.hpp"

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

#include "orva/internal/raise.hpp"
#include "orva/internal/text/character_class.hpp"

namespace ORVA_NAMESPACE::generic::convert {

namespace {

/// A name as the exceptions tell it.
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

template <strings::code_unit Unit>
constexpr std::uint32_t as_unsigned(Unit unit) {
  return static_cast<std::make_unsigned_t<Unit>>(unit);
}

/// How many digits of a radix always fit, whatever they are.
template <typename Unsigned>
constexpr std::size_t safe_digits(unsigned int radix) {
  constexpr Unsigned max = std::numeric_limits<Unsigned>::max();
  const unsigned int highest = radix - 1;
  std::size_t count = 0;
  for (Unsigned largest = 0; largest <= (max - highest) / radix; ++count) largest = largest * radix + highest;
  return count;
}

template <typename Unsigned>
constexpr auto safe_digits_by_radix = [] {
  std::array<std::uint8_t, 37> table{};
  for (unsigned int radix = 2; radix <= 36; ++radix) {
    table[radix] = static_cast<std::uint8_t>(safe_digits<Unsigned>(radix));
  }
  return table;
}();

static_assert(safe_digits_by_radix<std::uint32_t>[10] == 9 && safe_digits_by_radix<std::uint64_t>[10] == 19);
static_assert(safe_digits_by_radix<std::uint32_t>[2] == 32 && safe_digits_by_radix<std::uint64_t>[16] == 16);

/// The digits of the radix that nearly every text has; a constant, so that no multiplication remains.
struct decimal_digits {
  static constexpr unsigned int radix = 10;

  /// The value of a digit, or a number not below the radix.
  static constexpr unsigned int value(std::uint32_t unit) { return unit - '0'; }
};

struct digits_of {
  unsigned int radix;

  static constexpr unsigned int value(std::uint32_t unit) {
    if (unit - '0' < 10) return unit - '0';
    const std::uint32_t letter = (unit | 0x20) - 'a';
    return letter < 26 ? letter + 10 : 36;
  }
};

/// What the digits say. Out of range, the value is that of the digits which fitted.
template <typename Unsigned>
struct magnitude {
  Unsigned value = 0;
  bool in_range = true;
};

/// Walks over a text. The unit at the position can always be read as long as no step has answered that the
/// text ends; the first unit is there before any test of the length.
template <strings::code_unit Unit>
class number_text {
 public:
  number_text(const Unit* text, std::size_t length) : at_(text), end_(text + length) {}

  bool skip_white_space() {
    while (internal::character_class::isspace(*at_)) {
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
  template <typename Digits, typename Unsigned>
  magnitude<Unsigned> read_digits(Digits digits, Unsigned bound) {
    const std::size_t safe = safe_digits_by_radix<Unsigned>[digits.radix];
    const Unit* const test_from = static_cast<std::size_t>(end_ - at_) > safe ? at_ + safe : end_;
    Unsigned value = 0;
    do {
      const unsigned int digit = digits.value(unit());
      if (digit >= digits.radix) return {value, value <= bound};
      value = static_cast<Unsigned>(value * digits.radix + digit);
    } while (++at_ < test_from);
    if (at_ < end_) return read_long_number(digits, bound, value);
    return {value, value <= bound};
  }

 private:
  std::uint32_t unit() const { return as_unsigned(*at_); }

  /// Moves to the next unit. False: the text ends here.
  bool advance() { return ++at_ < end_; }

  /// The digits behind those that always fit, each tested before it is added.
  template <typename Digits, typename Unsigned>
  magnitude<Unsigned> read_long_number(Digits digits, Unsigned bound, Unsigned value) {
    const auto limit = static_cast<Unsigned>(bound / digits.radix);
    const auto rest = static_cast<unsigned int>(bound % digits.radix);
    do {
      const unsigned int digit = digits.value(unit());
      if (digit >= digits.radix) return {value, value <= bound};
      if (value > limit || (value == limit && digit > rest)) return {value, false};
      value = static_cast<Unsigned>(value * digits.radix + digit);
    } while (advance());
    return {value, true};
  }

  const Unit* at_;
  const Unit* end_;
};

template <typename Unsigned>
struct number {
  magnitude<Unsigned> size;
  bool negative = false;
};

/// The steps that both forms share. `bound` tells the greatest magnitude by the sign.
template <typename Unsigned, strings::code_unit Unit, typename Bound>
number<Unsigned> read(const Unit* text, std::size_t length, unsigned int radix, const char* function,
                      Bound bound) {
  number_text<Unit> rest(text, length);
  bool negative = false;
  if (!rest.skip_white_space() || !rest.skip_sign(negative)) return {};
  if (radix == 0 && !rest.skip_prefix(radix)) return {};
  if (radix == 1 || radix > 36) raise_radix(function);
  if (radix == 10) return {rest.read_digits(decimal_digits{}, bound(negative)), negative};
  return {rest.read_digits(digits_of{radix}, bound(negative)), negative};
}

/// Wide enough for the type; a number is never built in less than 32 bits.
template <typename Integer>
using accumulator = std::conditional_t<sizeof(Integer) <= 4, std::uint32_t, std::uint64_t>;

/// Reads the number that most texts are: a sign at most, then decimal digits, so few that any of them fit.
/// False: it is another one. Says nothing that the steps in full would not say; it is here to be quick.
template <typename Integer, strings::code_unit Unit>
bool read_short_decimal(const Unit* text, std::size_t length, types::radix_t::base radix, Integer& result) {
  if ((radix != types::radix_t::decimal && radix != types::radix_t::prefix) || length == 0) return false;
  const bool negative = std::is_signed_v<Integer> && *text == '-';
  const Unit* at = text + (negative ? 1 : 0);
  const Unit* const end = text + length;
  if (static_cast<std::size_t>(end - at) - 1 >= std::numeric_limits<Integer>::digits10) return false;
  unsigned int digit = decimal_digits::value(as_unsigned(*at));
  if (digit >= 10 || (digit == 0 && radix == types::radix_t::prefix)) return false;
  accumulator<Integer> value = digit;
  while (++at < end && (digit = decimal_digits::value(as_unsigned(*at))) < 10) value = value * 10 + digit;
  result = static_cast<Integer>(negative ? accumulator<Integer>{0} - value : value);
  return true;
}

template <typename Integer, strings::code_unit Unit>
[[gnu::noinline]] Integer read_signed(const Unit* text, std::size_t length, unsigned int radix,
                                      bool throw_on_range) {
  using limits = std::numeric_limits<Integer>;
  using unsigned_value = accumulator<Integer>;
  if (text == nullptr) return 0;
  if (length == 0) length = std::char_traits<Unit>::length(text);
  const auto [size, negative] = read<unsigned_value>(text, length, radix, signed_reader, [](bool below_zero) {
    return static_cast<unsigned_value>(limits::max()) + (below_zero ? 1u : 0u);
  });
  if (size.in_range) return static_cast<Integer>(negative ? unsigned_value{0} - size.value : size.value);
  if (!throw_on_range) return negative ? limits::min() : limits::max();
  if (negative) raise_underflow(signed_reader);
  raise_overflow(signed_reader);
}

template <typename Integer, strings::code_unit Unit>
[[gnu::noinline]] Integer read_unsigned(const Unit* text, std::size_t length, unsigned int radix,
                                        bool throw_on_range) {
  constexpr accumulator<Integer> max = std::numeric_limits<Integer>::max();
  if (text == nullptr) return 0;
  const auto [size, negative] =
      read<accumulator<Integer>>(text, length, radix, unsigned_reader, [](bool) { return max; });
  const bool below_zero = negative && (size.value != 0 || !size.in_range);
  if (throw_on_range && below_zero) raise_underflow(unsigned_reader);
  if (throw_on_range && !size.in_range) raise_overflow(unsigned_reader);
  if (below_zero) return 0;
  return static_cast<Integer>(size.in_range ? size.value : max);
}

}  // namespace

template <typename Integer, strings::code_unit Unit>
Integer strtointx(const Unit* text, std::size_t length, types::radix_t::base radix, bool throw_on_range) {
  Integer result;
  if (read_short_decimal(text, length, radix, result)) return result;
  return read_signed<Integer>(text, length, radix, throw_on_range);
}

template <typename Integer, strings::code_unit Unit>
Integer strtouintx(const Unit* text, std::size_t length, types::radix_t::base radix, bool throw_on_range) {
  Integer result;
  if (read_short_decimal(text, length, radix, result)) return result;
  return read_unsigned<Integer>(text, length, radix, throw_on_range);
}

#define ORVA_INSTANTIATE(function, integer)                                                        \
  template integer function(const char*, std::size_t, types::radix_t::base, bool);                 \
  template integer function(const strings::code_unit16*, std::size_t, types::radix_t::base, bool); \
  template integer function(const strings::code_unit32*, std::size_t, types::radix_t::base, bool);

ORVA_INSTANTIATE(strtointx, signed char)
ORVA_INSTANTIATE(strtointx, short)
ORVA_INSTANTIATE(strtointx, int)
ORVA_INSTANTIATE(strtointx, long)
ORVA_INSTANTIATE(strtointx, long long)
ORVA_INSTANTIATE(strtouintx, unsigned char)
ORVA_INSTANTIATE(strtouintx, unsigned short)
ORVA_INSTANTIATE(strtouintx, unsigned int)
ORVA_INSTANTIATE(strtouintx, unsigned long)
ORVA_INSTANTIATE(strtouintx, unsigned long long)

#undef ORVA_INSTANTIATE

}  // namespace ORVA_NAMESPACE::generic::convert
