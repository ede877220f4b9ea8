#include <cstddef>
#include <cstdint>
#include <span>

#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path_to_utf8.hpp"
#include "orva/internal/transforms/output_text.hpp"
#include "orva/internal/transforms/transforms.hpp"

namespace ORVA_NAMESPACE::internal::transforms {

ustring8 utf32_to_utf8(view32 input) {
  return make_text<char>(text::times(input.size(), 4), [&](std::span<char> output) {
    const code_unit32* const end = input.data() + input.size();
    text::cursor<code_unit32, char> at{input.data(), output.data()};
    while (at.from != end) {
      at = text::fast_path(at, end);
      for (const auto* const stop = text::block_end(at.from, end); at.from < stop; ++at.from) {
        const std::uint32_t unit = text::value_of(*at.from);
        if (text::is_surrogate(unit)) return failed;
        // What no UTF-8 sequence holds is left out: callers filter with it.
        if (unit < 0x110000) at.to = text::encode(unit, at.to);
      }
    }
    return static_cast<std::size_t>(at.to - output.data());
  });
}

}  // namespace ORVA_NAMESPACE::internal::transforms
