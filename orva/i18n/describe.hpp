/// `describe`: what a finding says, in the language that catalogs were loaded for.
///
///     message_catalogs catalogs;
///     if (catalogs.load(directory_of_orva_messages, "de") != message_catalogs::no_error) ...
///     describe(found, catalogs)    =>  "Nach dem Namen des Attributs width fehlt das =."
///
/// The library installs a catalog with a message for each of its codes, in English, German, French and
/// Japanese: share/orva/messages/diagnostics.xmc. The package for find_package sets `orva_MESSAGES_DIR` to
/// the directory, and the pkg-config file has the variable `messagesdir`.
///
///     write_text(std::cerr, found, {.sentence = [&](const auto& each) { return describe(each, catalogs); }});
#pragma once

#include "orva/diagnostics/finding.hpp"
#include "orva/export.hpp"
#include "orva/i18n/message_catalogs.hpp"
#include "orva/strings/text_argument.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::i18n {

/// The message of the catalog that has the finding's code as its name, with the finding's arguments as text.
/// `diagnostics::sentence` if there is no such message, or it shows an argument that the finding does not
/// have. A program with codes of its own has them in a catalog of its own.
[[nodiscard]] ORVA_API strings::ustring8 describe(const diagnostics::finding& found,
                                                  const message_catalogs& catalogs,
                                                  const strings::text_argument& catalog = "orva.diagnostics");

}  // namespace ORVA_NAMESPACE::i18n
