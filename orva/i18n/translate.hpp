/// `translate`: a text in the language that catalogs were loaded for, for help of declared settings.
///
///     message_catalogs catalogs;
///     if (catalogs.load(directory_of_orva_messages, "de") != message_catalogs::no_error) ...
///     if (catalogs.load("messages", "de") != message_catalogs::no_error) ...
///     help_options options;
///     options.texts = [&](std::string_view name, std::string_view english) {
///       return translate(name, english, catalogs, "viewer");
///     };
///
/// The library's own texts are installed as its diagnostics are, see `describe`.
#pragma once

#include <string_view>

#include "orva/export.hpp"
#include "orva/i18n/message_catalogs.hpp"
#include "orva/strings/text_argument.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::i18n {

/// The message of that name in the catalog of the program; if there is none, in the catalog "orva.config" of
/// the library; otherwise the English text. An argument of the message stays, as its name in braces: {value}.
[[nodiscard]] ORVA_API strings::ustring8 translate(std::string_view name, std::string_view english,
                                                   const message_catalogs& catalogs,
                                                   const strings::text_argument& catalog);

}  // namespace ORVA_NAMESPACE::i18n
