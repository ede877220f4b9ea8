// The `catalog` element, and how its messages are stored in the loader.
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

using strings::text_argument;
using strings::ustring8;

namespace {

/// Moves `it`, which is after the start tag, to after the end tag of the same element.
template <typename Iterator>
void skip_element(Iterator& it, Iterator end) {
  for (std::size_t depth = 1; depth != 0; ++it) {
    xmc::require_token(it, end);
    if (it->type() == xmc::token::element_start) ++depth;
    if (it->type() == xmc::token::element_end) --depth;
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
    // The messages before the failure count as read.
    if (!messages.empty()) add_messages(messages, name);
    error.append_error_stack(load_error::in_catalog, name);
    throw;
  }
  add_messages(messages, name);
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

void xmc_file_loader::set_message(const message_t& message, const text_argument& catalog) {
  message_batch one;
  one.add(message_t(message));
  add_messages(one, catalog.get());
}

/// Among messages of equal weight the first one stays. (In `merge_messages` the last one does.)
void xmc_file_loader::add_messages(message_batch& messages, const ustring8& catalog) {
  message_table& table = data_[catalog];
  table.reserve(table.size() + messages.size());
  // In sorted order each message belongs right after the one before, and in an empty table always at the end.
  // With that hint an insertion needs no search.
  const bool was_empty = table.empty();
  auto hint = was_empty ? table.end() : table.begin();
  for (message_batch::node* const node : messages.sorted()) {
    const auto position = table.insert(hint, std::move(*node));
    const bool exists_already = !node->empty();
    if (exists_already && outweighs(node->mapped(), position->second)) {
      position->second = std::move(node->mapped());
    }
    if (!was_empty) hint = std::next(position);
  }
}

bool xmc_file_loader::outweighs(const message_t& one, const message_t& other) const {
  return languages_.weight(one._orginal_locale()) > languages_.weight(other._orginal_locale());
}

}  // namespace ORVA_NAMESPACE::i18n::_private
