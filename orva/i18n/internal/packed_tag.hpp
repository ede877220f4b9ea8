/// Language tags and parts of them as numbers, by which tables are searched.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

inline constexpr std::string_view tag_separators = "_-.";

/// Capital letters as small ones, and each separator as `_`.
constexpr char normalized(char unit) {
  if (unit == '-' || unit == '.') return '_';
  return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit - 'A' + 'a') : unit;
}

/// A tag as a number in the same order, or 0 for a longer one, which is in no table.
constexpr std::uint64_t packed(std::string_view tag) {
  if (tag.size() > sizeof(std::uint64_t)) return 0;
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < sizeof number; ++i) {
    number = number << 8 | (i < tag.size() ? static_cast<unsigned char>(normalized(tag[i])) : 0U);
  }
  return number;
}

}  // namespace ORVA_NAMESPACE::i18n::_private
