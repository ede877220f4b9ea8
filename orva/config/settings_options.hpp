/// `settings_options`: how `settings` and `declared_dispatch` read a command line, and which files they read.
///
///     settings_options options;
///     options.style = command_line_style::single_dash;
///     options.files = {"/etc/viewer.cfg"};
///     const settings values(viewer, argc, argv, environ, options);
#pragma once

#include <optional>
#include <vector>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

enum class command_line_style {
  /// As users of Unix type it:
  ///
  ///     --key value  --key=value            the value of a long option
  ///     -k value  -kvalue  -k=value         the value of a short option
  ///     -abc                                three flags; the last may be an option with its value: -abk value
  ///     --flag  --no-flag  --flag=off       true, false, false
  ///     --                                  no options after it: the rest are words
  ///     -                                   a word
  ///     -5                                  a value, or a word that is no path, where no option is named 5
  ///
  /// Any other word that begins with `-` is no value of the option before it: `--name=-x` sets such a value.
  /// Long options are not abbreviated. A long option after one dash, `-key`, is refused, unless all its
  /// letters are flags. So is a declared option after a dash of printed text, as word processors write it.
  /// `--sizes=1,2` are two elements of a list, except of texts and paths: these may have commas.
  gnu,
  /// As `commandline_item` reads it, so that a program may move to declared settings:
  ///
  ///     -key=value  -key:value  -key:=value  -key value  /key=value        the value
  ///     -key=a,b,c  -key a b c                                             the elements of a list
  ///     -key$a,b                                                           the value "a,b"
  ///     -flag  /flag  -no-flag                                             true, true, false
  ///
  /// Keys are found in any case, two dashes are taken as one, and `--` and `-` are as above. Differences: a
  /// flag takes no word after it, a setting that is no list takes one; a word that begins with `/` is an
  /// option only if it is declared; blanks and quotes inside of a word stay.
  single_dash,
};

/// What a command line asks for instead of the program's work: the first of the options `--help` (or `-h`,
/// and `/?` where that is on) and `--version`. A setting that has one of these options gets it instead.
enum class asked_for { nothing, help, version };

struct settings_options {
  command_line_style style = command_line_style::gnu;
  /// Whether `/?` asks for help. Where nothing is said, it does on Windows.
  std::optional<bool> slash_asks_for_help;
  /// Files to read if they exist, the first with the highest precedence. The file that "cfg_file" names comes
  /// before them.
  std::vector<strings::ustring8> files;
};

}  // namespace ORVA_NAMESPACE::config
