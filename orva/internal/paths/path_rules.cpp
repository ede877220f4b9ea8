#include "orva/internal/paths/path_rules.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "orva/internal/text/code_point.hpp"

namespace ORVA_NAMESPACE::internal::paths {

namespace {

bool is_ascii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

bool is_nameable(std::string_view name) {
  namespace text = internal::text;
  if (is_ascii(name)) return true;
  std::uint32_t previous = 0;
  for (std::size_t i = 0; i < name.size();) {
    const auto found = text::decode(name.data() + i, name.size() - i);
    if (found.units == 0 || found.code_point > 0x10FFFF) return false;
    char shortest[4];
    const auto length = static_cast<std::size_t>(text::encode(found.code_point, shortest) - shortest);
    if (length != found.units) return false;
    // As UTF-16 the two would be one character, whose bytes are others.
    if (text::is_high_surrogate(previous) && text::is_low_surrogate(found.code_point)) return false;
    previous = found.code_point;
    i += found.units;
  }
  return true;
}

}  // namespace ORVA_NAMESPACE::internal::paths
