#include <cstddef>
#include <span>

#include "orva/debug/assert.hpp"
#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path_from_utf8.hpp"
#include "orva/internal/transforms/output_text.hpp"
#include "orva/internal/transforms/transforms.hpp"

namespace ORVA_NAMESPACE::internal::transforms {

ustring16 utf8_to_utf16(view8 input) {
  const std::size_t length = input.size();
  return make_text<code_unit16>(length, [&](std::span<code_unit16> output) {
    const char* const end = input.data() + input.size();
    text::cursor<char, code_unit16> at{input.data(), output.data()};
    for (at = text::fast_path(at, end); at.from != end; at = text::fast_path(at, end)) {
      const auto found = text::decode(at.from, static_cast<std::size_t>(end - at.from));
      if (found.units == 0) return failed;
      // No pair is needed: the fast path takes every whole sequence of four bytes.
      *at.to++ = static_cast<code_unit16>(found.code_point);
      at.from += found.units;
    }
    const auto k = static_cast<std::size_t>(at.to - output.data());
    ORVA_ASSERT(k <= length);
    return k;
  });
}

}  // namespace ORVA_NAMESPACE::internal::transforms
