/// The input of a fuzz target as text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "orva/strings/ustring.hpp"

namespace orva_fuzz {

/// The input as code units of any width, in the byte order of the machine. Bytes at the end that are not a
/// whole unit are left out.
template <ORVA_NAMESPACE::strings::code_unit Unit>
ORVA_NAMESPACE::strings::basic_ustring<Unit> text_of(const std::uint8_t* data, std::size_t size) {
  ORVA_NAMESPACE::strings::basic_ustring<Unit> text(size / sizeof(Unit), Unit{});
  if (!text.empty()) std::memcpy(text.data(), data, text.size() * sizeof(Unit));
  return text;
}

}  // namespace orva_fuzz
