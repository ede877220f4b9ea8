/// `report`: findings in the order in which they were made.
///
///     report found;
///     found.add({severity::warning, "xml.data_after_root", "a.xml", {9, 1}, {}});
///     found.count(severity::warning)    =>  1
///     found.has_errors()                =>  false
///
/// A report keeps a limited number of findings, and counts the others, so that an input that is wrong
/// everywhere costs no more memory than one that is wrong in a thousand places. A report is a plain value.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "orva/diagnostics/finding.hpp"
#include "orva/export.hpp"

namespace ORVA_NAMESPACE::diagnostics {

class ORVA_API report {
 public:
  static constexpr std::size_t default_max_findings = 1000;

  explicit report(std::size_t max_findings = default_max_findings) noexcept : max_findings_(max_findings) {}

  /// Keeps the finding, unless `max_findings` are kept, and counts it.
  void add(finding found);

  /// Those that are kept.
  [[nodiscard]] const std::vector<finding>& findings() const noexcept { return findings_; }
  [[nodiscard]] std::size_t max_findings() const noexcept { return max_findings_; }

  /// All that were added.
  [[nodiscard]] std::size_t count() const noexcept;
  [[nodiscard]] std::size_t count(severity level) const noexcept;
  /// Those that were added and not kept.
  [[nodiscard]] std::size_t not_kept() const noexcept { return count() - findings_.size(); }

  [[nodiscard]] bool empty() const noexcept { return count() == 0; }
  [[nodiscard]] bool has_errors() const noexcept { return count(severity::error) != 0; }

 private:
  std::size_t max_findings_;
  std::vector<finding> findings_;
  std::array<std::size_t, 3> counts_{};
};

}  // namespace ORVA_NAMESPACE::diagnostics
