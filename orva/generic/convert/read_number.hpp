/// Number readers that say what is wrong: text of any width into every integer and floating type.
///
///     convert::read_number<int>("12abc")               =>  value 12, length 2, error none
///     convert::read_number<std::int8_t>("300 kg")      =>  value 127, length 3, error too_large
///     convert::read_number<double>("2.5e-1 litres")    =>  value 0.25, length 6, error none
///     convert::parse_number<int>("12")                 =>  12
///     convert::parse_number<int>("12abc")              =>  nullopt: not wholly a number
///
/// `read_number` reads a number at the front of a text, as `std::from_chars` does, and `parse_number` a text
/// that is wholly a number. Both take strings, views and literals of the three widths. They never allocate or
/// throw, and depend on no locale: the decimal point is a point, and digits have no groups. Any thread may
/// call them. The inverse operations are in `generic/convert/write_number.hpp`.
/// `diagnostics::describe(result, text)` (diagnostics/number_findings.hpp) says what is wrong, with line and
/// column.
///
///     text             type            radix         value, length, error
///     -42              int             10            =>  -42, 3, none
///     +42              int             10            =>  42, 3, none             one sign, also a plus
///     " 42"            int             10            =>  0, 0, no_number         no white space in front
///     - 42             int             10            =>  0, 0, no_number         nor after the sign
///     0x1F             int             16            =>  0, 1, none              a radix reads no prefix
///     0x1F             int             prefix        =>  31, 4, none
///     -5               unsigned        10            =>  0, 2, too_small
///     -0               unsigned        10            =>  0, 2, none
///     -129             std::int8_t     10            =>  -128, 4, too_small
///     .5 and 5.        double          10            =>  0.5, 2, none and 5.0, 2, none
///     12e              double          10            =>  12.0, 2, none           no digit after the letter
///     1e400            double          10            =>  infinity, 5, too_large
///     -1e400           double          10            =>  -infinity, 6, too_large
///     -1e-400          double          10            =>  -0.0, 7, too_small
///     inf, -Infinity   double          10            =>  infinity, 3, none and -infinity, 9, none
///     nan(1)           double          10            =>  NaN, 3, none
///     1.8p3            double          16            =>  12.0, 5, none
///     0x1.8p3          double          prefix        =>  12.0, 7, none
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

#include "orva/export.hpp"
#include "orva/generic/convert/any_number.hpp"
#include "orva/strings/code_unit.hpp"
#include "orva/strings/ustring_for.hpp"
#include "orva/types/radix.hpp"

namespace ORVA_NAMESPACE::generic::convert {

/// What is wrong with a number that was read.
enum class number_error {
  /// The text begins with a number that the type represents.
  none,
  /// The text does not begin with a number.
  no_number,
  /// An integer is above the greatest of its type; a floating value rounds to an infinity of either sign.
  too_large,
  /// An integer is below the least of its type; a floating value is not 0 but rounds to a 0 of either sign.
  too_small,
  /// The radix is none that the type can be read in.
  bad_radix,
};

template <any_number Number>
struct read_number_result {
  /// The number. For `too_large` and `too_small` the nearest value: the limit of an integer type, or the
  /// infinity or zero, with its sign, to which a floating value rounds. For the other errors 0.
  Number value;

  /// How many code units the number has, its sign included; the text after it begins there. A number out of
  /// range is read to its end. 0 for `no_number` and `bad_radix`.
  std::size_t length;

  number_error error;

  friend bool operator==(const read_number_result&, const read_number_result&) = default;
};

namespace _private {

/// The greatest number of a type, and the magnitude of the least.
struct integer_limits {
  std::uint64_t max;
  std::uint64_t min_magnitude;
};

/// The bits are those of a number of 64 bits. Length and error share a word, so that the result is returned
/// in registers.
struct integer_result {
  std::uint64_t bits;
  std::uint64_t length : 61;
  std::uint64_t error : 3;
};

template <typename Unit>
using view = std::basic_string_view<Unit>;
using strings::code_unit16;
using strings::code_unit32;

template <strings::code_unit Unit>
ORVA_API integer_result read_integer(view<Unit> text, unsigned int radix, integer_limits limits);

extern template integer_result read_integer(view<char>, unsigned int, integer_limits);
extern template integer_result read_integer(view<code_unit16>, unsigned int, integer_limits);
extern template integer_result read_integer(view<code_unit32>, unsigned int, integer_limits);

template <any_floating Floating, strings::code_unit Unit>
ORVA_API read_number_result<Floating> read_floating(view<Unit> text, unsigned int radix);

extern template read_number_result<float> read_floating(view<char>, unsigned int);
extern template read_number_result<float> read_floating(view<code_unit16>, unsigned int);
extern template read_number_result<float> read_floating(view<code_unit32>, unsigned int);
extern template read_number_result<double> read_floating(view<char>, unsigned int);
extern template read_number_result<double> read_floating(view<code_unit16>, unsigned int);
extern template read_number_result<double> read_floating(view<code_unit32>, unsigned int);
extern template read_number_result<long double> read_floating(view<char>, unsigned int);
extern template read_number_result<long double> read_floating(view<code_unit16>, unsigned int);
extern template read_number_result<long double> read_floating(view<code_unit32>, unsigned int);

}  // namespace _private

/// Reads the number at the front of a text.
///
/// An integer is one sign, plus or minus, and digits; letters are digits above 9 in either case. Radixes are
/// 2 to 36, and `radix_t::prefix`, with which a prefix after the sign decides: `0x` is 16, `0b` is 2, any
/// other leading zero is 8, no prefix is 10. A prefix without a digit after it is none: "0x" is a 0 of one
/// unit.
///
/// A floating value is one sign, digits with at most one point, and perhaps an exponent: a letter, a sign,
/// and digits. At least one digit is before or after the point. With radix 10 the letter is e; with 16 it is
/// p, and the exponent is a decimal power of two. With `radix_t::prefix`, `0x` is 16, and all else is 10. Or
/// the value is `inf`, `infinity` or `nan`, in any case of letters. It is the nearest value of its type,
/// halves to even, for texts of any length; a number that rounds to a subnormal value is no error.
///
/// Digits, signs and letters are those of ASCII. Time is in proportion to the text that is read.
template <any_number Number, strings::any_text Text>
[[nodiscard]] read_number_result<Number> read_number(const Text& text,
                                                     unsigned int radix = types::radix_t::decimal) {
  using unit = typename strings::ustring_for<Text>::value_type;
  const std::basic_string_view<unit> units = text;
  if constexpr (any_integer<Number>) {
    using limits = std::numeric_limits<Number>;
    constexpr auto max = static_cast<std::uint64_t>(limits::max());
    const _private::integer_result result =
        _private::read_integer(units, radix, {max, limits::is_signed ? max + 1 : 0});
    return {static_cast<Number>(result.bits), static_cast<std::size_t>(result.length),
            static_cast<number_error>(result.error)};
  } else {
    return _private::read_floating<Number>(units, radix);
  }
}

/// The number that the whole text is, and nothing if it is not one, or is out of range.
template <any_number Number, strings::any_text Text>
[[nodiscard]] std::optional<Number> parse_number(const Text& text,
                                                 unsigned int radix = types::radix_t::decimal) {
  using unit = typename strings::ustring_for<Text>::value_type;
  const std::basic_string_view<unit> units = text;
  const auto [value, length, error] = read_number<Number>(units, radix);
  if (error != number_error::none || length != units.size()) return std::nullopt;
  return value;
}

}  // namespace ORVA_NAMESPACE::generic::convert
