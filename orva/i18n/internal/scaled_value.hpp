/// Values scaled in steps of 1000: the common part of `format_memory` and `format_metric`.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "orva/i18n/internal/double_attributes.hpp"
#include "orva/i18n/internal/format_attributes.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

/// A value in its target unit. Number and unit are formatted separately, as a placeholder shows one of them.
struct scaled_value {
  /// The form of a number with decimals; empty for an integer.
  std::optional<double_attributes> form;
  double floating = 0;
  std::uint64_t integer = 0;
  /// The power of 1000 of the unit.
  int unit_index = 0;
  /// A string literal.
  std::string_view unit;

  void append_number(std::string& text) const;

  /// Whether the number is a negative zero without decimals, which needs a semicolon in the precision.
  bool reads_as_refused() const;
};

// Empty if the attributes are refused.
std::optional<scaled_value> scale_memory(const types::variant& value, std::string_view attrs);
std::optional<scaled_value> scale_metric(const types::variant& value, std::string_view attrs);

/// Both texts in the way that the formatters return them.
strings::ustring8 number_and_unit(const std::optional<scaled_value>& value, strings::ustring8& unit);

// Each appends one of the two texts. Returns false if there is no value.
bool append_number(std::string& text, const std::optional<scaled_value>& value);
bool append_unit(std::string& text, const std::optional<scaled_value>& value);

/// The number of an attribute, and its text, which is passed on to `format_double`.
struct number_attribute {
  std::string_view text;
  int value = 0;

  number_attribute(std::string_view digits) : text(digits), value(to_number(digits)) {}
  constexpr number_attribute(std::string_view digits, int number) : text(digits), value(number) {}
};

/// The attributes that both formatters have. A unit is given by its power of 1000.
struct scaled_attributes {
  int base_unit = 0;
  int target_unit = 0;
  bool has_target = false;
  number_attribute precision{"", 0};
  number_attribute fieldsize{"0", 0};

  bool set_base_unit(std::optional<int> unit) {
    base_unit = unit.value_or(0);
    return unit.has_value();
  }

  bool set_target_unit(std::optional<int> unit) {
    target_unit = unit.value_or(0);
    has_target = true;
    return unit.has_value();
  }

  bool set_number_form(std::string_view key, std::string_view value);

  bool has_decimals() const { return precision.value != 0; }

  /// Returns false if `format_double` would refuse the texts of precision and fieldsize.
  bool read_number_form(double_attributes& form) const;
};

template <typename Number>
Number times_1000(Number value) {
  if constexpr (std::is_floating_point_v<Number>) {
    return value * 1000;
  } else {
    return static_cast<Number>(static_cast<std::uint64_t>(value) * 1000);
  }
}

/// Scales the value to the target unit. Without one it is divided until it is below 1000, up to `last_unit`.
/// Returns the unit.
template <typename Number>
int scale(Number& value, const scaled_attributes& attributes, int last_unit) {
  int unit = attributes.base_unit;
  if (!attributes.has_target) {
    for (; unit < last_unit && value >= 1000; ++unit) value /= 1000;
    return unit;
  }
  for (; unit < attributes.target_unit; ++unit) value /= 1000;
  for (; unit > attributes.target_unit; --unit) value = times_1000(value);
  return unit;
}

/// Scales a value, but leaves the unit's text empty. Without decimals, `as_integer` reads the value; its
/// result type decides whether arithmetic is signed.
template <typename Read>
std::optional<scaled_value> scale_by(const types::variant& value, const scaled_attributes& attributes,
                                     int last_unit, Read as_integer) {
  scaled_value result;
  if (attributes.has_decimals()) {
    if (!attributes.read_number_form(result.form.emplace())) return std::nullopt;
    result.floating = value.as_double();
    result.unit_index = scale(result.floating, attributes, last_unit);
    if (result.reads_as_refused()) return std::nullopt;
    return result;
  }
  auto integer = as_integer(value);
  result.unit_index = scale(integer, attributes, last_unit);
  result.integer = static_cast<std::uint64_t>(integer);
  return result;
}

}  // namespace ORVA_NAMESPACE::i18n::_private
