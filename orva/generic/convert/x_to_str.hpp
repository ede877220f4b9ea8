/// Number writers: integers into a caller's buffer, in any radix and any of the three widths.
///
///     char buffer[number_buffer_size];
///     ltoa(-2147483648, buffer, 10)   =>  "-2147483648"
///     ltoa(255, buffer, 16)           =>  "ff"           letters are lower case
///     ltoa(-255, buffer, 16)          =>  "-ff"          a sign in every radix
///     ultoa(0, buffer, 2)             =>  "0"
///
/// They write digits and a terminator, allocate nothing, and do not depend on a locale. The caller owns the
/// buffer and is responsible for its size: `number_buffer_size` units are enough for every value in every
/// radix. Any thread may call them. The inverse operations are in `generic/convert/str_to_x.hpp`.
///
/// `generic/convert/write_number.hpp` writes within a given room, and floating values, too.
///
/// Edge cases: docs/edges.md#numbers
#pragma once

#include <cstddef>

#include "orva/export.hpp"
#include "orva/strings/code_unit.hpp"

namespace ORVA_NAMESPACE::generic::convert {

/// The longest number: a sign, the 64 digits of radix 2, and the terminator.
inline constexpr std::size_t number_buffer_size = 1 + 64 + 1;

namespace _private {

ORVA_API void write_signed(long long value, char* buffer, unsigned int radix);
ORVA_API void write_signed(long long value, strings::code_unit16* buffer, unsigned int radix);
ORVA_API void write_signed(long long value, strings::code_unit32* buffer, unsigned int radix);
ORVA_API void write_unsigned(unsigned long long value, char* buffer, unsigned int radix);
ORVA_API void write_unsigned(unsigned long long value, strings::code_unit16* buffer, unsigned int radix);
ORVA_API void write_unsigned(unsigned long long value, strings::code_unit32* buffer, unsigned int radix);

}  // namespace _private

// Digits are 0 to 9, then a to z. A radix above 36 continues with the units after z.
//
// REQUIRES: `radix` is 2 or greater. For radix 0 or 1 an assertion fails, and the text is empty.

template <strings::code_unit Unit>
void lltoa(long long value, Unit* buffer, unsigned int radix) {
  _private::write_signed(value, buffer, radix);
}

template <strings::code_unit Unit>
void ulltoa(unsigned long long value, Unit* buffer, unsigned int radix) {
  _private::write_unsigned(value, buffer, radix);
}

template <strings::code_unit Unit>
void ltoa(long value, Unit* buffer, unsigned int radix) {
  lltoa(value, buffer, radix);
}

template <strings::code_unit Unit>
void ultoa(unsigned long value, Unit* buffer, unsigned int radix) {
  ulltoa(value, buffer, radix);
}

}  // namespace ORVA_NAMESPACE::generic::convert
