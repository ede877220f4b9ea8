/// How the readers of XMC elements step through tokens. Internal.
#pragma once

#include <string_view>
#include <utility>

#include "orva/i18n/load_error.hpp"
#include "orva/parser/xml_token_stream.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_2_18::i18n::_private::xmc {

using parser::xml_token_stream;
using token = xml_token_stream::token;
using token_iterator = xml_token_stream::iterator;

inline bool is_type(token_iterator it, token_iterator end, token::token_type type) {
  return it != end && it->type() == type;
}

inline bool is_start_of(const token& found, std::string_view element) {
  return found.type() == token::element_start && found.value() == element;
}

inline bool is_end_of(token_iterator it, token_iterator end, std::string_view element) {
  return is_type(it, end, token::element_end) && it->value() == element;
}

inline bool is_named(token_iterator attribute, std::string_view name) { return attribute->value() == name; }

/// REQUIRES: the value is not looked at again.
inline strings::ustring8 take_value(token_iterator it) { return std::move(it->value()); }

inline void require_token(token_iterator it, token_iterator end) {
  if (it == end) throw load_error(load_error::unexpected_parse_error, "Value Not Defined");
}

/// A comment behind a start tag comes before the mark that ends the tag, and says nothing about attributes.
inline void skip_comments(token_iterator& it, token_iterator end) {
  while (is_type(it, end, token::comment)) ++it;
}

/// Reads attributes from `it` on, up to and with the mark that ends the start tag. `take(name, value)` gets each of
/// them and answers whether the element has an attribute of that name.
template <typename Take>
void read_attributes(token_iterator& it, token_iterator end, Take take) {
  for (;; ++it) {
    skip_comments(it, end);
    require_token(it, end);
    if (it->type() == token::start_tag_end) break;
    const token_iterator name = it;
    if (name->type() != token::attribute_name) throw load_error(load_error::invalid_attribute, name->value());
    require_token(++it, end);
    if (!take(name, it)) throw load_error(load_error::invalid_attribute, name->value());
  }
  ++it;
}

}  // namespace ORVA_2_18::i18n::_private::xmc
