#include <cstddef>
#include <span>

#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path_from_utf8.hpp"
#include "orva/internal/transforms/output_text.hpp"
#include "orva/internal/transforms/transforms.hpp"

namespace ORVA_NAMESPACE::internal::transforms {

ustring32 utf8_to_utf32(view8 input) {
  return make_text<code_unit32>(input.size(), [&](std::span<code_unit32> output) {
    const char* const end = input.data() + input.size();
    text::cursor<char, code_unit32> at{input.data(), output.data()};
    for (at = text::fast_path(at, end); at.from != end; at = text::fast_path(at, end)) {
      const auto found = text::decode(at.from, static_cast<std::size_t>(end - at.from));
      const bool good = found.units != 0;
      *at.to++ = static_cast<code_unit32>(good ? found.code_point : '?');
      at.from += good ? found.units : 1;
    }
    return static_cast<std::size_t>(at.to - output.data());
  });
}

}  // namespace ORVA_NAMESPACE::internal::transforms
