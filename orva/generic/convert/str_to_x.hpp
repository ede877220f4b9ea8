/// Number readers: text of the three widths into integers of every size, and bytes into floating values.
///
/// The integer readers take a pointer and a length, so that a part of a text is read without a copy or a
/// terminator; they know no locale but for the white space from 128 to 255, allocate nothing, and either
/// saturate or throw when the number does not fit. Any thread may call them. The inverse operations stand in
/// `generic/convert/x_to_str.hpp`.
///
///     text         radix        str_to_int32
///     "12abc"      decimal      =>  12            what follows the number is ignored
///     "  -42"      decimal      =>  -42           white space is allowed in front of the sign
///     "-  42"      decimal      =>  0             and nowhere else
///     "0x1F"       prefix       =>  31
///     "0b101"      prefix       =>  5
///     "010"        prefix       =>  8
///     "\x1F"       prefix       =>  31            a backslash serves for the leading zero
///     "0x1F"       hexadecimal  =>  0             an explicit radix reads no prefix: the number ends at the x
///     "2147483648" decimal      =>  2147483647, or overflow_error with `throw_on_range`
#pragma once

#include <cstddef>
#include <locale>
#include <string_view>

#include "orva/export.hpp"
#include "orva/strings/code_unit.hpp"
#include "orva/types/integers.hpp"
#include "orva/types/radix.hpp"

namespace ORVA_NAMESPACE::generic::convert {

/// Reads a signed integer: `signed char`, `short`, `int`, `long` or `long long`.
///
/// With `length` 0 the text is measured up to its terminator; a null pointer reads as 0. An empty part of a
/// longer text is therefore the caller's to look out for: there the length 0 means everything from here on.
/// White space, then one sign, then the digits of `radix` are read; the first other unit ends the number. No
/// digit at all reads as 0.
///
///     radix 1 or above 36             throws exceptions::invalid_argument_value, unless the text ends before its
///                                     first digit, as white space alone does
///     number out of range             the nearest limit of the type, or with `throw_on_range`
///                                     exceptions::overflow_error or exceptions::underflow_error
template <typename Integer, strings::code_unit Unit>
ORVA_API Integer strtointx(const Unit* text, std::size_t length, types::radix_t::base radix,
                           bool throw_on_range);

/// Reads an unsigned integer: `unsigned char` to `unsigned long long`. As the signed form, except that:
///
///     "-5"               0, or exceptions::underflow_error with `throw_on_range`
///     "-0"               0
///     "42", length 0     4: a length of 0 is not measured, and the first unit is read all the same
///
/// REQUIRES: the first unit can be read, also when `length` is 0; a null pointer reads as 0.
template <typename Integer, strings::code_unit Unit>
ORVA_API Integer strtouintx(const Unit* text, std::size_t length, types::radix_t::base radix,
                            bool throw_on_range);

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

/// Reads a floating value as an input stream with `place` does: leading white space is skipped, what follows
/// the number is ignored. Where the stream would fail, also for a number out of range, the result is 0.0.
/// Nothing is thrown. Without a locale the global one is taken.
///
///     "1e3"    =>  1000.0
///     "12abc"  =>  12.0
///     "12e"    =>  0.0      the stream takes the exponent's letter for part of the number
///     "1e400"  =>  0.0
///     "abc"    =>  0.0
ORVA_API float str_to_float(std::string_view text);
ORVA_API float str_to_float(std::string_view text, const std::locale& place);
ORVA_API double str_to_double(std::string_view text);
ORVA_API double str_to_double(std::string_view text, const std::locale& place);
ORVA_API long double str_to_long_double(std::string_view text);
ORVA_API long double str_to_long_double(std::string_view text, const std::locale& place);

}  // namespace ORVA_NAMESPACE::generic::convert
