#include "orva/internal/code_pages/conversion.hpp"

#include <cstdint>
#include <span>

#include "orva/internal/code_pages/any_page.hpp"
#include "orva/internal/text/overwrite.hpp"

namespace ORVA_NAMESPACE::internal::code_pages {

namespace {

using strings::code_unit16;
using wide_string = std::basic_string<code_unit16>;
using view16 = std::basic_string_view<code_unit16>;

// A zero unit ends a text, even where its size is larger.

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

/// Lets `write` put at most `capacity` units into `result`. A short result is written on the stack first, so
/// that it is allocated with its final size.
template <typename Page, typename Unit, typename Write>
void fill(std::basic_string<Unit>& result, std::size_t capacity, Write write) {
  constexpr std::size_t short_text = 256;
  if (!Page::one_to_one && capacity <= short_text) {
    Unit units[short_text];
    result.assign(units, write(std::span<Unit>(units, capacity)));
    return;
  }
  text::overwrite(result, capacity, write);
  const bool wastes_memory = result.size() < capacity - capacity / 4;
  if (wastes_memory) result.shrink_to_fit();
}

template <typename Page>
void encode_with(const Page& page, view16 text, std::string& bytes) {
  const std::size_t capacity = text::times(text.size(), Page::max_bytes_of_unit);
  fill<Page>(bytes, capacity, [&](std::span<char> output) {
    return static_cast<std::size_t>(encode(page, text, output.data()) - output.data());
  });
}

template <typename Page>
void decode_with(const Page& page, std::string_view bytes, wide_string& text) {
  fill<Page>(text, bytes.size(), [&](std::span<code_unit16> output) {
    return static_cast<std::size_t>(decode(page, bytes, output.data()) - output.data());
  });
}

}  // namespace

bool encode_into(int page, view16 text, std::string& bytes) {
  const view16 units = up_to_zero(text);
  return units.size() < length_limit &&
         with_page(page, [&](const auto& tables) { encode_with(tables, units, bytes); }) &&
         bytes.size() < length_limit;
}

bool decode_into(int page, std::string_view bytes, wide_string& text) {
  const std::string_view text_bytes = up_to_zero(bytes);
  return text_bytes.size() < length_limit &&
         with_page(page, [&](const auto& tables) { decode_with(tables, text_bytes, text); });
}

}  // namespace ORVA_NAMESPACE::internal::code_pages
