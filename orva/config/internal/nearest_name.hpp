/// `nearest_name`: what a mistyped name was meant to be.
///
///     nearest_name search("langauge");
///     for (const auto& name : known) search.consider(name);
///     search.found()     // "language", or empty if none is near
///
/// Internal: not installed. A name is near that has at most one wrong, missing, additional or swapped letter
/// for each three letters, or begins with the text. Case does not count. Of names that are equally near, the
/// first in alphabetical order is found, whatever the order of the calls. Names of more than 64 bytes are not
/// considered, so that each call takes limited time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::config::_private {

inline constexpr std::size_t longest_compared_name = 64;

/// How many mistyped names of one input are searched for: each search takes time for all known names.
inline constexpr std::size_t max_searched_names = 100;

class nearest_name {
 public:
  explicit nearest_name(std::string_view text);

  void consider(std::string_view name);
  bool begins_with(std::string_view lower_case) const { return text_.starts_with(lower_case); }
  const std::string& found() const noexcept { return found_; }

 private:
  /// In lower case.
  std::string text_;
  std::string found_;
  /// Of the name that was found, or one more than is allowed.
  std::size_t distance_;
};

/// The number of letters to insert, remove or replace, or of neighbours to swap, that make one text the
/// other. No letter takes part in two of these. REQUIRES: neither has more than `longest_compared_name`
/// bytes.
std::size_t edit_distance(std::string_view one, std::string_view other);

}  // namespace ORVA_NAMESPACE::config::_private
