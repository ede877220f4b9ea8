/// Classification and case of single code units, as the C runtime sees them in the process's current locale.
///
/// A code unit of any width is classified by its unsigned value, so that no negative `char` reaches the C
/// runtime:
///
///     0 to 127      by one table, which is the same in every locale
///     128 to 255    by the C runtime, so that a single-byte locale has its letters
///     above 255     in no class, and its own lower and upper case
///
/// Any thread may call these as long as none changes the locale meanwhile.
///
/// Internal: not installed.
#pragma once

#include <array>
#include <cctype>
#include <concepts>
#include <cstdint>
#include <type_traits>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal::character_class {

namespace _private {

enum ascii_class : std::uint8_t { space = 1, digit = 2, upper = 4, lower = 8, hexadecimal_letter = 16 };

inline constexpr std::uint8_t alpha = upper | lower;
inline constexpr std::uint8_t alnum = alpha | digit;
inline constexpr std::uint8_t xdigit = digit | hexadecimal_letter;

constexpr std::uint8_t classify(unsigned int unit) {
  unsigned int classes = 0;
  if (unit == ' ' || (unit >= '\t' && unit <= '\r')) classes |= space;
  if (unit >= '0' && unit <= '9') classes |= digit;
  if (unit >= 'A' && unit <= 'Z') classes |= upper;
  if (unit >= 'a' && unit <= 'z') classes |= lower;
  if ((unit >= 'A' && unit <= 'F') || (unit >= 'a' && unit <= 'f')) classes |= hexadecimal_letter;
  return static_cast<std::uint8_t>(classes);
}

inline constexpr auto ascii_classes = [] {
  std::array<std::uint8_t, 128> table{};
  for (unsigned int unit = 0; unit < table.size(); ++unit) table[unit] = classify(unit);
  return table;
}();

/// The unit's value; for a `char`, the byte.
template <std::integral Unit>
constexpr std::uint32_t value_of(Unit unit) {
  static_assert(sizeof(Unit) <= sizeof(std::uint32_t));
  return static_cast<std::make_unsigned_t<Unit>>(unit);
}

template <std::integral Unit>
bool is(Unit unit, std::uint8_t classes, int (*from_runtime)(int)) {
  const std::uint32_t value = value_of(unit);
  if (value < ascii_classes.size()) return (ascii_classes[value] & classes) != 0;
  return value <= 0xFF && from_runtime(static_cast<int>(value)) != 0;
}

template <std::integral Unit>
Unit change_case(Unit unit, std::uint8_t from, int (*from_runtime)(int)) {
  const std::uint32_t value = value_of(unit);
  if (value < ascii_classes.size()) {
    constexpr std::uint32_t case_bit = 'a' ^ 'A';
    return (ascii_classes[value] & from) != 0 ? static_cast<Unit>(value ^ case_bit) : unit;
  }
  if (value > 0xFF) return unit;
  return static_cast<Unit>(static_cast<unsigned char>(from_runtime(static_cast<int>(value))));
}

}  // namespace _private

template <std::integral Unit>
bool isspace(Unit unit) {
  return _private::is(unit, _private::space, std::isspace);
}

template <std::integral Unit>
bool isdigit(Unit unit) {
  return _private::is(unit, _private::digit, std::isdigit);
}

template <std::integral Unit>
bool isxdigit(Unit unit) {
  return _private::is(unit, _private::xdigit, std::isxdigit);
}

template <std::integral Unit>
bool isalpha(Unit unit) {
  return _private::is(unit, _private::alpha, std::isalpha);
}

template <std::integral Unit>
bool isalnum(Unit unit) {
  return _private::is(unit, _private::alnum, std::isalnum);
}

template <std::integral Unit>
Unit tolower(Unit unit) {
  return _private::change_case(unit, _private::upper, std::tolower);
}

template <std::integral Unit>
Unit toupper(Unit unit) {
  return _private::change_case(unit, _private::lower, std::toupper);
}

}  // namespace ORVA_NAMESPACE::internal::character_class
