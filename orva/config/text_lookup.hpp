/// `text_lookup`: where help, completions and their kin get their texts in the user's language.
///
///     help_options options;
///     options.texts = [&](std::string_view name, std::string_view english) {
///       return i18n::translate(name, english, catalogs, "viewer");
///     };
///     std::cout << help_text(viewer, options);
///
/// A lookup gets the name of a text and its English, and returns the text in the user's language. Where it
/// returns an empty text, the English one is shown. The names are these; keys and commands are in lower case,
/// and a key has the names of the commands in front:
///
///     setting.window.width, setting.remote.add.name    the help of a setting, by its key
///     value.window.width                               what the help shows for its value, if that is declared
///     group.Speed                                      a group, by its name
///     command.remote.add                               the help of a command
///     description, description.remote.add              the description of the program, of a command
///     example.1, example.remote.add.1                  what an example does, the first being 1
///     help.usage                                       a word of the library, see `known_texts`
///
/// Texts may be anything. What they have of control characters, characters that change the direction of text
/// and malformed UTF-8 is shown as U+FFFD, and line ends count only in descriptions.
#pragma once

#include <functional>
#include <span>
#include <string_view>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

/// Empty: all texts are English.
using text_lookup = std::function<strings::ustring8(std::string_view name, std::string_view english)>;

/// A text of the library. {name} in a text, and in its translation, is replaced by a value.
struct known_text {
  std::string_view name;
  std::string_view english;
};

/// All texts of the library that a lookup is asked for, in alphabetical order. The library installs them in
/// English, German, French and Japanese as the catalog "orva.config": share/orva/messages/config.xmc.
[[nodiscard]] ORVA_API std::span<const known_text> known_texts() noexcept;

}  // namespace ORVA_NAMESPACE::config
