#include <cstddef>
#include <span>

#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path_from_utf8.hpp"
#include "orva/internal/transforms/output_text.hpp"
#include "orva/strings/unicode.hpp"

namespace ORVA_NAMESPACE::strings {

ustring32 utf8_to_utf32(const ustring8& text) {
  return _private::written<code_unit32>(text.size(), [&](std::span<code_unit32> output) {
    const char* const end = text.data() + text.size();
    internal::text::cursor<char, code_unit32> at{text.data(), output.data()};
    for (at = internal::text::fast_path(at, end); at.from != end; at = internal::text::fast_path(at, end)) {
      const auto found = internal::text::decode(at.from, static_cast<std::size_t>(end - at.from));
      const bool good = found.units != 0;
      *at.to++ = static_cast<code_unit32>(good ? found.code_point : '?');
      at.from += good ? found.units : 1;
    }
    return static_cast<std::size_t>(at.to - output.data());
  });
}

}  // namespace ORVA_NAMESPACE::strings
