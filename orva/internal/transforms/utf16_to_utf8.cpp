#include <cstddef>
#include <span>

#include "orva/debug/assert.hpp"
#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path_to_utf8.hpp"
#include "orva/internal/transforms/output_text.hpp"
#include "orva/strings/unicode.hpp"

namespace ORVA_NAMESPACE::strings {

ustring8 utf16_to_utf8(const ustring16& text) {
  if (text.starts_with(swapped_byte_order_mark)) {
    // The text comes back unswapped, so this ends with the stack. It stays: callers swap such a text
    // beforehand with check_BOM_and_modify_swap, and a text read in the wrong order must not pass for a good
    // one.
    const ustring16 same_text = swap_string_bytes_order(text);
    return utf16_to_utf8(same_text);
  }
  return _private::written<char>(internal::text::times(text.size(), 4), [&](std::span<char> output) {
    const code_unit16* const end = text.data() + text.size();
    internal::text::cursor<code_unit16, char> at{text.data(), output.data()};
    while (at.from != end) {
      at = internal::text::fast_path(at, end);
      for (const auto* const stop = internal::text::block_end(at.from, end); at.from < stop;) {
        const auto found = internal::text::decode(at.from, static_cast<std::size_t>(end - at.from));
        if (found.units == 0) return _private::failed;
        at.to = internal::text::encode(found.code_point, at.to);
        at.from += found.units;
      }
    }
    const auto k = static_cast<std::size_t>(at.to - output.data());
    ORVA_ASSERT(k <= output.size());
    return k;
  });
}

}  // namespace ORVA_NAMESPACE::strings
