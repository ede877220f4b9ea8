/// `gh2`: helpers for wide strings and raw buffers, kept for programs that were written before the string
/// classes.
///
///     gh2::tolower(u"Abc")             =>  u"abc"
///     gh2::to_ansi(u"Abc")             =>  "Abc"
///     gh2::validate_utf8("\xE2\x82", 2)  =>  false
///
/// New code uses `strings/case_mapping.hpp`, `strings/replace.hpp`, `strings/code_page.hpp` and, for whole
/// texts, `strings/unicode.hpp`. Any thread may call these functions as long as none changes the locale
/// meanwhile.
///
/// The length of a sequence by its lead byte:
///
///     lead byte       get_utf8_length
///     0x00 to 0x7F    =>  1
///     0xC0 to 0xDF    =>  2
///     0xE0 to 0xEF    =>  3
///     0xF0 to 0xF7    =>  4
///     any other       =>  0
///
/// Edge cases: docs/edges.md#strings
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::strings::gh2 {

/// A new string with each unit in lower case, as `strings::to_lower`.
ORVA_API wide_string tolower(ustring16::view text);
/// A new string with each unit in upper case, as `strings::to_upper`.
ORVA_API wide_string toupper(ustring16::view text);

/// Replaces in place and returns the number of replacements, as `strings::replace_all`.
ORVA_API types::int32 replace_all(wide_string& text, ustring16::view from, ustring16::view to);

/// The byte string of a text in the `code_page` of type `ansi`, as `code_page::encode`. Inverse: `from_ansi`.
ORVA_API std::string to_ansi(ustring16::view text);
/// The text of a byte string in the `code_page` of type `ansi`, as `code_page::as_ustring`. Inverse:
/// `to_ansi`.
ORVA_API wide_string from_ansi(std::string_view bytes);

/// The number of bytes of the sequence that starts at `text`, by its first byte alone. 0 for a byte that
/// starts no sequence, for a null text and for a `length` of 0. Any other `length` is ignored, so that the
/// result may be greater.
ORVA_API unsigned int get_utf8_length(const char* text, unsigned int length);
ORVA_API unsigned int get_utf8_length(const unsigned char* text, unsigned int length);

/// Whether the first sequence at `text` is whole: all its bytes are within `length`, and the later ones are
/// continuation bytes. The rest of the text is ignored. Overlong forms, surrogates and values above U+10FFFF
/// pass. False for a null text and for a `length` of 0.
ORVA_API bool validate_utf8(const char* text, unsigned int length);
ORVA_API bool validate_utf8(const unsigned char* text, unsigned int length);

/// The standard wide streams by other names: the same objects.
extern ORVA_API std::wistream& ucin;
extern ORVA_API std::wostream& ucout;
extern ORVA_API std::wostream& ucerr;

}  // namespace ORVA_NAMESPACE::strings::gh2
