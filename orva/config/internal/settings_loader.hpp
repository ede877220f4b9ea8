/// `settings_loader`: fills the items of the sources of a declared program, and checks what they hold.
///
///     settings_loader loader(program.names, options);
///     loader.read_command_line(argc, argv, command_line);       // each source once; files load by themselves
///     loader.read_environment(envp, environment);
///     loader.read_defaults(defaults);
///     loader.check_command_line();                 // then the checks, in the order of precedence
///     loader.check_is_readable(file.get_filename(), true);
///     loader.check_file(file);
///     loader.check_environment();
///     checked_settings result = loader.finish();
///
/// Internal: not installed. Items hold the text that was given, also where it is wrong.
#pragma once

#include <cstddef>
#include <string_view>

#include "orva/config/base_config_item.hpp"
#include "orva/config/file_item.hpp"
#include "orva/config/internal/checked_settings.hpp"
#include "orva/config/internal/command_line_parser.hpp"
#include "orva/config/internal/given_settings.hpp"
#include "orva/config/internal/setting_findings.hpp"

namespace ORVA_NAMESPACE::config::_private {

class settings_loader {
 public:
  settings_loader(const declared_names& names, settings_options options);

  /// Arguments and environment may be null, and a negative `argc` counts as 0.
  void read_command_line(int argc, const char* const* argv, base_config_item& item);
  void read_environment(const char* const* envp, base_config_item& item);
  void read_defaults(base_config_item& item);

  void check_command_line();
  void check_environment();
  void check_file(file_item& item);
  /// Reports why a file is not read.
  void check_is_readable(const strings::ustring8& file, bool may_be_missing);

  /// Adds the defaults, and findings about what is missing.
  checked_settings finish();

  /// What was read, after the checks.
  given_settings& command_line() noexcept { return command_line_; }
  given_settings& environment() noexcept { return environment_; }
  given_settings& defaults() noexcept { return defaults_; }

 private:
  const setting& described(std::size_t number) const { return *names_.settings()[number].described; }

  void add_command_line_value(const command_line_value& value);
  void add_command_line_faults();
  void add_variable(std::string_view name, std::string_view text);
  /// Whether the keys below the key are to be checked, too.
  bool check_entry(given_settings& file, file_places& places, const file_item& item, const std::string& key,
                   const base_config_item::node_type& node);
  void add_file_entry(given_settings& file, file_places& places, const file_item& item, std::size_t number,
                      const base_config_item::node_type& node) const;

  void store(const given_setting& given, base_config_item& item) const;
  void check(given_settings& source);
  void replace_deprecated(given_settings& source, base_config_item& item);
  void check_values(const given_setting& given, bool reports);
  void add_default(std::size_t number);

  const declared_names& names_;
  settings_options options_;
  checked_settings result_;
  setting_findings findings_;
  std::size_t scope_ = 0;
  std::vector<command_line_fault> faults_;
  given_settings command_line_;
  given_settings environment_;
  given_settings defaults_;
};

}  // namespace ORVA_NAMESPACE::config::_private
