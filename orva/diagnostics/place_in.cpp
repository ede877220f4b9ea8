#include "orva/diagnostics/internal/place_in.hpp"

#include <type_traits>

#include "orva/strings/standard_transforms.hpp"

namespace ORVA_NAMESPACE::diagnostics::_private {

place place_in(const strings::text_view& text, std::size_t offset) {
  return text.visit([&](auto units) {
    if constexpr (std::is_same_v<typename decltype(units)::value_type, char>) {
      return place_of(units, offset);
    } else {
      const auto before = strings::to_utf8(units.substr(0, offset)).text;
      return place_of(before, before.size());
    }
  });
}

}  // namespace ORVA_NAMESPACE::diagnostics::_private
