/// Whether the catalogs have the language that the user wants.
#pragma once

#include <string>

#include "orva/orva.hpp"

namespace disk_free {

/// Whether the catalog has messages in `language` or in a language that it is a variant of: "de" serves
/// "de_CH".
///
/// A load succeeds for any language, since English is always part of it, so whoever wants to refuse a
/// language has to ask here afterwards.
bool speaks(const orva::i18n::message_catalogs& catalogs, const char* catalog, const std::string& language);

}  // namespace disk_free
