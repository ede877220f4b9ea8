#include "orva/i18n/internal/scaled_value.hpp"

#include <algorithm>

#include "orva/internal/number_text/integer_text.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

namespace {

bool has_semicolon(std::string_view text) { return text.find(';') != text.npos; }

/// Appends an integer without a sign: a negative one is shown as the unsigned number of the same bits.
void append_integer(std::string& text, std::uint64_t value) {
  char digits[internal::integer_text_size];
  text.append(digits, internal::write_integer(value, digits));
}

}  // namespace

void scaled_value::append_number(std::string& text) const {
  if (form) return append_double_text(text, floating, *form);
  append_integer(text, integer);
}

bool scaled_value::reads_as_refused() const {
  if (!form || form->precision != 0) return false;
  std::string text;
  append_number(text);
  return text == refused_value;
}

bool append_number(std::string& text, const std::optional<scaled_value>& value) {
  if (value) value->append_number(text);
  return value.has_value();
}

bool append_unit(std::string& text, const std::optional<scaled_value>& value) {
  if (value) text.append(value->unit);
  return value.has_value();
}

strings::ustring8 number_and_unit(const std::optional<scaled_value>& value, strings::ustring8& unit) {
  unit = value ? value->unit : std::string_view();
  strings::ustring8 number;
  return append_number(number, value) ? number : refused();
}

bool scaled_attributes::set_number_form(std::string_view key, std::string_view value) {
  if (selects(key, "precision")) {
    precision = value;
    return true;
  }
  if (!selects(key, "fieldsize")) return false;
  fieldsize = value;
  return true;
}

bool scaled_attributes::read_number_form(double_attributes& form) const {
  if (!has_semicolon(precision.text) && !has_semicolon(fieldsize.text)) {
    form = {precision.value, fieldsize.value};
    // An empty fieldsize would be the last field of the attribute string, and so a missing value.
    return form.is_valid() && !fieldsize.text.empty();
  }
  // The attribute string is built with ";" as separator, so a ";" in one of the texts splits it.
  strings::ustring8 attrs("precision;");
  attrs.append(precision.text).append(";fieldsize;").append(fieldsize.text);
  std::replace(attrs.begin(), attrs.end(), ';', field_separator);
  return read_attributes(attrs, form) && form.is_valid();
}

}  // namespace ORVA_NAMESPACE::i18n::_private
