#include "orva/config/internal/read_value.hpp"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <optional>

#include "orva/config/duration_text.hpp"
#include "orva/config/size_text.hpp"
#include "orva/generic/convert/read_number.hpp"
#include "orva/types/radix.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

using generic::convert::number_error;
using generic::convert::read_number;
using types::variant;

value_result wrong_kind() { return {variant(), value_error::wrong_kind}; }

template <typename Number>
value_result in_range(const value_range<Number>& range, Number number) {
  if (!range.contains(number)) return {variant(), value_error::out_of_range};
  return {variant(number), value_error::none};
}

bool has_hexadecimal_prefix(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  return text.starts_with("0x") || text.starts_with("0X");
}

/// A leading zero means nothing: 010 is ten.
value_result read_integer(const setting_type& type, std::string_view text) {
  const auto radix = has_hexadecimal_prefix(text) ? types::radix_t::prefix : types::radix_t::decimal;
  const auto [value, length, error] = read_number<long long>(text, radix);
  if (length != text.size() || error == number_error::no_number) return wrong_kind();
  if (error != number_error::none) return {variant(), value_error::out_of_range};
  if (!type.integers().contains(value)) return {variant(), value_error::out_of_range};
  return {variant(value), value_error::none};
}

value_result read_number_value(const setting_type& type, std::string_view text) {
  const auto [value, length, error] = read_number<double>(text);
  if (length != text.size() || error == number_error::no_number || std::isnan(value)) return wrong_kind();
  if (error != number_error::none) return {variant(), value_error::out_of_range};
  return in_range(type.numbers(), value);
}

template <typename Value>
value_result value_or_wrong_kind(const std::optional<Value>& value) {
  return value ? value_result{variant(*value), value_error::none} : wrong_kind();
}

value_result read_duration_value(std::string_view text) {
  const auto duration = parse_duration(text);
  if (!duration) return wrong_kind();
  return {variant(static_cast<long long>(duration->count())), value_error::none};
}

/// A default that the program gives in seconds. Rounded to a nanosecond, from which `std::chrono` made it.
value_result seconds_value(double seconds) {
  const double nanoseconds = seconds * 1e9;
  constexpr double limit = 9.2e18;
  if (!(nanoseconds >= 0 && nanoseconds <= limit)) return {variant(), value_error::out_of_range};
  return {variant(static_cast<long long>(std::llround(nanoseconds))), value_error::none};
}

}  // namespace

value_result read_value(const setting_type& type, std::string_view text) {
  switch (type.kind()) {
    case value_kind::flag:
      return value_or_wrong_kind(variant(text).try_as<bool>());
    case value_kind::integer:
      return read_integer(type, text);
    case value_kind::number:
      return read_number_value(type, text);
    case value_kind::choice:
      if (std::find(type.choices().begin(), type.choices().end(), text) == type.choices().end()) {
        return wrong_kind();
      }
      break;
    case value_kind::path:
      if (text.empty()) return wrong_kind();
      break;
    case value_kind::size:
      return value_or_wrong_kind(parse_size(text));
    case value_kind::duration:
      return read_duration_value(text);
    case value_kind::text:
      break;
  }
  return {variant(text), value_error::none};
}

value_result check_value(const setting_type& type, const variant& value) {
  const auto is_text = value.holds<strings::ustring8>() || value.holds<std::string>();
  if (is_text) return read_value(type, value.as_string());
  if (type.kind() == value_kind::duration) {
    const auto seconds = value.try_as<double>();
    return seconds ? seconds_value(*seconds) : wrong_kind();
  }
  if (type.kind() == value_kind::number) {
    const auto number = value.try_as<double>();
    return number ? in_range(type.numbers(), *number) : wrong_kind();
  }
  const auto text = value.try_as<strings::ustring8>();
  return text ? read_value(type, std::string_view(*text)) : wrong_kind();
}

strings::ustring8 write_value(const setting_type& type, const variant& value) {
  switch (type.kind()) {
    case value_kind::flag:
      return value.as_bool() ? "true" : "false";
    case value_kind::size:
      return write_size(value.as_uint64());
    case value_kind::duration:
      return write_duration(std::chrono::nanoseconds(value.as_int64()));
    default:
      return value.try_as<strings::ustring8>().value_or(strings::ustring8());
  }
}

}  // namespace ORVA_NAMESPACE::config::_private
