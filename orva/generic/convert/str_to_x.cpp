#include "orva/generic/convert/str_to_x.hpp"

#include <cstdint>
#include <limits>
#include <sstream>
#include <string>
#include <type_traits>

#include "orva/exceptions/raise.hpp"
#include "orva/strings/character_class.hpp"

namespace ORVA_2_18::generic::convert {

namespace {

/// A name as the exceptions tell it.
constexpr const char* signed_reader = "ORVA_2_18::generic::convert::strtointx";
constexpr const char* unsigned_reader = "ORVA_2_18::generic::convert::strtouintx";

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

constexpr unsigned int no_digit = 36;

/// The value of a digit of radix 36, or `no_digit`.
constexpr unsigned int digit_value(std::uint32_t unit) {
  if (unit - '0' < 10) return unit - '0';
  const std::uint32_t letter = (unit | 0x20) - 'a';
  return letter < 26 ? letter + 10 : no_digit;
}

/// Walks over a text. The unit at the position can always be read as long as no step has answered `end`; the
/// first unit is there before any test of the length.
template <strings::code_unit Unit>
class number_text {
 public:
  number_text(const Unit* text, std::size_t length) : text_(text), length_(length) {}

  std::uint32_t unit() const { return static_cast<std::make_unsigned_t<Unit>>(text_[position_]); }

  /// Moves to the next unit. False: the text ends here.
  bool advance() { return ++position_ < length_; }

  bool skip_white_space() {
    while (strings::character_class::isspace(text_[position_])) {
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

  /// Reads digits as long as they keep the value within `bound`. False: the number is above it.
  template <typename Unsigned>
  bool read_digits(unsigned int radix, Unsigned bound, Unsigned& value) {
    const auto limit = static_cast<Unsigned>(bound / radix);
    const auto rest = static_cast<unsigned int>(bound % radix);
    do {
      const unsigned int digit = digit_value(unit());
      if (digit >= radix) return true;
      if (value > limit || (value == limit && digit > rest)) return false;
      value = static_cast<Unsigned>(value * radix + digit);
    } while (advance());
    return true;
  }

 private:
  const Unit* text_;
  std::size_t length_;
  std::size_t position_ = 0;
};

template <typename Unsigned>
struct number {
  Unsigned value = 0;
  bool negative = false;
  bool in_range = true;
};

/// The steps that both forms share. `bound` tells the greatest magnitude by the sign.
template <typename Unsigned, strings::code_unit Unit, typename Bound>
number<Unsigned> read(const Unit* text, std::size_t length, unsigned int radix, const char* function,
                      Bound bound) {
  number<Unsigned> result;
  number_text<Unit> rest(text, length);
  if (!rest.skip_white_space() || !rest.skip_sign(result.negative)) return result;
  if (radix == 0 && !rest.skip_prefix(radix)) return result;
  if (radix == 1 || radix > 36) raise_radix(function);
  result.in_range = rest.read_digits(radix, bound(result.negative), result.value);
  return result;
}

/// Wide enough for the type; a number is never built in less than 32 bits.
template <typename Integer>
using accumulator = std::conditional_t<sizeof(Integer) <= 4, std::uint32_t, std::uint64_t>;

}  // namespace

template <typename Integer, strings::code_unit Unit>
Integer strtointx(const Unit* text, std::size_t length, types::radix_t::base radix, bool throw_on_range) {
  using limits = std::numeric_limits<Integer>;
  using unsigned_value = accumulator<Integer>;
  if (length == 0) length = std::char_traits<Unit>::length(text);
  const auto result = read<unsigned_value>(text, length, radix, signed_reader, [](bool negative) {
    return static_cast<unsigned_value>(static_cast<unsigned_value>(limits::max()) + (negative ? 1u : 0u));
  });
  if (result.in_range) {
    return static_cast<Integer>(result.negative ? unsigned_value{0} - result.value : result.value);
  }
  if (!throw_on_range) return result.negative ? limits::min() : limits::max();
  if (result.negative) raise_underflow(signed_reader);
  raise_overflow(signed_reader);
}

template <typename Integer, strings::code_unit Unit>
Integer strtouintx(const Unit* text, std::size_t length, types::radix_t::base radix, bool throw_on_range) {
  using limits = std::numeric_limits<Integer>;
  const auto result = read<accumulator<Integer>>(text, length, radix, unsigned_reader, [](bool) {
    return static_cast<accumulator<Integer>>(limits::max());
  });
  if (result.negative && (result.value != 0 || !result.in_range)) {
    if (throw_on_range) raise_underflow(unsigned_reader);
    return 0;
  }
  if (result.in_range) return static_cast<Integer>(result.value);
  if (throw_on_range) raise_overflow(unsigned_reader);
  return limits::max();
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

namespace {

template <typename Floating>
Floating read_from_stream(std::string_view text, const std::locale* place) {
  std::stringstream stream{std::string(text)};
  if (place != nullptr) stream.imbue(*place);
  Floating value = 0;
  stream >> value;
  return stream.fail() ? Floating{0} : value;
}

}  // namespace

float str_to_float(std::string_view text) { return read_from_stream<float>(text, nullptr); }
float str_to_float(std::string_view text, const std::locale& place) {
  return read_from_stream<float>(text, &place);
}
double str_to_double(std::string_view text) { return read_from_stream<double>(text, nullptr); }
double str_to_double(std::string_view text, const std::locale& place) {
  return read_from_stream<double>(text, &place);
}
long double str_to_long_double(std::string_view text) { return read_from_stream<long double>(text, nullptr); }
long double str_to_long_double(std::string_view text, const std::locale& place) {
  return read_from_stream<long double>(text, &place);
}

}  // namespace ORVA_2_18::generic::convert
