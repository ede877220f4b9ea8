/// Units at the end of a piece that only the next piece makes a character.
///
/// Internal: installed, since the decoders and encoders of code pages hold one.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "orva/strings/code_unit.hpp"

namespace ORVA_NAMESPACE::strings::_private {

/// At most three units, and room for the one that completes them.
template <code_unit Unit>
struct cut_character {
  static constexpr std::size_t most_units = 3;

  Unit units[most_units + 1] = {};
  std::size_t size = 0;

  std::basic_string_view<Unit> view() const { return {units, size}; }
  /// `rest` may be the end of `view`.
  void keep(std::basic_string_view<Unit> rest) {
    size = std::min(rest.size(), most_units);
    std::copy_n(rest.data(), size, units);
  }
};

/// Calls `convert` with whole characters, in chunks of at most `chunk_size` units, and keeps those that
/// `piece` cuts in `cut`. `count_cut` returns the number of units at the end of a text that are not whole.
template <std::size_t chunk_size, typename Unit, typename CountCut, typename Convert>
void convert_pieces(cut_character<Unit>& cut, std::basic_string_view<Unit> piece, CountCut count_cut,
                    Convert convert) {
  while (cut.size > 0 && !piece.empty()) {
    cut.units[cut.size++] = piece.front();
    piece.remove_prefix(1);
    const auto begun = cut.view();
    const std::size_t whole = begun.size() - count_cut(begun);
    if (whole > 0) convert(begun.substr(0, whole));
    cut.keep(begun.substr(whole));
  }
  while (!piece.empty()) {
    auto chunk = piece.substr(0, chunk_size);
    chunk.remove_suffix(count_cut(chunk));
    if (chunk.empty()) return cut.keep(piece);
    convert(chunk);
    piece.remove_prefix(chunk.size());
  }
}

}  // namespace ORVA_NAMESPACE::strings::_private
