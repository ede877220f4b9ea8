// The `catalog` element, and what becomes of its messages.
#include <cstddef>
#include <utility>

#include "orva/i18n/xmc_file_loader.hpp"
#include "orva/i18n/xmc_tokens.hpp"

namespace ORVA_2_18::i18n::_private {

using strings::ustring8;

namespace {

/// From behind a start tag to behind its end tag. What stands between is only counted.
void skip_element(xmc::token_iterator& it, xmc::token_iterator end) {
  for (std::size_t open = 1; open != 0; ++it) {
    xmc::require_token(it, end);
    if (it->type() == xmc::token::element_start) ++open;
    if (it->type() == xmc::token::element_end) --open;
  }
}

}  // namespace

void xmc_file_loader::parse_catalog(token_iterator& it, token_iterator end) {
  ustring8 name;
  ustring8 language;
  try {
    xmc::read_attributes(++it, end, [&](token_iterator attribute, token_iterator value) {
      if (attribute->value() == "name") {
        name = xmc::take_value(value);
      } else if (attribute->value() == "lang") {
        language = xmc::take_value(value);
      } else {
        return false;
      }
      return true;
    });
    if (!is_lang_id_good(language) || !is_catalog_matched(name)) return skip_element(it, end);
    parse_catalog_content(it, end, name, language);
  } catch (load_error& error) {
    error.append_error_stack(load_error::in_catalog, name);
    throw;
  }
}

void xmc_file_loader::parse_catalog_content(token_iterator& it, token_iterator end, const ustring8& name,
                                            const ustring8& language) {
  message_map& messages = data_[name];
  for (parse_ignorable(it, end); it != end && xmc::is_start_of(*it, "msg"); parse_ignorable(it, end)) {
    message_t message = parse_message(it, end);
    message._orginal_locale(language);
    keep(messages, std::move(message));
  }
  xmc::require_token(it, end);
  if (!xmc::is_end_of(it, end, "catalog")) throw load_error(catalog_end_missing, name);
  ++it;
}

void xmc_file_loader::set_message(const message_t& message, const ustring8& catalog) {
  keep(data_[catalog], message_t(message));
}

/// Within a load the first of two equals stays, unlike in a merge: the file that is named first is the one that
/// others only add to.
void xmc_file_loader::keep(message_map& messages, message_t&& message) const {
  const auto place = messages.lower_bound(message.name());
  if (place == messages.end() || place->first != message.name()) {
    messages.emplace_hint(place, message.name(), std::move(message));
    return;
  }
  if (outweighs(message, place->second)) place->second = std::move(message);
}

bool xmc_file_loader::outweighs(const message_t& one, const message_t& other) const {
  return languages_.weight(one._orginal_locale()) > languages_.weight(other._orginal_locale());
}

}  // namespace ORVA_2_18::i18n::_private
