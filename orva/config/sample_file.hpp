/// `sample_file`: a configuration file with each setting of a program as a comment, for users to change.
///
///     std::ofstream("viewer.cfg") << sample_file(viewer);
///
///     # viewer 2.1
///     # Settings of viewer. To set one, remove the # in front of it.
///
///     # Number of threads. [1 to 64]
///     #threads = 4
///
///     [window]
///
///     # Width of the window.
///     #width = 640
///
/// The file sets nothing. With each `#` removed that no blank follows, `file_item` reads from it the default
/// of each setting. No value is written for secrets, for settings without a default, and for a default that
/// the format cannot hold on one line: such a key is not set.
///
/// Left out are positional arguments, deprecated settings, and "cfg_file", which names the file itself. Lines
/// end with a line feed. A double quote in a help text is shown as a single one, as it would begin a quoted
/// text in the comment.
///
/// Throws `exceptions::invalid_argument_value` for a declaration that `validate` refuses.
///
/// Programs change a file, and keep its comments, with `config_document`.
#pragma once

#include "orva/config/declaration.hpp"
#include "orva/config/text_lookup.hpp"
#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

[[nodiscard]] ORVA_API strings::ustring8 sample_file(const declaration& declared,
                                                     const text_lookup& texts = {});

}  // namespace ORVA_NAMESPACE::config
