/// Case mapping of single code units, by the C runtime's current locale.
///
///     to_lower("Straße A1")       =>  "straße a1"
///     to_upper("Straße a1")       =>  "STRAßE A1"
///     lower_case("ABCDEF", 2, 4)  =>  "ABcdEF"
///
/// This is not Unicode case mapping. Each unit is mapped on its own, so no multi-byte sequence of a
/// `ustring8` is decoded, and in the C locale only the ASCII letters change. A single-byte locale maps its
/// letters from 128 to 255, in every width. Units above 255 never change, and the ASCII letters are the same
/// in every locale. `unicode_case.hpp` maps whole characters, as people expect it. In a `ustring8` the byte
/// 0xFF stays: as a `char` it is the C runtime's end of file.
///
/// Text is a string of the library, a standard string, a view or a literal, of any width. Any thread may call
/// these as long as none changes the locale meanwhile.
///
/// Edge cases: docs/edges.md#strings
#pragma once

#include <cstddef>

#include "orva/export.hpp"
#include "orva/strings/ustring_for.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::strings {

/// `lower_case` in place: maps the units of `text` from `first` up to but not including `last`. A `last`
/// after the end is the end.
template <code_unit Unit>
ORVA_API void make_lower(basic_ustring<Unit>& text, std::size_t first, std::size_t last);

/// `to_upper` in place.
template <code_unit Unit>
ORVA_API void make_upper(basic_ustring<Unit>& text);

extern template void make_lower(ustring8&, std::size_t, std::size_t);
extern template void make_lower(ustring16&, std::size_t, std::size_t);
extern template void make_lower(ustring32&, std::size_t, std::size_t);
extern template void make_upper(ustring8&);
extern template void make_upper(ustring16&);
extern template void make_upper(ustring32&);

/// A new string with each unit in lower case.
template <any_text Text>
ustring_for<Text> to_lower(const Text& text) {
  ustring_for<Text> result(text);
  make_lower(result, 0, result.size());
  return result;
}

/// A new string with each unit in upper case.
template <any_text Text>
ustring_for<Text> to_upper(const Text& text) {
  ustring_for<Text> result(text);
  make_upper(result);
  return result;
}

/// A `last` that means the end of the text.
inline constexpr types::uint32 end_of_text = 0xFFFFFFFF;

/// A new string with the units from `first` up to but not including `last` in lower case. A `last` of
/// `end_of_text`, or any other after the end, is the end. A `first` after `last` changes nothing.
template <any_text Text>
ustring_for<Text> lower_case(const Text& text, std::size_t first, std::size_t last) {
  ustring_for<Text> result(text);
  make_lower(result, first, last == end_of_text ? result.size() : last);
  return result;
}

}  // namespace ORVA_NAMESPACE::strings
