/// The six transforms between UTF-8, UTF-16 and UTF-32, byte order marks and byte order.
///
/// These are the only way from one of the three string classes to another. Each takes text of its width as a
/// view: a string of the library, a standard string, a literal, without a copy.
///
///     const ustring16 wide = utf8_to_utf16("gr\xC3\xBC\xC3\x9F");
///     const ustring8 text = utf16_to_utf8(wide);
///
/// A transform never throws for bad text, and returns a text as the table says. Exhausted memory and text
/// that is too long throw what the standard string throws. Nothing is shared between calls, so any thread may
/// call these.
///
///                    bad text                                          result
///     utf8_to_utf16  an invalid byte, a cut sequence                   the text "-1" instead of the whole
///     utf8_to_utf32  an invalid byte, a cut sequence                   a question mark for each bad byte
///     utf16_to_utf8  an unpaired surrogate                             the text "-1" instead of the whole
///     utf16_to_utf32 an unpaired surrogate                             the text "-1" instead of the whole
///     utf32_to_utf8  a surrogate                                       the text "-1" instead of the whole
///     utf32_to_utf8  a value of 0x110000 or more                       nothing for this unit
///     utf32_to_utf16 a surrogate, a value of 0x110000 or more          the text "-1" instead of the whole
///
/// The failure text cannot be distinguished from a genuine "-1". `to_utf8`, `to_utf16` and `to_utf32`
/// (strings/standard_transforms.hpp) follow the Unicode Standard and report bad text; `first_malformed`
/// (strings/well_formed.hpp) finds it.
///
/// Edge cases: docs/edges.md#strings
#pragma once

#include <string_view>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::strings {

/// UTF-8 is read by its bit layout alone: overlong forms, encoded surrogates and values above 0x10FFFF are
/// not errors and give what the arithmetic gives.
///
///     "\xE2\x82\xAC"  =>  u"\u20AC"
///     "\xED\xA0\x80"  =>  0xD800         an encoded surrogate passes
///     "abc\x80"       =>  u"-1"
///
/// Inverse: `utf16_to_utf8`.
ORVA_API ustring16 utf8_to_utf16(ustring8::view text);

/// Reads UTF-8 as `utf8_to_utf16` does, but never gives up: a byte that begins no whole sequence becomes '?',
/// and reading goes on after that one byte.
///
///     "\xE2z"             =>  U"?z"
///     "\xF4\x90\x80\x80"  =>  0x110000
///
/// Inverse: `utf32_to_utf8`.
ORVA_API ustring32 utf8_to_utf32(ustring8::view text);

/// A leading mark, 0xFEFF, is kept as a character.
///
/// REQUIRES: the first unit is not 0xFFFE, the mark of the other byte order. Such a text makes the function
/// call itself with the same text until the stack is exhausted. Call `check_BOM_and_modify_swap` first where
/// it may occur.
///
/// Inverse: `utf8_to_utf16`.
ORVA_API ustring8 utf16_to_utf8(ustring16::view text);

/// REQUIRES: the first unit is not 0xFFFE, as for `utf16_to_utf8`.
///
/// There is no inverse outside the basic plane: see `utf32_to_utf16`.
ORVA_API ustring32 utf16_to_utf32(ustring16::view text);

/// Inverse: `utf8_to_utf32`.
///
///     0x20AC    =>  "\xE2\x82\xAC"
///     0xD800    =>  "-1"
///     0x110000  =>  ""
ORVA_API ustring8 utf32_to_utf8(ustring32::view text);

/// Not the inverse of `utf16_to_utf32` from U+FFFF on: the pair is made of the code point as it is, without
/// the subtraction of 0x10000 that UTF-16 requires, and U+FFFF becomes a pair too.
///
///     0xFFFE    =>  0xFFFE
///     0xFFFF    =>  0xD83F 0xDFFF
///     0x10000   =>  0xD840 0xDC00
///     0x110000  =>  u"-1"
ORVA_API ustring16 utf32_to_utf16(ustring32::view text);

/// The byte order mark in the class of the code unit.
template <code_unit Unit>
inline constexpr Unit byte_order_mark_units[] = {static_cast<Unit>(0xFEFF), Unit{}};
template <>
inline constexpr char byte_order_mark_units<char>[] = "\xEF\xBB\xBF";
template <code_unit Unit>
inline constexpr std::basic_string_view<Unit> byte_order_mark{byte_order_mark_units<Unit>};

/// The first unit of UTF-16 text that came from the other byte order.
inline constexpr code_unit16 swapped_byte_order_mark = static_cast<code_unit16>(0xFFFE);

/// The text after a leading byte order mark, or all of `text` if there is none. A second mark stays. That of
/// the bytes of a file, of any encoding, is found by `byte_order_mark_of` (`strings/byte_order_mark.hpp`).
ORVA_API ustring8 remove_BOM(ustring8::view text);
ORVA_API ustring16 remove_BOM(ustring16::view text);
ORVA_API ustring32 remove_BOM(ustring32::view text);

/// Exchanges the two bytes of every unit in place, whatever the text begins with. Its own inverse.
ORVA_API void modify_swap_string_bytes_order(ustring16& text);

/// Returns a copy of `text` as it is; callers rely on that. Use `modify_swap_string_bytes_order` to swap.
ORVA_API ustring16 swap_string_bytes_order(ustring16::view text);

/// Swaps a text that begins with 0xFFFE in place, the mark included, so that it begins with 0xFEFF. Any other
/// text stays as it is.
ORVA_API void check_BOM_and_modify_swap(ustring16& text);
ORVA_API void check_BOM_and_modify_swap(wide_string& text);

/// Returns a copy of `text` as it is, whatever it begins with: use `check_BOM_and_modify_swap` to swap.
ORVA_API ustring16 check_BOM_and_swap(const ustring16& text);
ORVA_API wide_string check_BOM_and_swap(const wide_string& text);

}  // namespace ORVA_NAMESPACE::strings
