/// Reads the attribute strings of placeholders without copying them.
///
///     int_attributes attributes;
///     if (!read_attributes("base\x01hex", attributes)) return false;
///
/// The attributes of a formatter are a struct of their values. Its `bool set(key, value)` returns whether the
/// key is known and the value is valid.
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

/// Whether a text in an attribute means the keyword: any prefix does.
constexpr bool selects(std::string_view text, std::string_view keyword) { return keyword.starts_with(text); }

/// The number at the start of a text, or 0.
inline int to_number(std::string_view text) {
  if (text.empty()) return 0;
  return generic::convert::str_to_int(text.data(), text.size(), types::radix_t::decimal, false);
}

/// Removes the first field from `fields` and returns it. After the last one `fields` is empty: no field
/// follows a separator at the end.
constexpr std::string_view cut_field(std::string_view& fields) {
  const std::size_t length = fields.find(field_separator);
  const std::string_view field = fields.substr(0, length);
  fields.remove_prefix(length == fields.npos ? fields.size() : length + 1);
  return field;
}

/// Returns false if a key has no value or `attributes` refuses one.
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

/// The value of an on-off attribute: false for a prefix of "false", which the empty text is, and otherwise
/// true.
constexpr bool to_flag(std::string_view text) { return !selects(text, "false"); }

}  // namespace ORVA_NAMESPACE::i18n::_private
