#include "orva/strings/unicode.hpp"
#include "orva/strings/unicode/code_point.hpp"
#include "orva/strings/unicode/failure_text.hpp"

namespace ORVA_2_18::strings {

ustring8 utf32_to_utf8(const ustring32& text) {
  ustring8 output;
  output.reserve(text.size() * 2);
  for (const std::uint32_t unit : text) {
    if (_private::is_surrogate(unit)) return _private::failure_text<char>();
    if (unit >= 0x110000) continue;
    char bytes[4];
    output.append(bytes, _private::encode(unit, bytes));
  }
  return output;
}

}  // namespace ORVA_2_18::strings
