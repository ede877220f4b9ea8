/// `utf16`, `utf32`: literals of these encodings as strings of the library, whose units have other types on
/// some systems. `units16`, `units32`: strings of any units, for text that is malformed.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "orva/strings/ustring.hpp"

namespace orva_test {

inline ORVA_NAMESPACE::strings::ustring16 utf16(std::u16string_view units) {
  return {units.begin(), units.end()};
}
inline ORVA_NAMESPACE::strings::ustring32 utf32(std::u32string_view units) {
  return {units.begin(), units.end()};
}

template <typename Unit>
ORVA_NAMESPACE::strings::basic_ustring<Unit> units(std::initializer_list<std::uint32_t> values) {
  ORVA_NAMESPACE::strings::basic_ustring<Unit> text;
  for (const std::uint32_t value : values) text.push_back(static_cast<Unit>(value));
  return text;
}
inline ORVA_NAMESPACE::strings::ustring16 units16(std::initializer_list<std::uint32_t> values) {
  return units<ORVA_NAMESPACE::strings::code_unit16>(values);
}
inline ORVA_NAMESPACE::strings::ustring32 units32(std::initializer_list<std::uint32_t> values) {
  return units<ORVA_NAMESPACE::strings::code_unit32>(values);
}

}  // namespace orva_test
