/// The names that a declaration may use.
///
/// Internal: not installed.
#pragma once

#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::config::_private {

constexpr bool is_letter_or_digit(char unit) {
  return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') || (unit >= '0' && unit <= '9');
}

/// A name that begins with a letter or digit and goes on with these, `-`, `_` and perhaps dots.
constexpr bool is_name(std::string_view name, bool with_dots) {
  if (name.empty() || !is_letter_or_digit(name.front())) return false;
  for (const char unit : name) {
    if (!is_letter_or_digit(unit) && unit != '-' && unit != '_' && !(with_dots && unit == '.')) return false;
  }
  return true;
}

/// Sections and a name, separated by single dots. A file can hold each of them.
constexpr bool is_key(std::string_view key) {
  return is_name(key, true) && key.back() != '.' && key.find("..") == key.npos && key.find(".-") == key.npos;
}

constexpr bool is_short_option(char unit) { return unit > ' ' && unit <= '~' && unit != '-' && unit != '='; }

/// What systems take: no `=` and no zero.
constexpr bool is_variable_name(std::string_view name) {
  return !name.empty() && name.find('=') == name.npos && name.find('\0') == name.npos;
}

}  // namespace ORVA_NAMESPACE::config::_private
