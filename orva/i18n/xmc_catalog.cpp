// The `catalog` element, and what becomes of its messages.
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/i18n/internal/message_batch.hpp"
#include "orva/i18n/internal/xmc_tokens.hpp"
#include "orva/i18n/xmc_file_loader.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

using strings::ustring8;

namespace {

/// From behind a start tag to behind its end tag. What stands between is only counted.
template <typename Iterator>
void skip_element(Iterator& it, Iterator end) {
  for (std::size_t open = 1; open != 0; ++it) {
    xmc::require_token(it, end);
    if (it->type() == xmc::token::element_start) ++open;
    if (it->type() == xmc::token::element_end) --open;
  }
}

}  // namespace

template <typename Iterator>
void xmc_file_loader::parse_catalog(Iterator& it, Iterator end) {
  ustring8 name;
  ustring8 language;
  message_batch messages;
  try {
    xmc::read_attributes(++it, end, [&](Iterator attribute, Iterator value) {
      if (xmc::is_named(attribute, "name")) {
        name = xmc::take_value(value);
      } else if (xmc::is_named(attribute, "lang")) {
        language = xmc::take_value(value);
      } else {
        return false;
      }
      return true;
    });
    if (!is_lang_id_good(language) || !is_catalog_matched(name)) return skip_element(it, end);
    parse_catalog_content(it, end, name, language, messages);
  } catch (load_error& error) {
    // What stands in front of the failure counts as read.
    if (!messages.empty()) keep(messages, name);
    error.append_error_stack(load_error::in_catalog, name);
    throw;
  }
  keep(messages, name);
}

template <typename Iterator>
void xmc_file_loader::parse_catalog_content(Iterator& it, Iterator end, const ustring8& name,
                                            const ustring8& language, message_batch& messages) {
  for (parse_ignorable(it, end); it != end && xmc::is_start_of(*it, "msg"); parse_ignorable(it, end)) {
    message_t message = parse_message(it, end);
    message._orginal_locale(language);
    messages.add(std::move(message));
  }
  xmc::require_token(it, end);
  if (!xmc::is_end_of(it, end, "catalog")) throw load_error(load_error::catalog_end_missing, name);
  ++it;
}

template ORVA_API void xmc_file_loader::parse_catalog(xmc::token_iterator&, xmc::token_iterator);
template ORVA_API void xmc_file_loader::parse_catalog(xmc::view_iterator&, xmc::view_iterator);

void xmc_file_loader::set_message(const message_t& message, const ustring8& catalog) {
  message_batch one;
  one.add(message_t(message));
  keep(one, catalog);
}

/// Of two equals the one read first stays, unlike in a merge: a file adds to those in front of it.
void xmc_file_loader::keep(message_batch& messages, const ustring8& catalog) {
  message_table& kept = data_[catalog];
  kept.reserve(kept.size() + messages.size());
  // A map that is filled in order finds each place at once; in an empty one that is always the end.
  const bool were_none = kept.empty();
  auto hint = were_none ? kept.end() : kept.begin();
  for (message_batch::node* const node : messages.sorted()) {
    const auto place = kept.insert(hint, std::move(*node));
    if (!node->empty() && outweighs(node->mapped(), place->second)) place->second = std::move(node->mapped());
    if (!were_none) hint = std::next(place);
  }
}

bool xmc_file_loader::outweighs(const message_t& one, const message_t& other) const {
  return languages_.weight(one._orginal_locale()) > languages_.weight(other._orginal_locale());
}

}  // namespace ORVA_NAMESPACE::i18n::_private
