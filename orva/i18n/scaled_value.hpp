/// Values scaled in steps of 1000: what memory sizes and metric quantities have in common. Internal.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "orva/generic/convert/x_to_str.hpp"
#include "orva/i18n/format_attributes.hpp"
#include "orva/i18n/formatters.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_2_18::i18n::_private {

/// Units are known by their index: the power of 1000 that they stand for.
struct scaled_attributes {
  int base_unit = 0;
  int target_unit = 0;
  bool has_target = false;
  std::string_view precision;
  std::string_view fieldsize = "0";

  bool set_base_unit(std::optional<int> unit) {
    base_unit = unit.value_or(0);
    return unit.has_value();
  }

  bool set_target_unit(std::optional<int> unit) {
    target_unit = unit.value_or(0);
    has_target = true;
    return unit.has_value();
  }

  bool set_number_form(std::string_view key, std::string_view value) {
    if (selects(key, "precision")) {
      precision = value;
      return true;
    }
    if (!selects(key, "fieldsize")) return false;
    fieldsize = value;
    return true;
  }
};

template <typename Number>
Number times_1000(Number value) {
  if constexpr (std::is_floating_point_v<Number>) {
    return value * 1000;
  } else {
    return static_cast<Number>(static_cast<std::uint64_t>(value) * 1000);
  }
}

/// Brings the value to the target unit, or below 1000 but no further than `last_unit`. Returns the unit reached.
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

/// The attributes go to `format_double` as they came, with every ";" a separator, so that one inside a number splits
/// it. The short keys keep the text within what a string holds without allocating.
inline strings::ustring8 decimal_text(double value, const scaled_attributes& attributes) {
  strings::ustring8 attrs("p;");
  attrs.append(attributes.precision).append(";f;").append(attributes.fieldsize);
  std::replace(attrs.begin(), attrs.end(), ';', field_separator);
  return format_double(value, attrs);
}

/// There is no sign in this text: a negative integer shows as the unsigned number of the same bits.
inline strings::ustring8 integer_text(std::uint64_t value) {
  char buffer[generic::convert::number_buffer_size];
  generic::convert::ulltoa(value, buffer, 10);
  return strings::ustring8(buffer);
}

/// The number text of `value`, scaled; `unit` becomes the index of its unit. `as_integer` reads the value where no
/// decimals are asked for, and its type decides how large and small values behave.
template <typename Read>
strings::ustring8 scaled_text(const types::variant& value, const scaled_attributes& attributes, int last_unit,
                              Read as_integer, int& unit) {
  if (to_number(attributes.precision) != 0) {
    double number = value.as_double();
    unit = scale(number, attributes, last_unit);
    return decimal_text(number, attributes);
  }
  auto number = as_integer(value);
  unit = scale(number, attributes, last_unit);
  return integer_text(static_cast<std::uint64_t>(number));
}

}  // namespace ORVA_2_18::i18n::_private
