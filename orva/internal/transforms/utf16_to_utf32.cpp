#include <cstddef>
#include <span>

#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path.hpp"
#include "orva/internal/transforms/output_text.hpp"
#include "orva/strings/unicode.hpp"

namespace ORVA_NAMESPACE::strings {

ustring32 utf16_to_utf32(const ustring16& text) {
  if (text.starts_with(swapped_byte_order_mark)) {
    // As in utf16_to_utf8: ends with the stack.
    const ustring16 same_text = swap_string_bytes_order(text);
    return utf16_to_utf32(same_text);
  }
  return _private::written<code_unit32>(text.size(), [&](std::span<code_unit32> output) {
    const code_unit16* const end = text.data() + text.size();
    internal::text::cursor<code_unit16, code_unit32> at{text.data(), output.data()};
    while (at.from != end) {
      at = internal::text::fast_path_pairs(internal::text::fast_path(at, end), end);
      for (const auto* const stop = internal::text::block_end(at.from, end); at.from < stop;) {
        const auto found = internal::text::decode(at.from, static_cast<std::size_t>(end - at.from));
        if (found.units == 0) return _private::failed;
        *at.to++ = static_cast<code_unit32>(found.code_point);
        at.from += found.units;
      }
    }
    return static_cast<std::size_t>(at.to - output.data());
  });
}

}  // namespace ORVA_NAMESPACE::strings
