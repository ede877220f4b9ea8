/// Native text by its code points.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "orva/platform/native_path.hpp"
#include "orva/strings/unicode/code_point.hpp"

namespace ORVA_2_18::platform {

/// Calls `take` with each code point of `text`. A unit that stands in no sequence counts as its value: an unpaired
/// surrogate, or a byte, which neither a reported name nor the result of `to_native` has.
template <typename Unit, typename Take>
void each_code_point(std::basic_string_view<Unit> text, Take take) {
  using value = std::conditional_t<sizeof(Unit) == 1, std::uint8_t, std::uint16_t>;
  for (std::size_t i = 0; i < text.size();) {
    auto found = strings::_private::decode(text.data() + i, text.size() - i);
    if (found.units == 0) found = {static_cast<value>(text[i]), 1};
    take(found.code_point);
    i += found.units;
  }
}

}  // namespace ORVA_2_18::platform
