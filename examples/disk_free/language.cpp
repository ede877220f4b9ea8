#include "language.hpp"

namespace disk_free {

bool speaks(const orva::i18n::message_catalogs& catalogs, const char* catalog, const std::string& language) {
  for (std::string tag = language; !tag.empty();) {
    if (catalogs.has_catalog(catalog, tag)) return true;
    const auto last_part = tag.find_last_of("_-.");
    tag.erase(last_part == tag.npos ? 0 : last_part);
  }
  return false;
}

}  // namespace disk_free
