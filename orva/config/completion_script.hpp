/// `completion_script`: completions of a program's command line for a shell, from the declaration of its
/// settings.
///
///     if (shell_name == "bash") std::cout << completion_script(viewer, completion_shell::bash);
///
///     viewer --mo<Tab>            =>  viewer --mode
///     viewer --mode=<Tab>         =>  fast  small
///     viewer --output <Tab>       =>  the files there are
///     tool remote a<Tab>          =>  tool remote add
///
/// The script completes options, the words of choices, paths, and commands with their own options and
/// arguments; nothing for numbers and other text. zsh and fish show the help beside. Deprecated options are
/// known and not offered, and so are words that have control characters or are malformed.
///
/// A user has it in one of these places, or reads it when a shell begins, `eval "$(viewer ...)"`:
///
///     bash    /usr/share/bash-completion/completions/viewer
///     zsh     a file _viewer in a folder of $fpath
///     fish    /usr/share/fish/vendor_completions.d/viewer.fish
///
/// Every text in a script is in quotes: whatever a text or a catalog has, it is not run. Bash 4, zsh 5 and
/// fish 3 read the scripts.
///
/// Throws `exceptions::invalid_argument_value` for a declaration that `validate` refuses. For one without a
/// name the script is empty.
#pragma once

#include "orva/config/declaration.hpp"
#include "orva/config/text_lookup.hpp"
#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

enum class completion_shell { bash, zsh, fish };

[[nodiscard]] ORVA_API strings::ustring8 completion_script(const declaration& declared,
                                                           completion_shell shell,
                                                           const text_lookup& texts = {});

}  // namespace ORVA_NAMESPACE::config
