#include <cstddef>
#include <span>

#include "orva/strings/unicode.hpp"
#include "orva/strings/unicode/ahead.hpp"
#include "orva/strings/unicode/code_point.hpp"
#include "orva/strings/unicode/written.hpp"

namespace ORVA_2_18::strings {

ustring32 utf16_to_utf32(const ustring16& text) {
  if (text.starts_with(swapped_byte_order_mark)) {
    // As in utf16_to_utf8: ends with the stack.
    const ustring16 same_text = swap_string_bytes_order(text);
    return utf16_to_utf32(same_text);
  }
  return _private::written<code_unit32>(text.size(), [&](std::span<code_unit32> output) {
    const code_unit16* from = text.data();
    const code_unit16* const end = from + text.size();
    code_unit32* to = output.data();
    while (from != end) {
      _private::run_ahead(from, end, to);
      for (const auto* const stop = _private::block_end(from, end); from < stop;) {
        const auto found = _private::decode(from, static_cast<std::size_t>(end - from));
        if (found.units == 0) return _private::failed;
        *to++ = static_cast<code_unit32>(found.code_point);
        from += found.units;
      }
    }
    return static_cast<std::size_t>(to - output.data());
  });
}

}  // namespace ORVA_2_18::strings
