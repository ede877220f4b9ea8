#include <cstddef>
#include <cstdint>
#include <span>

#include "orva/strings/unicode.hpp"
#include "orva/strings/unicode/ahead.hpp"
#include "orva/strings/unicode/code_point.hpp"
#include "orva/strings/unicode/written.hpp"

namespace ORVA_2_18::strings {

ustring8 utf32_to_utf8(const ustring32& text) {
  return _private::written<char>(_private::times(text.size(), 4), [&](std::span<char> output) {
    const code_unit32* from = text.data();
    const code_unit32* const end = from + text.size();
    char* to = output.data();
    while (from != end) {
      _private::run_ahead(from, end, to);
      for (const auto* const stop = _private::block_end(from, end); from < stop; ++from) {
        const std::uint32_t unit = _private::value_of(*from);
        if (_private::is_surrogate(unit)) return _private::failed;
        // What no UTF-8 sequence holds is left out: callers filter with it.
        if (unit < 0x110000) to = _private::encode(unit, to);
      }
    }
    return static_cast<std::size_t>(to - output.data());
  });
}

}  // namespace ORVA_2_18::strings
