/// The conversions of `variant::try_as`: from each stored type to each other, where nothing is lost.
///
///     exactly<short>(300)            =>  300
///     exactly<signed char>(300)      =>  nothing
///     exactly<int>(2.5)              =>  nothing
///     exactly<int>(ustring8("12x"))  =>  nothing
///
/// Internal: not installed. `exactly` chooses one of the functions before it by five groups of types: nil,
/// `bool`, integers, floating values, text.
#pragma once

#include <algorithm>
#include <cmath>
#include <concepts>
#include <initializer_list>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "orva/generic/convert/read_number.hpp"
#include "orva/generic/convert/write_number.hpp"
#include "orva/strings/standard_transforms.hpp"
#include "orva/strings/text_view.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/internal/stored_types.hpp"
#include "orva/types/internal/value_conversion.hpp"
#include "orva/types/nil.hpp"
#include "orva/types/radix.hpp"

namespace ORVA_NAMESPACE::types::_private {

/// The string classes of the library and of the standard.
template <typename T>
concept text_class = std::derived_from<T, std::basic_string<typename T::value_type>>;

// Numbers to numbers.

template <integer Target, integer Source>
std::optional<Target> exact_number(Source value) {
  if (!std::in_range<Target>(value)) return {};
  return static_cast<Target>(value);
}

template <integer Target, std::floating_point Source>
std::optional<Target> exact_number(Source value) {
  // One more than the largest Target is a power of two, which every floating type has.
  constexpr Source limit = static_cast<Source>(std::numeric_limits<Target>::max() / 2 + 1) * 2;
  constexpr Source lowest = std::signed_integral<Target> ? -limit : Source{0};
  const bool in_range = value >= lowest && value < limit;  // false for NaN
  if (!in_range || value != std::trunc(value)) return {};
  const bool loses_sign = value == 0 && std::signbit(value);
  if (loses_sign) return {};
  return static_cast<Target>(value);
}

template <std::floating_point Target, integer Source>
std::optional<Target> exact_number(Source value) {
  const auto nearest = static_cast<Target>(value);
  if (exact_number<Source>(nearest) != value) return {};
  return nearest;
}

template <std::floating_point Target, std::floating_point Source>
std::optional<Target> exact_number(Source value) {
  if constexpr (std::numeric_limits<Target>::digits < std::numeric_limits<Source>::digits) {
    // A finite value beyond the range must not be converted: the result would be undefined.
    constexpr Source largest = std::numeric_limits<Target>::max();
    if (std::isfinite(value) && std::abs(value) > largest) return {};
    const auto nearest = static_cast<Target>(value);
    if (nearest != value && !std::isnan(value)) return {};
    return nearest;
  } else {
    return static_cast<Target>(value);
  }
}

template <number Source>
std::optional<bool> exact_bool(Source value) {
  const auto number = exact_number<unsigned char>(value);
  if (!number || *number > 1) return {};
  return *number == 1;
}

// Numbers to text.

/// The shortest text that reads back as `value`.
template <text_class Target, number Source>
Target exact_text(Source value) {
  namespace convert = generic::convert;
  typename Target::value_type text[convert::number_buffer_size];
  return Target(text, convert::write_number(text, text + convert::number_buffer_size, value).end);
}

// Text to text.

template <code_unit Unit>
strings::transformed<Unit> transform(strings::text_view text) {
  if constexpr (std::same_as<Unit, char>) return strings::to_utf8(text, strings::on_malformed::stop);
  if constexpr (std::same_as<Unit, strings::code_unit16>)
    return strings::to_utf16(text, strings::on_malformed::stop);
  if constexpr (std::same_as<Unit, strings::code_unit32>)
    return strings::to_utf32(text, strings::on_malformed::stop);
}

template <text_class Target, code_unit From>
std::optional<Target> exact_text(const basic_ustring<From>& text) {
  using unit = typename Target::value_type;
  if constexpr (std::same_as<unit, From>) {
    return Target(text);
  } else {
    auto result = transform<unit>(text);
    if (result.first_malformed) return {};
    return Target(std::move(result.text));
  }
}

// Text to numbers and to `bool`.

/// The radix of an integer is that of its prefix, as it is for the accessors.
template <number Target, code_unit From>
std::optional<Target> parse_whole(const basic_ustring<From>& text) {
  constexpr auto radix = integer<Target> ? radix_t::prefix : radix_t::decimal;
  return generic::convert::parse_number<Target>(text, radix);
}

template <code_unit From>
bool is_any_word(const basic_ustring<From>& text, std::initializer_list<std::string_view> words) {
  return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return is_word(text, word); });
}

template <code_unit From>
std::optional<bool> parse_bool(const basic_ustring<From>& text) {
  if (is_any_word(text, {"true", "yes", "on", "1"})) return true;
  if (is_any_word(text, {"false", "no", "off", "0"})) return false;
  return {};
}

/// The value as a Target, another type than it is stored as.
template <stored_type Target, typename Source>
std::optional<Target> exactly(const Source& value) {
  if constexpr (std::same_as<Target, nil_t> || std::same_as<Source, nil_t>) {
    return {};
  } else if constexpr (std::same_as<Source, bool>) {
    return exactly<Target>(value ? 1 : 0);
  } else if constexpr (text_class<Target>) {
    return exact_text<Target>(value);
  } else if constexpr (text_class<Source>) {
    if constexpr (std::same_as<Target, bool>) return parse_bool(value);
    if constexpr (!std::same_as<Target, bool>) return parse_whole<Target>(value);
  } else if constexpr (std::same_as<Target, bool>) {
    return exact_bool(value);
  } else {
    return exact_number<Target>(value);
  }
}

}  // namespace ORVA_NAMESPACE::types::_private
