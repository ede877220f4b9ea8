/// `replace_all`: replaces every occurrence of one text in a string by another, in place.
///
///     text    from   to
///     "aaa"   "a"    "aa"   =>  "aaaaaa", 3
///     "aaa"   "aa"   "a"    =>  "aa", 1
///     "aaa"   ""     "x"    =>  "aaa", 0
///
/// Works on code units of the three widths. Occurrences are found from the front and do not overlap; inserted
/// text is not searched again. Takes time linear to the text before and after, and the string grows at most
/// once. Any thread may call it on a string of its own.
///
/// Edge cases: docs/edges.md#strings
#pragma once

#include <string>
#include <string_view>
#include <type_traits>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::strings {

/// Returns the number of replacements. `from` and `to` may be parts of `text`: they are read before the first
/// replacement. A result longer than a string can be throws `std::length_error`, "string too long", and
/// leaves `text` as it was.
///
/// `Unit` is deduced from `text`, a `ustring8`, `ustring16`, `ustring32` or the standard string of one of
/// their units.
template <code_unit Unit>
ORVA_API types::int32 replace_all(std::basic_string<Unit>& text,
                                  std::type_identity_t<std::basic_string_view<Unit>> from,
                                  std::type_identity_t<std::basic_string_view<Unit>> to);

extern template types::int32 replace_all(std::string&, std::string_view, std::string_view);
extern template types::int32 replace_all(wide_string&, ustring16::view, ustring16::view);
extern template types::int32 replace_all(ustring32::standard_string&, ustring32::view, ustring32::view);

}  // namespace ORVA_NAMESPACE::strings
