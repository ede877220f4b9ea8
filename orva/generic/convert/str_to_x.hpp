/// Number readers: text of the three widths into integers of every size, and bytes into floating values.
///
///     convert::str_to_int32("12abc", 5, radix_t::decimal, false)    =>  12
///     convert::str_to_uint8("300", 3, radix_t::decimal, false)      =>  255
///     convert::str_to_uint8("300", 3, radix_t::decimal, true)       throws exceptions::overflow_error
///     convert::str_to_double("2.5e-1 litres")                       =>  0.25
///
/// The integer readers take a pointer and a length, so that a part of a text is read without a copy or a
/// terminator. They allocate nothing, and use the C locale only for white space from 128 to 255. Any thread
/// may call them. The inverse operations are in `generic/convert/x_to_str.hpp`.
///
/// `generic/convert/read_number.hpp` also says what is wrong with a text, and where a number ends.
///
///     text         radix         str_to_int32
///     12abc        decimal       =>  12            text after the number is ignored
///       -42        decimal       =>  -42           white space may precede the sign
///     -  42        decimal       =>  0             but may not follow it
///     0x1F         prefix        =>  31
///     0b101        prefix        =>  5
///     010          prefix        =>  8
///     \x1F         prefix        =>  31            a backslash, written "\\x1F", serves as the leading zero
///     0x1F         hexadecimal   =>  0             an explicit radix reads no prefix: the number ends at the x
///     2147483648   decimal       =>  2147483647, or overflow_error with `throw_on_range`
///
/// Edge cases: docs/edges.md#numbers
#pragma once

#include <concepts>
#include <cstddef>
#include <limits>
#include <locale>
#include <string_view>

#include "orva/export.hpp"
#include "orva/strings/code_unit.hpp"
#include "orva/types/integers.hpp"
#include "orva/types/radix.hpp"

namespace ORVA_NAMESPACE::generic::convert {

namespace _private {

// The readers of the widest integers. `max` is the limit of the type that the caller reads.

ORVA_API long long read_signed(const char* text, std::size_t length, types::radix_t::base radix,
                               bool throw_on_range, long long max);
ORVA_API long long read_signed(const strings::code_unit16* text, std::size_t length,
                               types::radix_t::base radix, bool throw_on_range, long long max);
ORVA_API long long read_signed(const strings::code_unit32* text, std::size_t length,
                               types::radix_t::base radix, bool throw_on_range, long long max);
ORVA_API unsigned long long read_unsigned(const char* text, std::size_t length, types::radix_t::base radix,
                                          bool throw_on_range, unsigned long long max);
ORVA_API unsigned long long read_unsigned(const strings::code_unit16* text, std::size_t length,
                                          types::radix_t::base radix, bool throw_on_range,
                                          unsigned long long max);
ORVA_API unsigned long long read_unsigned(const strings::code_unit32* text, std::size_t length,
                                          types::radix_t::base radix, bool throw_on_range,
                                          unsigned long long max);

}  // namespace _private

/// Reads a signed integer: `signed char`, `short`, `int`, `long` or `long long`.
///
/// Reads white space, then one sign, then digits of `radix`; the first other unit ends the number. A text
/// without a digit is 0, and so is a null pointer. A `length` of 0 means that the text ends at its
/// terminator, so a caller with an empty part of a longer text must not call this function. A length that
/// exceeds the text is no error where another unit, such as a terminator, ends the number.
///
///     radix 1 or above 36        throws exceptions::invalid_argument_value, unless the text ends before its
///                                first digit, as white space alone does
///     number out of range        the nearest limit of the type, or with `throw_on_range`
///                                exceptions::overflow_error or exceptions::underflow_error
template <std::signed_integral Integer, strings::code_unit Unit>
Integer strtointx(const Unit* text, std::size_t length, types::radix_t::base radix, bool throw_on_range) {
  constexpr Integer max = std::numeric_limits<Integer>::max();
  return static_cast<Integer>(_private::read_signed(text, length, radix, throw_on_range, max));
}

/// Reads an unsigned integer: `unsigned char` to `unsigned long long`. As the signed form, except that:
///
///     "-5"               0, or exceptions::underflow_error with `throw_on_range`
///     "-0"               0
///     "42", length 0     4: a length of 0 is not measured, and the first unit is read all the same
///
/// REQUIRES: the first unit can be read, also when `length` is 0, or the pointer is null.
template <std::unsigned_integral Integer, strings::code_unit Unit>
Integer strtouintx(const Unit* text, std::size_t length, types::radix_t::base radix, bool throw_on_range) {
  constexpr Integer max = std::numeric_limits<Integer>::max();
  return static_cast<Integer>(_private::read_unsigned(text, length, radix, throw_on_range, max));
}

// The readers by name. Results that are 32 bits wide are so on every platform.

template <strings::code_unit Unit>
signed char str_to_int8(const Unit* text, std::size_t length, types::radix_t::base radix,
                        bool throw_on_range) {
  return strtointx<signed char>(text, length, radix, throw_on_range);
}

template <strings::code_unit Unit>
short str_to_int16(const Unit* text, std::size_t length, types::radix_t::base radix, bool throw_on_range) {
  return strtointx<short>(text, length, radix, throw_on_range);
}

template <strings::code_unit Unit>
short str_to_short(const Unit* text, std::size_t length, types::radix_t::base radix, bool throw_on_range) {
  return strtointx<short>(text, length, radix, throw_on_range);
}

template <strings::code_unit Unit>
types::int32 str_to_int32(const Unit* text, std::size_t length, types::radix_t::base radix,
                          bool throw_on_range) {
  return strtointx<types::int32>(text, length, radix, throw_on_range);
}

template <strings::code_unit Unit>
types::int32 str_to_long(const Unit* text, std::size_t length, types::radix_t::base radix,
                         bool throw_on_range) {
  return strtointx<types::int32>(text, length, radix, throw_on_range);
}

template <strings::code_unit Unit>
int str_to_signed(const Unit* text, std::size_t length, types::radix_t::base radix, bool throw_on_range) {
  return strtointx<int>(text, length, radix, throw_on_range);
}

template <strings::code_unit Unit>
int str_to_int(const Unit* text, std::size_t length, types::radix_t::base radix, bool throw_on_range) {
  return strtointx<int>(text, length, radix, throw_on_range);
}

template <strings::code_unit Unit>
long long str_to_int64(const Unit* text, std::size_t length, types::radix_t::base radix,
                       bool throw_on_range) {
  return strtointx<long long>(text, length, radix, throw_on_range);
}

template <strings::code_unit Unit>
unsigned char str_to_uint8(const Unit* text, std::size_t length, types::radix_t::base radix,
                           bool throw_on_range) {
  return strtouintx<unsigned char>(text, length, radix, throw_on_range);
}

template <strings::code_unit Unit>
unsigned short str_to_uint16(const Unit* text, std::size_t length, types::radix_t::base radix,
                             bool throw_on_range) {
  return strtouintx<unsigned short>(text, length, radix, throw_on_range);
}

template <strings::code_unit Unit>
types::uint32 str_to_uint32(const Unit* text, std::size_t length, types::radix_t::base radix,
                            bool throw_on_range) {
  return strtouintx<types::uint32>(text, length, radix, throw_on_range);
}

template <strings::code_unit Unit>
unsigned int str_to_unsigned(const Unit* text, std::size_t length, types::radix_t::base radix,
                             bool throw_on_range) {
  return strtouintx<unsigned int>(text, length, radix, throw_on_range);
}

template <strings::code_unit Unit>
unsigned long long str_to_uint64(const Unit* text, std::size_t length, types::radix_t::base radix,
                                 bool throw_on_range) {
  return strtouintx<unsigned long long>(text, length, radix, throw_on_range);
}

/// Reads a floating value as an input stream with this locale does, by default the global one. Leading white
/// space is skipped, and text after the number is ignored. Where the stream would fail, also for a number
/// that is too large, the result is 0.0. Never throws.
///
///     "1e3"    =>  1000.0
///     "12abc"  =>  12.0
///     "12e"    =>  0.0      to the stream the letter is part of the number
///     "1e400"  =>  0.0
///     "abc"    =>  0.0
ORVA_API float str_to_float(std::string_view text);
ORVA_API float str_to_float(std::string_view text, const std::locale& locale);
ORVA_API double str_to_double(std::string_view text);
ORVA_API double str_to_double(std::string_view text, const std::locale& locale);
ORVA_API long double str_to_long_double(std::string_view text);
ORVA_API long double str_to_long_double(std::string_view text, const std::locale& locale);

}  // namespace ORVA_NAMESPACE::generic::convert
