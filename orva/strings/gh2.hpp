/// `gh2`: helpers for wide strings and raw buffers, kept for programs that were written before the string
/// classes.
///
/// New code finds the same jobs in `strings/case_mapping.hpp`, `strings/replace.hpp`, `strings/code_page.hpp`
/// and, for whole texts, in `strings/unicode.hpp`. Nothing here keeps anything of its arguments; any thread
/// may call, as long as none changes the locale meanwhile. The streams are the process's own.
///
///     lead byte       get_utf8_length
///     0x00 to 0x7F    =>  1
///     0xC0 to 0xDF    =>  2
///     0xE0 to 0xEF    =>  3
///     0xF0 to 0xF7    =>  4
///     any other       =>  0
#pragma once

#include <iosfwd>
#include <string>

#include "orva/export.hpp"
#include "orva/strings/code_unit.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::strings::gh2 {

/// A new string with each unit in lower case, as `strings::to_lower`.
ORVA_API wide_string tolower(const wide_string& text);
/// A new string with each unit in upper case, as `strings::to_upper`.
ORVA_API wide_string toupper(const wide_string& text);

/// Replaces in place and gives the number of replacements, as `strings::replace_all`.
ORVA_API types::int32 replace_all(wide_string& text, const wide_string& from, const wide_string& to);

/// The byte string of a text in the `code_page` of type `ansi`, as `code_page::encode`. Inverse: `from_ansi`.
ORVA_API std::string to_ansi(const wide_string& text);
/// The text of a byte string in the `code_page` of type `ansi`, as `code_page::as_ustring`. Inverse:
/// `to_ansi`.
ORVA_API wide_string from_ansi(const std::string& bytes);

/// How many bytes the sequence that starts at `text` should have, by its first byte alone. 0 for a byte that
/// starts no sequence, for no text and for a `length` of 0; `length` is not otherwise looked at, so the
/// result may be greater than it.
ORVA_API unsigned int get_utf8_length(const char* text, unsigned int length);
ORVA_API unsigned int get_utf8_length(const unsigned char* text, unsigned int length);

/// Whether the first sequence at `text` is whole: all its bytes within `length`, the later ones continuation
/// bytes. What follows it is not looked at, and overlong forms, surrogates and values above U+10FFFF pass.
/// False for no text and for a `length` of 0.
ORVA_API bool validate_utf8(const char* text, unsigned int length);
ORVA_API bool validate_utf8(const unsigned char* text, unsigned int length);

/// The standard wide streams by other names: the same objects.
extern ORVA_API std::wistream& ucin;
extern ORVA_API std::wostream& ucout;
extern ORVA_API std::wostream& ucerr;

}  // namespace ORVA_NAMESPACE::strings::gh2
