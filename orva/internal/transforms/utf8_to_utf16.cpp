#include <cstddef>
#include <span>

#include "orva/debug/assert.hpp"
#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path_from_utf8.hpp"
#include "orva/internal/transforms/output_text.hpp"
#include "orva/strings/unicode.hpp"

namespace ORVA_NAMESPACE::strings {

ustring16 utf8_to_utf16(const ustring8& text) {
  const std::size_t length = text.size();
  return _private::written<code_unit16>(length, [&](std::span<code_unit16> output) {
    const char* const end = text.data() + text.size();
    internal::text::cursor<char, code_unit16> at{text.data(), output.data()};
    for (at = internal::text::fast_path(at, end); at.from != end; at = internal::text::fast_path(at, end)) {
      const auto found = internal::text::decode(at.from, static_cast<std::size_t>(end - at.from));
      if (found.units == 0) return _private::failed;
      if (found.units == 4) {
        at.to = internal::text::encode_pair(found.code_point, at.to);
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

}  // namespace ORVA_NAMESPACE::strings
