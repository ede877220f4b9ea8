/// The names of a declaration, to find its settings by: keys, options, variables, positions, commands.
///
///     const declared_names names(viewer);          // throws for a wrong declaration
///     names.find_key("threads")                    // number of the setting, or `not_found`
///     names.find_option(scope, "threads")          // in the scope of a command, and those around it
///
/// Internal: not installed. Refers to the declaration, which must live as long and not change. Each lookup
/// takes constant time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "orva/config/declaration.hpp"
#include "orva/config/internal/nearest_name.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// A number that no setting and no scope has: the result of a lookup that finds none.
inline constexpr std::size_t not_found = static_cast<std::size_t>(-1);

/// The name of an option as it was written: without any `-`, `/` and the dashes of printed text in front.
std::string_view without_dashes(std::string_view option);

struct declared_setting {
  const setting* described;
  /// With the commands in front, in lower case: as a tree stores it.
  std::string key;
  std::size_t scope;
  bool is_positional;
  std::size_t successor = not_found;
};

/// What the user writes to set it: the long option with `dashes`, else the short one, else the key.
std::string name_to_set(const declared_setting& declared, std::string_view dashes);

/// The names that count after a command, or before all commands: the scope with the number 0.
struct command_scope {
  const declaration* declared;
  /// The names of the commands, separated by dots.
  std::string names;
  /// The same in lower case, each with a dot after it.
  std::string prefix;
  std::size_t parent;
  std::unordered_map<std::string_view, std::size_t> long_options;
  std::unordered_map<char, std::size_t> short_options;
  std::unordered_map<std::string_view, std::size_t> commands;
  std::vector<std::size_t> positionals;
};

class declared_names {
 public:
  explicit declared_names(const declaration& declared);
  declared_names(const declared_names&) = delete;
  declared_names& operator=(const declared_names&) = delete;

  const std::vector<declared_setting>& settings() const noexcept { return settings_; }
  const std::vector<command_scope>& scopes() const noexcept { return scopes_; }

  /// Of a key in any case, and with any of the separators.
  std::size_t find_key(std::string_view key) const;
  /// Of a key in lower case.
  std::size_t find_lower_case_key(std::string_view key) const { return found_in(keys_, key); }
  std::size_t find_variable(std::string_view name) const { return found_in(variables_, name); }
  bool has_variables() const noexcept { return !variables_.empty(); }

  /// Whether the user may name a configuration file: "cfg_file" is declared, and not as a list.
  bool has_named_file() const;

  std::size_t find_option(std::size_t scope, std::string_view long_option) const;
  std::size_t find_option(std::size_t scope, char short_option) const;
  /// Has the search consider the long options of the scope, and the negations of its flags.
  void consider_options(std::size_t scope, nearest_name& search) const;

  /// Whether the program has the option `--version`.
  bool has_version() const { return !scopes_[0].declared->version().empty(); }

  /// Whether a key in lower case is a section that the program allows, or is in one.
  bool is_allowed(std::string_view key) const;
  /// The sections of declared keys and of allowed sections, in lower case: "window" of "window.width".
  const std::unordered_set<std::string>& sections() const noexcept { return sections_; }

  /// Whether `scope` is `inner`, or is around it.
  bool is_around(std::size_t scope, std::size_t inner) const;

 private:
  template <typename Map>
  static std::size_t found_in(const Map& map, const typename Map::key_type& name) {
    const auto found = map.find(name);
    return found != map.end() ? found->second : not_found;
  }

  void add_allowed_sections(const command_scope& scope);
  void add_sections_of(std::string_view key);
  void add_scopes(const declaration& declared);
  void add_settings(std::size_t scope);
  void add_setting(const setting& described, std::size_t scope, bool is_positional);
  void index(std::size_t number);
  void index_options(std::size_t number);
  void check_negations(const command_scope& scope) const;
  void check_positionals(const command_scope& scope) const;
  void check_sections() const;
  void find_successor(declared_setting& deprecated) const;

  std::vector<declared_setting> settings_;
  std::vector<command_scope> scopes_;
  std::unordered_map<std::string_view, std::size_t> keys_;
  std::unordered_map<std::string_view, std::size_t> variables_;
  /// In lower case, each with a dot after it.
  std::vector<std::string> allowed_sections_;
  std::unordered_set<std::string> sections_;
};

}  // namespace ORVA_NAMESPACE::config::_private
