#include <cstddef>
#include <span>

#include "orva/debug/assert.hpp"
#include "orva/strings/unicode.hpp"
#include "orva/strings/unicode/ahead.hpp"
#include "orva/strings/unicode/code_point.hpp"
#include "orva/strings/unicode/written.hpp"

namespace ORVA_2_18::strings {

ustring16 utf8_to_utf16(const ustring8& text) {
  const std::size_t length = text.size();
  return _private::written<code_unit16>(length, [&](std::span<code_unit16> output) {
    const char* from = text.data();
    const char* const end = from + text.size();
    code_unit16* to = output.data();
    for (_private::run_ahead(from, end, to); from != end; _private::run_ahead(from, end, to)) {
      const auto found = _private::decode(from, static_cast<std::size_t>(end - from));
      if (found.units == 0) return _private::failed;
      if (found.units == 4) {
        to = _private::encode_pair(found.code_point, to);
      } else {
        *to++ = static_cast<code_unit16>(found.code_point);
      }
      from += found.units;
    }
    const auto k = static_cast<std::size_t>(to - output.data());
    ORVA_ASSERT(k <= length);
    return k;
  });
}

}  // namespace ORVA_2_18::strings
