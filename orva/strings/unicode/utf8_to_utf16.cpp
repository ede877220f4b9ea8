#include <cstddef>

#include "orva/debug/assert.hpp"
#include "orva/strings/unicode.hpp"
#include "orva/strings/unicode/code_point.hpp"
#include "orva/strings/unicode/failure_text.hpp"

namespace ORVA_2_18::strings {

ustring16 utf8_to_utf16(const ustring8& text) {
  const std::size_t length = text.size();
  ustring16 output(length, code_unit16{});
  code_unit16* to = output.data();
  for (std::size_t i = 0; i < text.size();) {
    const auto found = _private::decode(text.data() + i, text.size() - i);
    if (found.units == 0) return _private::failure_text<code_unit16>();
    if (found.units == 4) {
      to = _private::encode_pair(found.code_point, to);
    } else {
      *to++ = static_cast<code_unit16>(found.code_point);
    }
    i += found.units;
  }
  const auto k = static_cast<std::size_t>(to - output.data());
  ORVA_ASSERT(k <= length);
  output.resize(k);
  return output;
}

}  // namespace ORVA_2_18::strings
