#include <cstddef>

#include "orva/strings/unicode.hpp"
#include "orva/strings/unicode/code_point.hpp"
#include "orva/strings/unicode/failure_text.hpp"

namespace ORVA_2_18::strings {

ustring32 utf16_to_utf32(const ustring16& text) {
  if (text.starts_with(swapped_byte_order_mark)) {
    // As in utf16_to_utf8: ends with the stack.
    const ustring16 same_text = swap_string_bytes_order(text);
    return utf16_to_utf32(same_text);
  }
  ustring32 output;
  output.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const auto found = _private::decode(text.data() + i, text.size() - i);
    if (found.units == 0) return _private::failure_text<code_unit32>();
    output.push_back(static_cast<code_unit32>(found.code_point));
    i += found.units;
  }
  return output;
}

}  // namespace ORVA_2_18::strings
