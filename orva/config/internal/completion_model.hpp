/// What a shell completes on the command line of a program, whichever shell it is.
///
/// Internal: not installed. Texts and names are well-formed UTF-8 without control characters.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "orva/config/internal/declared_names.hpp"
#include "orva/config/internal/help_words.hpp"

namespace ORVA_NAMESPACE::config::_private {

struct completed_value {
  enum class type { nothing, word, file, other };
  type kind = type::other;
  std::vector<std::string> words;
};

struct offered_name {
  std::string name;
  std::string help;
};

struct completed_option {
  /// With their dashes, "-t" and "--threads": all by which the option is known.
  std::vector<std::string> names;
  completed_value value;
};

struct completed_scope {
  /// The number of the scope around it, or `not_found`.
  std::size_t parent = not_found;
  std::vector<completed_option> options;
  std::vector<offered_name> offered_options;
  /// Each with the number of its scope.
  std::vector<std::pair<offered_name, std::size_t>> commands;
  std::vector<completed_value> arguments;
  /// Whether the last argument takes all further words.
  bool ends_in_list = false;
};

/// One for each scope of the names, under its number.
std::vector<completed_scope> completion_model(const declared_names& names, const help_words& words);

/// The scripts. `program` is the name of the program, `function` a name for the main function, with which the
/// names of all others begin.
struct completed_program {
  std::string name;
  std::string function;
  std::vector<completed_scope> scopes;
};

/// What scripts call a kind of values.
std::string_view name_of(completed_value::type kind);
/// A name in a scope, as scripts look it up: "3 --mode".
std::string key_of(std::size_t scope, std::string_view name);
/// Whether no shell needs quotes around the name.
bool is_plain_name(std::string_view name);

std::string bash_script(const completed_program& program);
std::string zsh_script(const completed_program& program);
std::string fish_script(const completed_program& program);

}  // namespace ORVA_NAMESPACE::config::_private
