/// Number writers: every integer and floating type as the shortest text that reads back to the same value, in
/// any of the three widths.
///
///     char text[number_buffer_size];
///     const auto written = convert::write_number(text, text + sizeof text, 0.1);
///     std::string_view(text, written.end)          =>  "0.1"
///     convert::number_text(-42)                    =>  "-42"
///     convert::number_text(1e-7)                   =>  "1e-07"
///
/// They allocate nothing, except for the string of `number_text`, never throw but for lack of memory, and
/// depend on no locale. `number_buffer_size` units, of `generic/convert/x_to_str.hpp`, are enough for every
/// number in every radix. Any thread may call them. The inverse operations are in
/// `generic/convert/read_number.hpp`.
///
///     value                      radix    text
///     -255                       16       -ff                    letters are lower case
///     std::int8_t{65}            10       65                     one-byte integers are numbers
///     3.0, -0.0                  10       3, -0
///     100000.0, 123456.0         10       1e+05, 123456          with an exponent only where that is shorter
///     0.1f                       10       0.1                    as many digits as a `float` needs
///     infinity, NaN              10       inf, nan
///     12.0                       16       1.8p+3                 exact, without a prefix
#pragma once

#include <cstddef>
#include <cstdint>

#include "orva/export.hpp"
#include "orva/generic/convert/any_number.hpp"
#include "orva/generic/convert/x_to_str.hpp"
#include "orva/strings/code_unit.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/radix.hpp"

namespace ORVA_NAMESPACE::generic::convert {

/// What is wrong with a number that was to be written.
enum class write_number_error {
  /// The number is written.
  none,
  /// The number has more units than there is room for.
  no_room,
  /// The radix is none that the type can be written in.
  bad_radix,
};

template <strings::code_unit Unit>
struct write_number_result {
  /// The end of the number. After an error the first unit, and nothing is written.
  Unit* end;

  write_number_error error;

  friend bool operator==(const write_number_result&, const write_number_result&) = default;
};

namespace _private {

template <strings::code_unit Unit>
ORVA_API write_number_result<Unit> write_integer(Unit* first, Unit* last, bool is_negative,
                                                 std::uint64_t magnitude, unsigned int radix);

using strings::code_unit16;
using strings::code_unit32;

extern template write_number_result<char> write_integer(char*, char*, bool, std::uint64_t, unsigned int);
extern template write_number_result<code_unit16> write_integer(code_unit16*, code_unit16*, bool,
                                                               std::uint64_t, unsigned int);
extern template write_number_result<code_unit32> write_integer(code_unit32*, code_unit32*, bool,
                                                               std::uint64_t, unsigned int);

template <any_floating Floating, strings::code_unit Unit>
ORVA_API write_number_result<Unit> write_floating(Unit* first, Unit* last, Floating value,
                                                  unsigned int radix);

extern template write_number_result<char> write_floating(char*, char*, float, unsigned int);
extern template write_number_result<code_unit16> write_floating(code_unit16*, code_unit16*, float,
                                                                unsigned int);
extern template write_number_result<code_unit32> write_floating(code_unit32*, code_unit32*, float,
                                                                unsigned int);
extern template write_number_result<char> write_floating(char*, char*, double, unsigned int);
extern template write_number_result<code_unit16> write_floating(code_unit16*, code_unit16*, double,
                                                                unsigned int);
extern template write_number_result<code_unit32> write_floating(code_unit32*, code_unit32*, double,
                                                                unsigned int);
extern template write_number_result<char> write_floating(char*, char*, long double, unsigned int);
extern template write_number_result<code_unit16> write_floating(code_unit16*, code_unit16*, long double,
                                                                unsigned int);
extern template write_number_result<code_unit32> write_floating(code_unit32*, code_unit32*, long double,
                                                                unsigned int);

}  // namespace _private

/// Writes a number from `first` on, without a terminator, if it fits into the units up to `last`.
///
/// An integer is a minus if it is negative, and digits, in a radix from 2 to 36. A floating value has radix
/// 10 or 16. With 10 it is the text of `std::to_chars`: the fewest digits that read back to the same value of
/// the type, without an exponent unless that is shorter. With 16 it is exact, and its exponent is a power of
/// two. A NaN is written with its sign, and no more of it.
template <any_number Number, strings::code_unit Unit>
[[nodiscard]] write_number_result<Unit> write_number(Unit* first, Unit* last, Number value,
                                                     unsigned int radix = types::radix_t::decimal) {
  if constexpr (any_integer<Number>) {
    const bool is_negative = value < 0;
    const auto bits = static_cast<std::uint64_t>(value);
    return _private::write_integer(first, last, is_negative, is_negative ? 0 - bits : bits, radix);
  } else {
    return _private::write_floating(first, last, value, radix);
  }
}

/// The decimal text of a number.
template <any_number Number>
[[nodiscard]] strings::ustring8 number_text(Number value) {
  char text[number_buffer_size];
  return strings::ustring8(text, write_number(text, text + number_buffer_size, value).end);
}

}  // namespace ORVA_NAMESPACE::generic::convert
