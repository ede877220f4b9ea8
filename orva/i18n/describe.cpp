#include "orva/i18n/describe.hpp"

#include <algorithm>

namespace ORVA_NAMESPACE::i18n {

namespace {

bool has_arguments_of(const message_t& message, const generic::varg_list& arguments) {
  return std::ranges::all_of(message, [&](const message_item& item) {
    return item.type() == message_item::text || arguments.has_argument(item.name());
  });
}

}  // namespace

strings::ustring8 describe(const diagnostics::finding& found, const message_catalogs& catalogs,
                           const strings::text_argument& catalog) {
  const message_t& message = catalogs.message(catalog, found.code);
  const generic::varg_list arguments = diagnostics::arguments_as_text(found);
  if (message.size() == 0 || !has_arguments_of(message, arguments)) return diagnostics::sentence(found);
  return message.as_utf8(arguments);
}

}  // namespace ORVA_NAMESPACE::i18n
