/// The findings about declared settings.
///
/// Internal: not installed. What may be secret is shown as asterisks.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "orva/config/internal/declared_names.hpp"
#include "orva/config/internal/given_settings.hpp"
#include "orva/config/internal/nearest_name.hpp"
#include "orva/config/internal/read_value.hpp"
#include "orva/diagnostics/report.hpp"
#include "orva/generic/varg_list.hpp"

namespace ORVA_NAMESPACE::config::_private {

class setting_findings {
 public:
  /// `dashes` are those of long options.
  setting_findings(const declared_names& names, diagnostics::report& report, std::string_view dashes)
      : names_(names), report_(report), dashes_(dashes) {}

  void add(diagnostics::severity level, std::string_view code, const strings::ustring8& file,
           diagnostics::place at, generic::varg_list arguments);

  /// The type does not take an element.
  void add_wrong_value(diagnostics::severity level, const given_setting& given, std::size_t element,
                       value_error error);
  void add_unknown_option(const strings::ustring8& file, diagnostics::place at, std::string_view option,
                          std::size_t scope);
  void add_unknown_command(const strings::ustring8& file, diagnostics::place at, std::string_view command,
                           std::size_t scope);
  void add_unknown_key(const strings::ustring8& file, diagnostics::place at, std::string_view key);
  void add_unknown_section(const strings::ustring8& file, diagnostics::place at, std::string_view section);
  void add_missing_command(std::size_t scope);
  /// What a user would write to set it.
  void add_required(std::size_t number);
  /// It takes one value, and got a list.
  void add_no_list(diagnostics::severity level, const given_setting& given);
  void add_repeated(const given_setting& given, diagnostics::place at);
  void add_deprecated(const given_setting& given, std::string_view successor);
  /// A source has other values for the successor.
  void add_different_successor(const given_setting& given, std::string_view successor);

  /// The setting as a user of a command line writes it.
  std::string option_name(std::size_t number) const;

 private:
  /// A note with the name that was found, `prefix` in front, unless none was.
  void add_nearest(const strings::ustring8& file, diagnostics::place at, std::string_view name,
                   std::string_view prefix);
  /// Whether one more name may be searched for.
  bool may_search();

  const declared_names& names_;
  diagnostics::report& report_;
  std::string_view dashes_;
  std::size_t searches_left_ = max_searched_names;
};

}  // namespace ORVA_NAMESPACE::config::_private
