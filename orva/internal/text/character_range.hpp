/// Sets of characters, as sorted ranges.
///
///     constexpr character_range digits[] = {{'0', '9'}};
///     is_in(digits, '5')    =>  true
///
/// Internal: not installed.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal::text {

struct character_range {
  std::uint32_t first;
  std::uint32_t last;
};

inline bool is_in(std::span<const character_range> ranges, std::uint32_t code_point) {
  const auto found = std::ranges::lower_bound(ranges, code_point, {}, &character_range::last);
  return found != ranges.end() && found->first <= code_point;
}

}  // namespace ORVA_NAMESPACE::internal::text
