/// What a load of declared settings gives: the values and the findings.
///
/// Internal: not installed.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "orva/config/declaration.hpp"
#include "orva/config/internal/declared_names.hpp"
#include "orva/config/settings_options.hpp"
#include "orva/diagnostics/report.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// A declaration with its names, which refer to it.
struct declared_program {
  explicit declared_program(declaration described) : declared(std::move(described)), names(declared) {}
  declared_program(const declared_program&) = delete;
  declared_program& operator=(const declared_program&) = delete;

  const declaration declared;
  const declared_names names;
};

struct checked_setting {
  /// Of the types that `read_value` gives; one, unless it is a list.
  std::vector<types::variant> values;
  /// Whether the values count. False for a setting without a value, and for one whose value is wrong.
  bool has_value = false;
  /// Whether a source has it, the default excepted.
  bool is_set = false;
};

struct checked_settings {
  /// By the numbers of `declared_names`.
  std::vector<checked_setting> settings;
  diagnostics::report findings;
  asked_for asked = asked_for::nothing;
  /// The names of the commands, separated by dots.
  strings::ustring8 command;
};

/// Where a dispatch and its clones leave the result of the last load.
struct load_result {
  std::shared_ptr<const checked_settings> last;
};

}  // namespace ORVA_NAMESPACE::config::_private
