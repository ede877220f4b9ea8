/// Values scaled in steps of 1000: what memory sizes and metric quantities have in common. Internal.
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

/// A value in the unit that it is shown in. Number and unit are made into text separately, since a
/// placeholder shows one of the two.
struct scaled_value {
  /// With decimals in this form, or without any.
  std::optional<double_attributes> form;
  double floating = 0;
  std::uint64_t integer = 0;
  /// The index of the unit: the power of 1000 that it stands for.
  int unit_index = 0;
  /// The unit's text, which lives as long as the library.
  std::string_view unit;

  void append_number(std::string& text) const;

  /// A negative zero without decimals, which only a semicolon in the precision can bring.
  bool reads_as_refused() const;
};

// Nothing: the attributes are refused.
std::optional<scaled_value> scale_memory(const types::variant& value, std::string_view attrs);
std::optional<scaled_value> scale_metric(const types::variant& value, std::string_view attrs);

/// Both texts as the formatters return them.
strings::ustring8 number_and_unit(const std::optional<scaled_value>& value, strings::ustring8& unit);

// One of the two texts as messages show it. False: there is no value.
bool append_number(std::string& text, const std::optional<scaled_value>& value);
bool append_unit(std::string& text, const std::optional<scaled_value>& value);

/// A number as an attribute gives it. The text is what `format_double` is told.
struct number_attribute {
  std::string_view text;
  int value = 0;

  number_attribute(std::string_view digits) : text(digits), value(to_number(digits)) {}
  constexpr number_attribute(std::string_view digits, int number) : text(digits), value(number) {}
};

/// The attributes that both kinds have. Units are given by their index.
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

  /// False: the texts of precision and field make no valid form.
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

/// Brings the value to the target unit, or below 1000 but no further than `last_unit`. Returns the unit
/// reached.
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

/// Scales a value, all but the unit's text. `as_integer` reads it where no decimals are asked for, and the
/// type of what it reads decides how large and small values behave.
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
