#include "orva/i18n/translate.hpp"

namespace ORVA_NAMESPACE::i18n {

namespace {

strings::ustring8 with_names_in_braces(const message_t& message) {
  strings::ustring8 text;
  for (const message_item& item : message) {
    text += item.type() == message_item::text ? item.data() : '{' + item.name() + '}';
  }
  return text;
}

}  // namespace

strings::ustring8 translate(std::string_view name, std::string_view english, const message_catalogs& catalogs,
                            const strings::text_argument& catalog) {
  const strings::ustring8 searched(name);
  const message_t& own = catalogs.message(catalog, searched);
  if (own.size() != 0) return with_names_in_braces(own);
  const message_t& of_library = catalogs.message("orva.config", searched);
  if (of_library.size() != 0) return with_names_in_braces(of_library);
  return strings::ustring8(english);
}

}  // namespace ORVA_NAMESPACE::i18n
