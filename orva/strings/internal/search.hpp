/// A search pattern that is prepared once for many searches.
///
/// Finds the same matches as the standard string does, but in linear time even where both texts are
/// repetitive. A searcher refers to the caller's pattern and belongs to one thread.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::strings::_private {

template <typename Unit>
class searcher {
 public:
  using view = std::basic_string_view<Unit>;

  /// REQUIRES: `pattern` is not empty.
  explicit searcher(view pattern) : pattern_(pattern) {}

  /// The first match in `text` from `position`, or `view::npos`.
  std::size_t find(view text, std::size_t position) {
    if (pattern_.size() <= short_pattern) return text.find(pattern_, position);
    return find_long(text, position);
  }

 private:
  /// For patterns up to this size the standard search takes at most so many steps for each unit.
  static constexpr std::size_t short_pattern = 8;

  /// Knuth, Morris and Pratt: no unit of the text is read again after a partial match.
  std::size_t find_long(view text, std::size_t position) {
    if (text.size() < pattern_.size()) return view::npos;
    if (borders_.empty()) find_borders();
    std::size_t matched = 0;
    while (position < text.size()) {
      if (matched == 0) {
        position = text.find(pattern_[0], position);
        if (position == view::npos) return position;
      }
      if (text[position] == pattern_[matched]) {
        ++position;
        if (++matched == pattern_.size()) return position - matched;
      } else if (matched != 0) {
        matched = borders_[matched - 1];
      }
    }
    return view::npos;
  }

  /// For each beginning of the pattern, the length of its longest proper border.
  void find_borders() {
    borders_.resize(pattern_.size());
    std::size_t border = 0;
    for (std::size_t i = 1; i < pattern_.size(); ++i) {
      while (border != 0 && pattern_[i] != pattern_[border]) border = borders_[border - 1];
      if (pattern_[i] == pattern_[border]) ++border;
      borders_[i] = border;
    }
  }

  view pattern_;
  std::vector<std::size_t> borders_;
};

}  // namespace ORVA_NAMESPACE::strings::_private
