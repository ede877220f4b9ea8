#include "orva/strings/wchar.hpp"

#include <cstddef>
#include <cstdint>

#include "orva/internal/text/code_point.hpp"

namespace ORVA_NAMESPACE::strings {

ustring16 from_wchar(std::wstring_view text) {
  if constexpr (wchar_is_utf16) return ustring16(text.begin(), text.end());
  ustring16 result;
  result.reserve(text.size());
  for (const wchar_t wide : text) {
    const auto code_point = static_cast<std::uint32_t>(wide);
    if (code_point < 0x10000) {
      result.push_back(static_cast<code_unit16>(code_point));
    } else if (code_point < 0x110000) {
      code_unit16 pair[2];
      result.append(pair, internal::text::encode_pair(code_point, pair));
    } else {
      result.push_back(static_cast<code_unit16>(0xFFFD));
    }
  }
  return result;
}

std::wstring to_wchar(ustring16::view text) {
  if constexpr (wchar_is_utf16) return std::wstring(text.begin(), text.end());
  std::wstring result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const auto found = internal::text::decode(text.data() + i, text.size() - i);
    result.push_back(static_cast<wchar_t>(found.units == 0 ? std::uint32_t{text[i]} : found.code_point));
    i += found.units == 0 ? 1 : found.units;
  }
  return result;
}

}  // namespace ORVA_NAMESPACE::strings
