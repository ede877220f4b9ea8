/// `split_string`: cuts a text at each delimiter.
///
///     text     delimiter  max
///     "a,b"    ","        0    =>  "a", "b"
///     ",a"     ","        0    =>  "", "a"          a leading delimiter yields an empty element
///     "a,,b"   ","        0    =>  "a", "", "b"
///     "a,"     ","        0    =>  "a"              a delimiter at the end yields none
///     ""       ","        0    =>  nothing
///     "a"      ""         0    =>  "a"              an empty delimiter: the whole text, also if it is empty
///     "a,b,c"  ","        1    =>  "a", "b,c"       at most `max` cuts; 0 or less is no limit
///
/// Works on code units: nothing is decoded, and a delimiter of several units is compared unit by unit. Text
/// and delimiter are taken as views, and the result owns its pieces. Any thread may call it.
///
/// Edge cases: docs/edges.md#strings
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "orva/export.hpp"
#include "orva/strings/ustring_for.hpp"

namespace ORVA_NAMESPACE::strings {

namespace _private {

/// A standard string gives pieces of its class; any other text gives the library's string of its width.
template <typename Text>
struct class_of {
  using type = ustring_for<Text>;
};
template <code_unit Unit>
struct class_of<std::basic_string<Unit>> {
  using type = std::basic_string<Unit>;
};

}  // namespace _private

/// `split_string` into an existing vector: appends the pieces.
template <code_unit Unit>
ORVA_API void append_split(std::basic_string_view<Unit> text, std::basic_string_view<Unit> delimiter, int max,
                           std::vector<basic_ustring<Unit>>& pieces);
template <code_unit Unit>
ORVA_API void append_split(std::basic_string_view<Unit> text, std::basic_string_view<Unit> delimiter, int max,
                           std::vector<std::basic_string<Unit>>& pieces);

extern template void append_split(ustring8::view, ustring8::view, int, std::vector<ustring8>&);
extern template void append_split(ustring8::view, ustring8::view, int, std::vector<std::string>&);
extern template void append_split(ustring16::view, ustring16::view, int, std::vector<ustring16>&);
extern template void append_split(ustring16::view, ustring16::view, int, std::vector<wide_string>&);
extern template void append_split(ustring32::view, ustring32::view, int, std::vector<ustring32>&);
extern template void append_split(ustring32::view, ustring32::view, int,
                                  std::vector<ustring32::standard_string>&);

/// The string class of the pieces: `std::string` for a `std::string`, `ustring8` for a `ustring8`, a view and
/// a literal, and likewise for each width.
template <any_text Text>
using piece_of = typename _private::class_of<std::remove_cvref_t<Text>>::type;

template <any_text Text>
std::vector<piece_of<Text>> split_string(
    const Text& text,
    std::type_identity_t<std::basic_string_view<typename piece_of<Text>::value_type>> delimiter, int max) {
  std::vector<piece_of<Text>> pieces;
  append_split<typename piece_of<Text>::value_type>(text, delimiter, max, pieces);
  return pieces;
}

}  // namespace ORVA_NAMESPACE::strings
