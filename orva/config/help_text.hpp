/// `help_text`: what `--help` shows, from the declaration of a program's settings.
///
///     declaration viewer("viewer");
///     viewer.version("2.1").description("Shows pictures.");
///     viewer.add(setting("threads", integer_between(1, 64)).by_default(4).option('t').help("Threads."));
///     viewer.add_positional(setting("files", list_of(file_path())).required().help("Pictures to show."));
///     std::cout << help_text(viewer, {.width = help_width(std::cout)});
///
///     Usage: viewer [OPTION]... FILES...
///
///     Shows pictures.
///
///     Arguments:
///       FILES...              Pictures to show. [required]
///
///     Options:
///       -t, --threads NUMBER  Threads. [1 to 64] [default: 4]
///       -h, --help            Shows this help.
///           --version         Shows the version.
///
/// Texts end with a line feed. Columns are those of a terminal, in which a Japanese character has two. No
/// line is wider than the width; a word that is wider is broken.
///
/// In brackets are the choices or the range, the default, and what else sets it: the variable of the
/// environment, and the key in a file where it is not the name of the long option. A setting without an
/// option is shown as a file has it: `key = VALUE`. Defaults of secrets are not shown.
///
/// Each function throws `exceptions::invalid_argument_value` for a declaration that `validate` refuses.
#pragma once

#include <cstddef>
#include <iosfwd>

#include "orva/config/declaration.hpp"
#include "orva/config/text_lookup.hpp"
#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

/// Where nothing is known about the terminal.
inline constexpr std::size_t default_help_width = 80;
/// A smaller width counts as this one.
inline constexpr std::size_t min_help_width = 20;

struct help_options {
  /// In columns.
  std::size_t width = default_help_width;
  /// The command whose help is shown, by the names on the way to it, separated by dots: "remote.add". For a
  /// command that is not declared, `help_text` throws `exceptions::invalid_argument_value`.
  strings::ustring8 command = {};
  text_lookup texts = {};
};

[[nodiscard]] ORVA_API strings::ustring8 help_text(const declaration& declared,
                                                   const help_options& options = {});

/// What `--version` shows: "viewer 2.1" and a line feed.
[[nodiscard]] ORVA_API strings::ustring8 version_text(const declaration& declared);

/// The width for help that goes to the stream: the number in the variable `COLUMNS`, else the columns of the
/// terminal, if the stream has the buffer of `std::cout`, `std::cerr` or `std::clog` and that output of the
/// process is a terminal, else `default_help_width`.
[[nodiscard]] ORVA_API std::size_t help_width(const std::ostream& stream);

}  // namespace ORVA_NAMESPACE::config
