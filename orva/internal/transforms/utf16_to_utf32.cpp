#include <cstddef>
#include <span>

#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path.hpp"
#include "orva/internal/transforms/output_text.hpp"
#include "orva/internal/transforms/transforms.hpp"

namespace ORVA_NAMESPACE::internal::transforms {

ustring32 utf16_to_utf32(view16 input) {
  return make_text<code_unit32>(input.size(), [&](std::span<code_unit32> output) {
    const code_unit16* const end = input.data() + input.size();
    text::cursor<code_unit16, code_unit32> at{input.data(), output.data()};
    while (at.from != end) {
      at = text::fast_path_pairs(text::fast_path(at, end), end);
      for (const auto* const stop = text::block_end(at.from, end); at.from < stop;) {
        const auto found = text::decode(at.from, static_cast<std::size_t>(end - at.from));
        if (found.units == 0) return failed;
        *at.to++ = static_cast<code_unit32>(found.code_point);
        at.from += found.units;
      }
    }
    return static_cast<std::size_t>(at.to - output.data());
  });
}

}  // namespace ORVA_NAMESPACE::internal::transforms
