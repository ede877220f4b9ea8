/// What help and the manual page say about each setting and command, in the order in which they show it.
///
///     const declared_names names(viewer);
///     const help_words words(options.texts);
///     help_rows rows(names, words, shown_keys::needed);
///     rows.arguments(0)    =>  {"", "FILES...", "Pictures to show. [required]"}
///     rows.options(0)      =>  "Options:" with {"-t, --threads", "COUNT", "Threads. [1 to 64] [default: 4]"}, ...
///
/// Internal: not installed. A scope is the number of one in the names: 0 is before all commands.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "orva/config/internal/declared_names.hpp"
#include "orva/config/internal/help_words.hpp"

namespace ORVA_NAMESPACE::config::_private {

struct help_row {
  /// "-t, --threads", or the name of a command.
  std::string names;
  /// What follows the names: "COUNT".
  std::string value;
  std::string text;
};

struct help_section {
  std::string heading;
  std::vector<help_row> rows;
};

struct shown_example {
  std::string command_line;
  std::string help;
};

/// Which rows name the key of their setting.
enum class shown_keys { needed /* unless it is that of the option */, all };

class help_rows {
 public:
  /// Refers to names and words.
  help_rows(const declared_names& names, const help_words& words, shown_keys keys);

  std::vector<help_row> arguments(std::size_t scope) const;
  std::vector<help_row> commands(std::size_t scope) const;
  std::string command_help(std::size_t scope) const;
  /// Those without a group first, with `--help` and `--version`, then each group.
  std::vector<help_section> options(std::size_t scope) const;
  /// Those of the declarations around a command.
  std::vector<help_row> general_options(std::size_t scope) const;
  /// What a file says about a setting, in one line.
  std::string file_comment(std::size_t number, bool with_default) const;
  /// The variables of the environment.
  std::vector<help_row> variables() const;

  std::vector<shown_example> examples(std::size_t scope) const;

  /// "viewer [OPTION]... FILES...".
  std::string usage(std::size_t scope) const;
  /// "viewer remote add".
  std::string names_up_to(std::size_t scope) const;
  /// Whether `--help` is not an option of the program's own.
  bool has_help_option(std::size_t scope) const { return names_.find_option(scope, "help") == not_found; }

 private:
  const std::vector<std::size_t>& settings_of(std::size_t scope) const { return of_scope_[scope]; }
  help_row row_of(std::size_t number) const;
  std::string names_of(const setting& described) const;
  std::string value_of(std::size_t number) const;
  std::string text_of(std::size_t number) const;
  std::string with_facts(std::size_t number, const std::vector<std::string>& facts) const;
  std::vector<std::string> facts_of(std::size_t number) const;
  std::vector<std::string> value_facts(const setting& described) const;
  void add_default(std::vector<std::string>& facts, const setting& described) const;
  void add_variable(std::vector<std::string>& facts, const setting& described) const;
  std::string range_of(const setting_type& type) const;
  void append_requests(std::vector<help_row>& rows, std::size_t scope) const;

  const declared_names& names_;
  const help_words& words_;
  shown_keys keys_;
  std::vector<std::vector<std::size_t>> of_scope_;
  /// None for scope 0.
  std::vector<const declared_command*> command_of_;
};

/// The name under which texts of a scope are looked up: `kind`, and for a command its names after a dot.
std::string text_name(std::string_view kind, const command_scope& scope);

/// What the user writes to set it. Of a positional argument, the key.
std::string shown_name(const declared_setting& declared);

/// The type's range as texts of its limits. Empty where the type has no limit of its own.
struct shown_range {
  std::string min;
  std::string max;
};
shown_range range_shown(const setting_type& type);

}  // namespace ORVA_NAMESPACE::config::_private
