/// Helpers of the functions that read XMC elements from tokens, for both kinds of token iterators.
#pragma once

#include <string_view>
#include <utility>

#include "orva/i18n/load_error.hpp"
#include "orva/internal/xml_view_tokens.hpp"
#include "orva/parser/xml_token_stream.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::i18n::_private::xmc {

using token = parser::xml_token_stream::token;
using token_iterator = parser::xml_token_stream::iterator;
using view_iterator = internal::xml_view_tokens::iterator;

template <typename Iterator>
bool is_type(Iterator it, Iterator end, token::token_type type) {
  return it != end && it->type() == type;
}

template <typename Token>
bool is_start_of(const Token& found, std::string_view element) {
  return found.type() == token::element_start && found.value() == element;
}

template <typename Iterator>
bool is_end_of(Iterator it, Iterator end, std::string_view element) {
  return is_type(it, end, token::element_end) && it->value() == element;
}

template <typename Iterator>
bool is_named(Iterator attribute, std::string_view name) {
  return attribute->value() == name;
}

/// REQUIRES: the caller does not use the token's value afterwards.
inline strings::ustring8 take_value(token_iterator it) { return std::move(it->value()); }
inline std::string_view take_value(view_iterator it) { return it->value(); }

/// The error about the element, attribute or value at `it`.
template <typename Iterator>
load_error error_at(Iterator it, load_error::error_type type) {
  return load_error(type, strings::ustring8(it->value()));
}

template <typename Iterator>
void require_token(Iterator it, Iterator end) {
  if (it == end) throw load_error(load_error::unexpected_parse_error, "Value Not Defined");
}

/// The token of a comment that follows a start tag comes before the token that ends the tag.
template <typename Iterator>
void skip_comments(Iterator& it, Iterator end) {
  while (is_type(it, end, token::comment)) ++it;
}

/// Reads the attributes from `it` on, and the token that ends the start tag. `take(name, value)` is called
/// for each attribute and returns whether the element may have it.
template <typename Iterator, typename Take>
void read_attributes(Iterator& it, Iterator end, Take take) {
  for (;; ++it) {
    skip_comments(it, end);
    require_token(it, end);
    if (it->type() == token::start_tag_end) break;
    const Iterator name = it;
    if (name->type() != token::attribute_name) throw error_at(name, load_error::invalid_attribute);
    require_token(++it, end);
    if (!take(name, it)) throw error_at(name, load_error::invalid_attribute);
  }
  ++it;
}

}  // namespace ORVA_NAMESPACE::i18n::_private::xmc
