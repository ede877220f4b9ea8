/// `utf16`, `utf32`: literals of these encodings as strings of the library, whose units have other types on
/// some systems.
#pragma once

#include <string_view>

#include "orva/strings/ustring.hpp"

namespace orva_test {

inline ORVA_NAMESPACE::strings::ustring16 utf16(std::u16string_view units) {
  return {units.begin(), units.end()};
}
inline ORVA_NAMESPACE::strings::ustring32 utf32(std::u32string_view units) {
  return {units.begin(), units.end()};
}

}  // namespace orva_test
