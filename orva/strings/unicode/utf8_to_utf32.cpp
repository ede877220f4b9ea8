#include <cstddef>
#include <span>

#include "orva/strings/unicode.hpp"
#include "orva/strings/unicode/ahead.hpp"
#include "orva/strings/unicode/code_point.hpp"
#include "orva/strings/unicode/written.hpp"

namespace ORVA_2_18::strings {

ustring32 utf8_to_utf32(const ustring8& text) {
  return _private::written<code_unit32>(text.size(), [&](std::span<code_unit32> output) {
    const char* from = text.data();
    const char* const end = from + text.size();
    code_unit32* to = output.data();
    for (_private::run_ahead(from, end, to); from != end; _private::run_ahead(from, end, to)) {
      const auto found = _private::decode(from, static_cast<std::size_t>(end - from));
      const bool good = found.units != 0;
      *to++ = static_cast<code_unit32>(good ? found.code_point : '?');
      from += good ? found.units : 1;
    }
    return static_cast<std::size_t>(to - output.data());
  });
}

}  // namespace ORVA_2_18::strings
