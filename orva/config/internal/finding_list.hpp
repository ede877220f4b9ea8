/// `finding_list`: what a check of a configuration file finds, in any order, for a report in the order of the
/// text.
///
///     finding_list found(report.max_findings());
///     found.add(severity::warning, "config.duplicate_key", 20, {{"key", "a"}}, 5);
///     found.write(text, "a.cfg", report);       // line and column of offset 20, argument "line" of offset 5
///
/// Keeps as many findings as the report can take, and counts the others.
///
/// Internal: not installed.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "orva/diagnostics/report.hpp"
#include "orva/generic/varg_list.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

class finding_list {
 public:
  static constexpr std::size_t no_offset = static_cast<std::size_t>(-1);

  explicit finding_list(std::size_t room) : room_(room) {}

  /// `other` is an offset whose line is the argument "line" of the finding. `code` has static lifetime.
  void add(diagnostics::severity level, std::string_view code, std::size_t offset,
           generic::varg_list arguments = {}, std::size_t other = no_offset);

  /// Adds all findings to the report, sorted by their places, and clears this list.
  void write(std::string_view text, std::string_view file_name, diagnostics::report& report);

 private:
  struct entry {
    std::size_t offset;
    std::size_t number;
    std::size_t other;
    diagnostics::severity level;
    std::string_view code;
    generic::varg_list arguments;
  };

  static bool is_before(const entry& left, const entry& right);
  void drop_last();
  void resolve_lines(std::string_view text);

  std::size_t room_;
  std::size_t added_ = 0;
  std::vector<entry> entries_;
  std::array<std::size_t, 3> dropped_{};
};

/// The beginning of a text, as an argument of a finding.
strings::ustring8 shortened(std::string_view text);

}  // namespace ORVA_NAMESPACE::config::_private
