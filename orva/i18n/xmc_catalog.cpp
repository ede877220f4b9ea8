// The `catalog` element, and what becomes of its messages.
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

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

struct named_message {
  std::string_view name;
  message_t* message;
};

/// The messages in the order of their names, those of one name as they come. A map that is filled in order finds each
/// place at once.
std::vector<named_message> sorted_by_name(std::vector<message_t>& messages) {
  std::vector<named_message> sorted;
  sorted.reserve(messages.size());
  for (message_t& message : messages) sorted.push_back({message.name(), &message});
  std::stable_sort(sorted.begin(), sorted.end(), [](const named_message& left, const named_message& right) {
    return left.name < right.name;
  });
  return sorted;
}

}  // namespace

void xmc_file_loader::parse_catalog(token_iterator& it, token_iterator end) {
  ustring8 name;
  ustring8 language;
  std::vector<message_t> messages;
  try {
    xmc::read_attributes(++it, end, [&](token_iterator attribute, token_iterator value) {
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
    if (!messages.empty()) keep(std::move(messages), name);
    error.append_error_stack(load_error::in_catalog, name);
    throw;
  }
  keep(std::move(messages), name);
}

void xmc_file_loader::parse_catalog_content(token_iterator& it, token_iterator end, const ustring8& name,
                                            const ustring8& language, std::vector<message_t>& messages) {
  for (parse_ignorable(it, end); it != end && xmc::is_start_of(*it, "msg"); parse_ignorable(it, end)) {
    messages.push_back(parse_message(it, end));
    messages.back()._orginal_locale(language);
  }
  xmc::require_token(it, end);
  if (!xmc::is_end_of(it, end, "catalog")) throw load_error(catalog_end_missing, name);
  ++it;
}

void xmc_file_loader::set_message(const message_t& message, const ustring8& catalog) {
  keep({message}, catalog);
}

/// Of two equals the one read first stays, unlike in a merge: a file adds to those in front of it.
void xmc_file_loader::keep(std::vector<message_t> messages, const ustring8& catalog) {
  message_map& kept = data_[catalog];
  auto hint = kept.begin();
  for (const auto& [name, message] : sorted_by_name(messages)) {
    const std::size_t size = kept.size();
    const auto place = kept.try_emplace(hint, message->name(), std::move(*message));
    if (kept.size() == size && outweighs(*message, place->second)) place->second = std::move(*message);
    hint = std::next(place);
  }
}

bool xmc_file_loader::outweighs(const message_t& one, const message_t& other) const {
  return languages_.weight(one._orginal_locale()) > languages_.weight(other._orginal_locale());
}

}  // namespace ORVA_2_18::i18n::_private
