#include <cstddef>
#include <span>

#include "orva/debug/assert.hpp"
#include "orva/strings/unicode.hpp"
#include "orva/strings/unicode/ahead_from_utf8.hpp"
#include "orva/strings/unicode/code_point.hpp"
#include "orva/strings/unicode/written.hpp"

namespace ORVA_2_18::strings {

ustring16 utf8_to_utf16(const ustring8& text) {
  const std::size_t length = text.size();
  return _private::written<code_unit16>(length, [&](std::span<code_unit16> output) {
    const char* const end = text.data() + text.size();
    _private::place<char, code_unit16> at{text.data(), output.data()};
    for (at = _private::run_ahead(at, end); at.from != end; at = _private::run_ahead(at, end)) {
      const auto found = _private::decode(at.from, static_cast<std::size_t>(end - at.from));
      if (found.units == 0) return _private::failed;
      if (found.units == 4) {
        at.to = _private::encode_pair(found.code_point, at.to);
      } else {
        *at.to++ = static_cast<code_unit16>(found.code_point);
      }
      at.from += found.units;
    }
    const auto k = static_cast<std::size_t>(at.to - output.data());
    ORVA_ASSERT(k <= length);
    return k;
  });
}

}  // namespace ORVA_2_18::strings
