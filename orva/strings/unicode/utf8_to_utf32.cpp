#include <cstddef>
#include <span>

#include "orva/strings/unicode.hpp"
#include "orva/strings/unicode/ahead_from_utf8.hpp"
#include "orva/strings/unicode/code_point.hpp"
#include "orva/strings/unicode/written.hpp"

namespace ORVA_2_18::strings {

ustring32 utf8_to_utf32(const ustring8& text) {
  return _private::written<code_unit32>(text.size(), [&](std::span<code_unit32> output) {
    const char* const end = text.data() + text.size();
    _private::place<char, code_unit32> at{text.data(), output.data()};
    for (at = _private::run_ahead(at, end); at.from != end; at = _private::run_ahead(at, end)) {
      const auto found = _private::decode(at.from, static_cast<std::size_t>(end - at.from));
      const bool good = found.units != 0;
      *at.to++ = static_cast<code_unit32>(good ? found.code_point : '?');
      at.from += good ? found.units : 1;
    }
    return static_cast<std::size_t>(at.to - output.data());
  });
}

}  // namespace ORVA_2_18::strings
