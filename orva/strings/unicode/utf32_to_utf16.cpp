#include "orva/strings/unicode.hpp"
#include "orva/strings/unicode/code_point.hpp"
#include "orva/strings/unicode/failure_text.hpp"

namespace ORVA_2_18::strings {

ustring16 utf32_to_utf16(const ustring32& text) {
  ustring16 output;
  output.reserve(text.size());
  for (const std::uint32_t unit : text) {
    if (_private::is_surrogate(unit) || unit >= 0x110000) return _private::failure_text<code_unit16>();
    if (unit < 0xFFFF) {
      output.push_back(static_cast<code_unit16>(unit));
      continue;
    }
    // No 0x10000 is subtracted, and 0xFFFF comes here too: stored texts hold pairs made in this way.
    output.push_back(static_cast<code_unit16>((unit >> 10) + 0xD800));
    output.push_back(static_cast<code_unit16>((unit & 0x3FF) + 0xDC00));
  }
  return output;
}

}  // namespace ORVA_2_18::strings
