/// Reporting of what a conversion of code pages loses.
///
/// A conversion calls its `on_fault` at each place where the result does not say what the source says:
///
///     decoding    on_fault(bytes, size, to, unit)    `size` bytes, no character, become `unit` at `to`
///     encoding    on_fault(unit, to, size)           a unit that the page lacks became `size` bytes at `to`
///
/// Internal: not installed.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "orva/internal/text/block.hpp"

namespace ORVA_NAMESPACE::internal::code_pages {

/// For conversions whose losses nobody asks for: they do not look for them either.
struct ignore_faults {
  template <typename... Arguments>
  constexpr void operator()(const Arguments&...) const {}
};

template <typename OnFault>
inline constexpr bool finds_faults = !std::is_same_v<OnFault, ignore_faults>;

/// Whether a page with these units of single bytes has the controls from U+0080 to U+009F. Only pages with a
/// character of their own in the place of NEL lack them.
constexpr bool has_upper_controls(const strings::code_unit16* units) {
  return text::value_of(units[0x85]) == 0x85;
}

/// Whether `unit` is what the platform gives for a byte that is no character of the page: the control of the
/// same value, in a page that has no controls there, or a private character. Private characters of pairs are
/// for users to define; single bytes have none.
constexpr bool is_placeholder(strings::code_unit16 unit, bool with_upper_controls) {
  const std::uint32_t value = text::value_of(unit);
  const bool is_private = value >= 0xE000 && value <= 0xF8FF;
  return is_private || ((value & 0xFFE0) == 0x80 && !with_upper_controls);
}

/// The distance of a value above `first`, modulo the 16 bits of a unit. Less its half, since processors find
/// the least of many numbers of 16 bits only where they have a sign.
constexpr std::int16_t distance(std::uint32_t value, std::uint32_t first) {
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(value - first - 0x8000));
}

/// The same for any of `Count` units, in a loop that the compiler makes a few vector instructions.
template <std::size_t Count>
bool any_placeholder(const strings::code_unit16* units, bool with_upper_controls) {
  std::int16_t to_private = std::numeric_limits<std::int16_t>::max();
  std::int16_t to_control = std::numeric_limits<std::int16_t>::max();
  for (std::size_t i = 0; i < Count; ++i) {
    to_private = std::min(to_private, distance(text::value_of(units[i]), 0xE000));
    to_control = std::min(to_control, distance(text::value_of(units[i]), 0x80));
  }
  return to_private <= distance(0xF8FF, 0xE000) ||
         (to_control <= distance(0x9F, 0x80) && !with_upper_controls);
}

}  // namespace ORVA_NAMESPACE::internal::code_pages
