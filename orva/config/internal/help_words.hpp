/// The texts of help, completions and their kin: looked up, and made safe to show.
///
///     help_words words(options.texts);
///     words.word("help.default", {{"value", "4"}})              =>  default: 4
///     words.line("setting.threads", "Number of threads.")       =>  Number of threads.
///
/// Internal: not installed. All texts that these return are well-formed UTF-8 without control characters;
/// those of `paragraphs` have line feeds.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "orva/config/text_lookup.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// The text on one line.
std::string one_line(std::string_view text);

class help_words {
 public:
  struct argument {
    std::string_view name;
    std::string_view value;
  };

  /// Refers to the lookup.
  explicit help_words(const text_lookup& lookup) : lookup_(lookup) {}

  /// A text of the library. Values are shown as they are: they must be safe.
  std::string word(std::string_view name, std::initializer_list<argument> arguments = {}) const;
  /// A text of the program, on one line.
  std::string line(std::string_view name, std::string_view english) const;
  /// A text of the program, with its line ends as line feeds.
  std::string paragraphs(std::string_view name, std::string_view english) const;

 private:
  strings::ustring8 look_up(std::string_view name, std::string_view english) const;

  const text_lookup& lookup_;
};

}  // namespace ORVA_NAMESPACE::config::_private
