#include <cstddef>
#include <cstdint>
#include <span>

#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path_to_utf8.hpp"
#include "orva/internal/transforms/output_text.hpp"
#include "orva/strings/unicode.hpp"

namespace ORVA_NAMESPACE::strings {

ustring8 utf32_to_utf8(const ustring32& text) {
  return _private::written<char>(internal::text::times(text.size(), 4), [&](std::span<char> output) {
    const code_unit32* const end = text.data() + text.size();
    internal::text::cursor<code_unit32, char> at{text.data(), output.data()};
    while (at.from != end) {
      at = internal::text::fast_path(at, end);
      for (const auto* const stop = internal::text::block_end(at.from, end); at.from < stop; ++at.from) {
        const std::uint32_t unit = internal::text::value_of(*at.from);
        if (internal::text::is_surrogate(unit)) return _private::failed;
        // What no UTF-8 sequence holds is left out: callers filter with it.
        if (unit < 0x110000) at.to = internal::text::encode(unit, at.to);
      }
    }
    return static_cast<std::size_t>(at.to - output.data());
  });
}

}  // namespace ORVA_NAMESPACE::strings
