/// `path_argument`: the parameter of an operation that takes a path of any width and works on the 16-bit
/// path.
///
/// The caller passes what it has: a string of the library, a standard string, a view, a literal, or a
/// `std::filesystem::path`.
///
///     bool exists(const path_argument& path);
///     exists("notes.txt");
///     exists(some_ustring16);
///     exists(std::filesystem::temp_directory_path());
///
/// It is a `strings::basic_text_argument`: a 16-bit path is borrowed as it is and must live until the end of
/// the call; any other is converted into a path that the argument owns. Bytes are taken as UTF-8.
///
///     from 8 bits     utf8_to_utf16     invalid text is the path "-1"
///     from 16 bits    as it is          nothing is checked
///     from 32 bits    utf32_to_utf16    not what the other widths call a character above U+FFFE
///     from a path     its native text   one that is not UTF-8 names nothing
///
/// Edge cases: docs/edges.md#files
#pragma once

#include "orva/strings/code_unit.hpp"
#include "orva/strings/text_argument.hpp"

namespace ORVA_NAMESPACE::system {

using path_argument = strings::basic_text_argument<strings::code_unit16>;

}  // namespace ORVA_NAMESPACE::system
