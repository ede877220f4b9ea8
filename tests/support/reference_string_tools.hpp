/// A slow second implementation of splitting and replacing: the text is searched once for each match and
/// moved at each replacement.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orva_test {

/// The first position of `part` in `text` from `start` on, found unit by unit.
template <typename Unit>
std::size_t reference_find(std::basic_string_view<Unit> text, std::basic_string_view<Unit> part,
                           std::size_t start) {
  for (; start + part.size() <= text.size(); ++start) {
    if (text.substr(start, part.size()) == part) return start;
  }
  return text.npos;
}

template <typename Unit>
std::vector<std::basic_string<Unit>> reference_split(std::basic_string_view<Unit> text,
                                                     std::basic_string_view<Unit> delimiter, int max) {
  std::vector<std::basic_string<Unit>> pieces;
  if (delimiter.empty()) {
    pieces.emplace_back(text);
    return pieces;
  }
  std::size_t start = 0;
  int count = 0;
  for (;;) {
    const std::size_t match = reference_find(text, delimiter, start);
    if (match == text.npos) break;
    pieces.emplace_back(text.substr(start, match - start));
    start = match + delimiter.size();
    if (++count == max) break;
  }
  if (start < text.size()) pieces.emplace_back(text.substr(start));
  return pieces;
}

template <typename Unit>
int reference_replace(std::basic_string<Unit>& text, std::basic_string_view<Unit> from,
                      std::basic_string_view<Unit> to) {
  if (from.empty()) return 0;
  int count = 0;
  std::size_t at = reference_find<Unit>(text, from, 0);
  while (at != text.npos) {
    if (to.size() < from.size()) text.erase(at, from.size() - to.size());
    if (to.size() > from.size()) text.insert(at, to.size() - from.size(), Unit{' '});
    for (std::size_t i = 0; i < to.size(); ++i) text[at + i] = to[i];
    ++count;
    at = reference_find<Unit>(text, from, at + to.size());
  }
  return count;
}

}  // namespace orva_test
