#include "orva/config/internal/nearest_name.hpp"

#include <algorithm>
#include <array>

#include "orva/config/internal/lower_case_key.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

/// Two letters allow no error: each other name of two letters would be near.
constexpr std::size_t allowed_distance(std::size_t length) {
  return length < 3 ? 0 : std::max<std::size_t>(1, length / 3);
}

constexpr std::size_t difference(std::size_t a, std::size_t b) { return a < b ? b - a : a - b; }

}  // namespace

std::size_t edit_distance(std::string_view one, std::string_view other) {
  // Rows of the table of distances between the beginnings of both.
  using row = std::array<std::size_t, longest_compared_name + 1>;
  row before_last{};
  row last{};
  row current{};
  for (std::size_t j = 0; j <= other.size(); ++j) current[j] = j;
  for (std::size_t i = 1; i <= one.size(); ++i) {
    before_last = last;
    last = current;
    current[0] = i;
    for (std::size_t j = 1; j <= other.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (one[i - 1] == other[j - 1] ? 0 : 1);
      current[j] = std::min({replaced, last[j] + 1, current[j - 1] + 1});
      const bool swapped = i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1];
      if (swapped) current[j] = std::min(current[j], before_last[j - 2] + 1);
    }
  }
  return current[other.size()];
}

nearest_name::nearest_name(std::string_view text)
    : text_(text.size() <= longest_compared_name ? lower_case(text) : std::string()),
      distance_(allowed_distance(text_.size()) + 1) {}

void nearest_name::consider(std::string_view name) {
  if (text_.empty() || name.empty() || name.size() > longest_compared_name) return;
  const std::string candidate = lower_case(name);
  const std::size_t allowed = allowed_distance(text_.size());
  std::size_t distance = distance_ + 1;
  if (difference(text_.size(), candidate.size()) <= std::min(allowed, distance_)) {
    distance = edit_distance(text_, candidate);
  }
  // An abbreviation is as near as the most distant name.
  if (text_.size() > 1 && candidate.starts_with(text_)) distance = std::min(distance, allowed);
  if (distance > allowed || distance > distance_) return;
  if (distance == distance_ && found_ <= name) return;
  found_.assign(name);
  distance_ = distance;
}

}  // namespace ORVA_NAMESPACE::config::_private
