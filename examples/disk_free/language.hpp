/// Which language the user wants, and whether the catalogs have it.
#pragma once

#include <string>

#include "orva/orva.hpp"

namespace disk_free {

/// The language of the environment: the first of LC_ALL, LC_MESSAGES and LANG that is not empty, without encoding and
/// modifier.
///
///     LANG=de_AT.UTF-8  =>  "de_AT"
///     LANG=C, or none   =>  "en"
std::string language_of_environment();

/// Whether the catalog has messages in `language` or in a language that it is a variant of: "de" serves "de_CH".
///
/// A load succeeds for any language, since English is always part of it, so whoever wants to refuse a language has
/// to ask here afterwards.
bool speaks(const orva::i18n::message_catalogs& catalogs, const char* catalog, const std::string& language);

}  // namespace disk_free
