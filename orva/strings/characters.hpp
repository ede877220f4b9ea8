/// Measuring text and reading one character out of it.
///
///     string_length("\xC3\xA4")                =>  2         one character in two bytes
///     character_index("a\xC3\xA4z", 2)         =>  3         the third character begins at byte 3
///     unichar("\xE2\x82\xAC", 3, 0, step)      =>  0x20AC    step is 3
///
/// Lengths and positions are in code units: bytes of UTF-8, 16-bit units of UTF-16, code points of UTF-32. A
/// character is one Unicode code point. Text is read where it is and never copied, and nothing is shared
/// between calls, so any number of threads may read the same text.
///
/// `first_malformed` (strings/well_formed.hpp) says whether a text is well-formed, and where it is not.
///
/// Edge cases: docs/edges.md#strings
#pragma once

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::strings {

/// What `character_index` returns, and `unichar` puts into `step`, when there is no such character.
inline constexpr types::uint32 no_character = 0xFFFFFFFF;

/// The length of `text` in code units, never in characters. A pointer is read up to its terminator and must
/// not be null. A length that does not fit into 32 bits is returned as 0xFFFFFFFF.
///
///     string_length("a")         =>  1
///     string_length("\xC3\xA4")  =>  2     one character, two bytes
///     string_length(u"\u00E4")   =>  1
ORVA_API types::uint32 string_length(const char* text);
ORVA_API types::uint32 string_length(const code_unit16* text);
ORVA_API types::uint32 string_length(const code_unit32* text);
ORVA_API types::uint32 string_length(ustring8::view text);
ORVA_API types::uint32 string_length(ustring16::view text);
ORVA_API types::uint32 string_length(ustring32::view text);

/// The index of the code unit at which a character begins, or `no_character`. Characters count from 0. In
/// UTF-32 the two indexes are the same.
///
/// A `character` that is not less than the number of code units gives `no_character`, and so does a malformed
/// sequence before the character. A `character` between the number of characters and the number of units does
/// not fail: the terminator and every position after it count as one character each, so that the result can
/// be after the end of the text.
///
///     character_index("a\xC3\xA4z", 2)  =>  3
///     character_index("a\xC3\xA4z", 3)  =>  4           the end: three characters in four bytes
///     character_index("abc", 3)         =>  no_character
///
/// In UTF-16 only the first unit of the text is checked for a stray low surrogate. A text that begins with
/// one has no character but number 0. A later one counts as a character.
ORVA_API types::uint32 character_index(ustring8::view text, types::uint32 character);
ORVA_API types::uint32 character_index(ustring16::view text, types::uint32 character);

/// The character that begins at `position` of a buffer of `length` code units. `step` receives the number of
/// units that it takes: add it to `position` to go on. When there is no whole, well-formed character the
/// result is '?' (0x3F) and `step` is `no_character`; this includes a `position` at or after `length`.
///
/// UTF-8 is read by its bit layout alone: overlong forms, encoded surrogates and values above 0x10FFFF are
/// returned as they are. UTF-32 units are not checked.
///
///     unichar("\xE2\x82\xAC", 3, 0, step)      =>  0x20AC,    step 3
///     unichar("\xC0\x80", 2, 0, step)          =>  0,         step 2
///     unichar("\xF4\x90\x80\x80", 4, 0, step)  =>  0x110000,  step 4
///     unichar("\xE2\x82\xAC", 2, 0, step)      =>  0x3F,      step 0xFFFFFFFF
ORVA_API types::uint32 unichar(const char* text, types::uint32 length, types::uint32 position,
                               types::uint32& step);
ORVA_API types::uint32 unichar(const code_unit16* text, types::uint32 length, types::uint32 position,
                               types::uint32& step);
ORVA_API types::uint32 unichar(const code_unit32* text, types::uint32 length, types::uint32 position,
                               types::uint32& step);

}  // namespace ORVA_NAMESPACE::strings
