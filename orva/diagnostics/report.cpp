#include "orva/diagnostics/report.hpp"

#include <numeric>
#include <utility>

namespace ORVA_NAMESPACE::diagnostics {

void report::add(finding found) {
  const auto level = static_cast<std::size_t>(found.level);
  if (findings_.size() < max_findings_) findings_.push_back(std::move(found));
  ++counts_[level];
}

std::size_t report::count() const noexcept {
  return std::accumulate(counts_.begin(), counts_.end(), std::size_t{0});
}

std::size_t report::count(severity level) const noexcept { return counts_[static_cast<std::size_t>(level)]; }

// On Windows a program that refers to it by its address imports it.
constexpr std::size_t report::default_max_findings;

}  // namespace ORVA_NAMESPACE::diagnostics
