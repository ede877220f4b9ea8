#include "orva/i18n/plural.hpp"

#include <cstddef>
#include <string_view>

namespace ORVA_NAMESPACE::i18n {

namespace {

/// A load accepts the wanted language and its parents, so the longest tag is the best match.
std::size_t closeness(std::string_view language) {
  if (language.size() <= 1) return 0;  // neutral
  return language == "en" ? 1 : language.size();
}

}  // namespace

const message_t& plural(const message_catalogs& catalogs, const strings::text_argument& catalog,
                        const strings::text_argument& name, const plural_number& number, plural_kind kind) {
  const catalog_t& messages = catalogs.catalog(catalog);
  strings::ustring8 form = name.get() + '.';
  const std::size_t stem = form.size();
  const message_t* best = nullptr;
  const message_t* other = nullptr;
  for (const plural_category category : all_plural_categories) {
    form.resize(stem);
    form += name_of(category);
    const message_t& message = messages.message(form);
    if (message == types::nil) continue;
    if (category == plural_category::other) other = &message;
    const strings::ustring8& language = message._orginal_locale();
    if (plural_category_of(language, number, kind) != category) continue;
    if (!best || closeness(language) > closeness(best->_orginal_locale())) best = &message;
  }
  if (best) return *best;
  return other ? *other : catalogs.message(catalog, name);
}

}  // namespace ORVA_NAMESPACE::i18n
