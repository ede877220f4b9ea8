/// The text of floating values in the forms of the C runtime. Every function returns the end of what it has
/// written.
///
///     char digits[general_text_size(6)];
///     text.append(digits, write_general(0.1, 6, digits));        =>  0.1         as %.6g
///     write_fixed(0.1, 2, digits)                                =>  0.10        as %.2f
///     write_scientific(0.1, 2, digits)                           =>  1.00e-01    as %.2e
///
/// Internal: not installed. Nothing allocates, writes a terminator, or depends on a locale: the decimal point
/// is a point.
#pragma once

#include <cstddef>
#include <limits>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal {

/// No `double` has more decimals; all further ones are zeros.
inline constexpr int max_decimals =
    std::numeric_limits<double>::digits - std::numeric_limits<double>::min_exponent;
static_assert(max_decimals == 1074);

/// A sign, a point and leading zeros or an exponent, beside the digits.
constexpr std::size_t general_text_size(std::size_t precision) { return precision + 24; }

/// The longest number in the other two forms.
inline constexpr std::size_t fixed_text_size =
    1 + (std::numeric_limits<double>::max_exponent10 + 1) + 1 + max_decimals;

/// `precision` significant digits without trailing zeros, with an exponent for large and small values.
///
/// REQUIRES: room for `general_text_size(precision)` units.
char* write_general(double value, int precision, char* output);

// `precision` decimals.
//
// REQUIRES: `precision` is from 0 to `max_decimals`, and there is room for `fixed_text_size` units.

char* write_fixed(double value, int precision, char* output);
char* write_scientific(double value, int precision, char* output);

}  // namespace ORVA_NAMESPACE::internal
