/// Checks whether the user's language was loaded.
#pragma once

#include <string>

#include "orva/orva.hpp"

namespace disk_free {

/// Whether the catalog has messages in `language` or in one of its parents: "de" is a parent of "de_CH".
///
/// A load succeeds for each language, since English is always part of it. A program that does not accept
/// English instead calls this function after the load.
bool speaks(const orva::i18n::message_catalogs& catalogs, const char* catalog, const std::string& language);

}  // namespace disk_free
