/// Number writers: integers into a caller's buffer, in any radix and any of the three widths.
///
/// They write the digits and a terminator, allocate nothing and ignore the locale. The caller owns the buffer
/// and makes it large enough: `number_buffer_size` units are enough for every value in every radix. Any
/// thread may call them. The inverse operations are in `generic/convert/str_to_x.hpp`.
///
///     ltoa(-2147483648, buffer, 10)   =>  "-2147483648"
///     ltoa(255, buffer, 16)           =>  "ff"           letters are lower case
///     ltoa(-255, buffer, 16)          =>  "-ff"          a sign in every radix
///     ultoa(0, buffer, 2)             =>  "0"
///
/// Edge cases: docs/edges.md#numbers
#pragma once

#include <cstddef>

#include "orva/export.hpp"
#include "orva/strings/code_unit.hpp"

namespace ORVA_NAMESPACE::generic::convert {

/// The longest number: a sign, the 64 digits of radix 2, and the terminator.
inline constexpr std::size_t number_buffer_size = 1 + 64 + 1;

// Digits are 0 to 9, then a to z. A radix above 36 continues with the units after z.
//
// REQUIRES: `radix` is 2 or greater. No number can be written in radix 0 or 1: an assertion fails, and the
// buffer gets an empty text.

template <strings::code_unit Unit>
ORVA_API void lltoa(long long value, Unit* buffer, unsigned int radix);

template <strings::code_unit Unit>
ORVA_API void ulltoa(unsigned long long value, Unit* buffer, unsigned int radix);

template <strings::code_unit Unit>
void ltoa(long value, Unit* buffer, unsigned int radix) {
  lltoa(value, buffer, radix);
}

template <strings::code_unit Unit>
void ultoa(unsigned long value, Unit* buffer, unsigned int radix) {
  ulltoa(value, buffer, radix);
}

}  // namespace ORVA_NAMESPACE::generic::convert
