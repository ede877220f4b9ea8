#include <cstddef>
#include <cstdint>
#include <span>

#include "orva/strings/unicode.hpp"
#include "orva/strings/unicode/ahead_into_utf8.hpp"
#include "orva/strings/unicode/code_point.hpp"
#include "orva/strings/unicode/written.hpp"

namespace ORVA_2_18::strings {

ustring8 utf32_to_utf8(const ustring32& text) {
  return _private::written<char>(_private::times(text.size(), 4), [&](std::span<char> output) {
    const code_unit32* const end = text.data() + text.size();
    _private::place<code_unit32, char> at{text.data(), output.data()};
    while (at.from != end) {
      at = _private::run_ahead(at, end);
      for (const auto* const stop = _private::block_end(at.from, end); at.from < stop; ++at.from) {
        const std::uint32_t unit = _private::value_of(*at.from);
        if (_private::is_surrogate(unit)) return _private::failed;
        // What no UTF-8 sequence holds is left out: callers filter with it.
        if (unit < 0x110000) at.to = _private::encode(unit, at.to);
      }
    }
    return static_cast<std::size_t>(at.to - output.data());
  });
}

}  // namespace ORVA_2_18::strings
