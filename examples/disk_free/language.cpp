#include "language.hpp"

#include <algorithm>
#include <cstdlib>

namespace disk_free {

std::string language_of_environment() {
  std::string locale;
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* const value = std::getenv(name);
    if (locale.empty() && value != nullptr) locale = value;
  }
  locale.erase(std::min(locale.find_first_of(".@"), locale.size()));
  return locale.empty() || locale == "C" || locale == "POSIX" ? "en" : locale;
}

bool speaks(const orva::i18n::message_catalogs& catalogs, const char* catalog, const std::string& language) {
  for (std::string tag = language; !tag.empty();) {
    if (catalogs.has_catalog(catalog, tag)) return true;
    const auto last_part = tag.find_last_of("_-.");
    tag.erase(last_part == tag.npos ? 0 : last_part);
  }
  return false;
}

}  // namespace disk_free
