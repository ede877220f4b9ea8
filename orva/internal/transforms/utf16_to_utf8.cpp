#include <cstddef>
#include <span>

#include "orva/debug/assert.hpp"
#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path_to_utf8.hpp"
#include "orva/internal/transforms/output_text.hpp"
#include "orva/internal/transforms/transforms.hpp"

namespace ORVA_NAMESPACE::internal::transforms {

ustring8 utf16_to_utf8(view16 input) {
  return make_text<char>(text::times(input.size(), 4), [&](std::span<char> output) {
    const code_unit16* const end = input.data() + input.size();
    text::cursor<code_unit16, char> at{input.data(), output.data()};
    while (at.from != end) {
      at = text::fast_path(at, end);
      for (const auto* const stop = text::block_end(at.from, end); at.from < stop;) {
        const auto found = text::decode(at.from, static_cast<std::size_t>(end - at.from));
        if (found.units == 0) return failed;
        at.to = text::encode(found.code_point, at.to);
        at.from += found.units;
      }
    }
    const auto k = static_cast<std::size_t>(at.to - output.data());
    ORVA_ASSERT(k <= output.size());
    return k;
  });
}

}  // namespace ORVA_NAMESPACE::internal::transforms
