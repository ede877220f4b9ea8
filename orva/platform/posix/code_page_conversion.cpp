#include "orva/platform/code_page_conversion.hpp"

#include <cstdint>
#include <span>

#include "orva/platform/posix/code_pages/tables.hpp"
#include "orva/platform/posix/code_pages/utf8_page.hpp"
#include "orva/strings/unicode/written.hpp"

namespace ORVA_2_18::platform {

namespace {

using strings::code_unit16;
using strings::ustring16;
using view16 = std::basic_string_view<code_unit16>;

// The system's terminator ends a text, also one whose size says more.

std::string_view up_to_zero(std::string_view text) { return text.substr(0, text.find('\0')); }

template <std::size_t Count>
bool has_zero(const code_unit16* units) {
  std::uint16_t zeros = 0;
  for (std::size_t i = 0; i < Count; ++i) zeros |= static_cast<std::uint16_t>(units[i] == 0 ? 0xFFFF : 0);
  return zeros != 0;
}

view16 up_to_zero(view16 text) {
  const code_unit16* from = text.data();
  const code_unit16* const end = from + text.size();
  while (end - from >= 32 && !has_zero<32>(from)) from += 32;
  while (end - from >= 8 && !has_zero<8>(from)) from += 8;
  while (from != end && *from != 0) ++from;
  return text.substr(0, static_cast<std::size_t>(from - text.data()));
}

/// Lets `write` put at most `most` units into `result`. The size of a short one is found out before anything is
/// allocated.
template <typename Page, typename Unit, typename Write>
void fill(std::basic_string<Unit>& result, std::size_t most, Write write) {
  constexpr std::size_t short_text = 256;
  if (!Page::one_to_one && most <= short_text) {
    Unit units[short_text];
    result.assign(units, write(std::span<Unit>(units, most)));
    return;
  }
  strings::_private::overwrite(result, most, write);
  const bool wastes_memory = result.size() < most - most / 4;
  if (wastes_memory) result.shrink_to_fit();
}

template <typename Page>
void encode_into(std::string& bytes, const Page& page, view16 text) {
  const std::size_t most = strings::_private::times(text.size(), Page::most_bytes_of_unit);
  fill<Page>(bytes, most, [&](std::span<char> output) {
    return static_cast<std::size_t>(encode(page, text, output.data()) - output.data());
  });
}

template <typename Page>
void decode_into(ustring16& text, const Page& page, std::string_view bytes) {
  fill<Page>(text, bytes.size(), [&](std::span<code_unit16> output) {
    return static_cast<std::size_t>(decode(page, bytes, output.data()) - output.data());
  });
}

/// Calls `convert` with the page of this number and tells whether there is one. Files, terminals and names hold UTF-8
/// here, so that is what bytes mean where nobody says; nothing is lost in it, and no setting is read.
template <typename Convert>
bool with_page(int number, Convert convert) {
  if (const auto* const page = find_single_byte_page(number)) return convert(*page), true;
  if (const auto* const page = find_double_byte_page(number)) return convert(*page), true;
  const bool utf8 = number == utf8_code_page || number == ansi_code_page || number == oem_code_page;
  if (utf8) convert(utf8_page());
  return utf8;
}

}  // namespace

bool to_code_page(int page, view16 text, std::string& bytes) {
  const view16 units = up_to_zero(text);
  return units.size() < uncountable &&
         with_page(page, [&](const auto& tables) { encode_into(bytes, tables, units); }) &&
         bytes.size() < uncountable;
}

bool from_code_page(int page, std::string_view bytes, ustring16& text) {
  const std::string_view counted = up_to_zero(bytes);
  return counted.size() < uncountable &&
         with_page(page, [&](const auto& tables) { decode_into(text, tables, counted); });
}

}  // namespace ORVA_2_18::platform
