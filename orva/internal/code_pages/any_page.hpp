/// The pages of every kind by their numbers, and where a piece of a text may be cut.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string_view>

#include "orva/internal/code_pages/conversion.hpp"
#include "orva/internal/code_pages/tables.hpp"
#include "orva/internal/code_pages/utf8_page.hpp"

namespace ORVA_NAMESPACE::internal::code_pages {

/// Calls `convert` with the page of this number. Returns false if there is no such page.
template <typename Convert>
bool with_page(int number, Convert convert) {
  if (const auto* const page = find_single_byte_page(number)) return convert(*page), true;
  if (const auto* const page = find_double_byte_page(number)) return convert(*page), true;
  if (number == utf8_number) return convert(utf8_page()), true;
  return false;
}

// The number of bytes at the end of a piece that only the next piece makes a character. The piece begins with
// the beginning of a character.

constexpr std::size_t cut_bytes(const single_byte_page&, std::string_view) { return 0; }

constexpr std::size_t cut_bytes(const utf8_page&, std::string_view piece) {
  constexpr std::size_t longest_cut = 3;
  for (std::size_t size = 1; size <= longest_cut && size <= piece.size(); ++size) {
    const auto end = piece.substr(piece.size() - size);
    if (!text::is_continuation(end.front())) return is_cut_sequence(end) ? size : 0;
  }
  return 0;
}

/// A byte that cannot lead ends a character, so that the lead bytes after it are pairs and perhaps one more.
inline std::size_t cut_bytes(const double_byte_page& page, std::string_view piece) {
  std::size_t leads = 0;
  while (leads < piece.size()) {
    const auto byte = static_cast<unsigned char>(piece[piece.size() - 1 - leads]);
    if (page.row_of[byte] == 0) break;
    ++leads;
  }
  return leads % 2;
}

}  // namespace ORVA_NAMESPACE::internal::code_pages
