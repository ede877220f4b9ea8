#include <cstddef>

#include "orva/strings/unicode.hpp"
#include "orva/strings/unicode/code_point.hpp"

namespace ORVA_2_18::strings {

ustring32 utf8_to_utf32(const ustring8& text) {
  ustring32 output;
  output.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const auto found = _private::decode(text.data() + i, text.size() - i);
    output.push_back(static_cast<code_unit32>(found.units == 0 ? '?' : found.code_point));
    i += found.units == 0 ? 1 : found.units;
  }
  return output;
}

}  // namespace ORVA_2_18::strings
