/// Attribute strings of placeholders, read without a copy. Internal.
///
/// A formatter describes its attributes as a struct of their values with a member `bool set(key, value)` that
/// answers whether it knows the key and the value makes sense.
#pragma once

#include <cstddef>
#include <string_view>

#include "orva/generic/convert/str_to_x.hpp"
#include "orva/i18n/formatters.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

/// Between the fields of an attribute string, and between a placeholder's name and its attributes.
inline constexpr char field_separator = '\x01';

inline strings::ustring8 refused() { return strings::ustring8(refused_value); }

/// A text in an attribute selects a keyword by being any beginning of it.
constexpr bool selects(std::string_view text, std::string_view keyword) { return keyword.starts_with(text); }

/// The number that a text starts with, or 0.
inline int to_number(std::string_view text) {
  if (text.empty()) return 0;
  return generic::convert::str_to_int(text.data(), text.size(), types::radix_t::decimal, false);
}

/// Takes the first field off `fields`, which is left empty behind the last one: a separator at the end is
/// followed by no field.
constexpr std::string_view cut_field(std::string_view& fields) {
  const std::size_t length = fields.find(field_separator);
  const std::string_view field = fields.substr(0, length);
  fields.remove_prefix(length == fields.npos ? fields.size() : length + 1);
  return field;
}

/// False: a key has no value, or `attributes` refused one.
template <typename Attributes>
bool read_attributes(std::string_view fields, Attributes& attributes) {
  while (!fields.empty()) {
    const std::string_view key = cut_field(fields);
    if (fields.empty()) return false;
    const std::string_view value = cut_field(fields);
    if (!attributes.set(key, value)) return false;
  }
  return true;
}

/// The rule of the on-off attributes: everything is true but the beginnings of "false", the empty text among
/// them.
constexpr bool to_flag(std::string_view text) { return !selects(text, "false"); }

}  // namespace ORVA_NAMESPACE::i18n::_private
