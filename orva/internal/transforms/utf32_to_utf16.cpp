#include <cstddef>
#include <cstdint>
#include <span>

#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path.hpp"
#include "orva/internal/transforms/output_text.hpp"
#include "orva/internal/transforms/transforms.hpp"

namespace ORVA_NAMESPACE::internal::transforms {

ustring16 utf32_to_utf16(view32 input) {
  return make_text<code_unit16>(text::times(input.size(), 2), [&](std::span<code_unit16> output) {
    const code_unit32* const end = input.data() + input.size();
    text::cursor<code_unit32, code_unit16> at{input.data(), output.data()};
    while (at.from != end) {
      at = text::fast_path(at, end);
      for (const auto* const stop = text::block_end(at.from, end); at.from < stop; ++at.from) {
        const std::uint32_t unit = text::value_of(*at.from);
        if (text::is_surrogate(unit) || unit >= 0x110000) return failed;
        if (unit < 0xFFFF) {
          *at.to++ = static_cast<code_unit16>(unit);
          continue;
        }
        // No 0x10000 is subtracted, and 0xFFFF comes here too: stored texts hold pairs made in this way.
        *at.to++ = static_cast<code_unit16>((unit >> 10) + 0xD800);
        *at.to++ = static_cast<code_unit16>((unit & 0x3FF) + 0xDC00);
      }
    }
    return static_cast<std::size_t>(at.to - output.data());
  });
}

}  // namespace ORVA_NAMESPACE::internal::transforms
