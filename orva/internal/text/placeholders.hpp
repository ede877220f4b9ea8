/// Sentences with {names} in them, which are replaced by values.
///
///     with_placeholders("{n} of {total}, {x}", [](std::string_view name) -> std::optional<std::string> {
///       return name == "n" ? std::optional("3") : std::nullopt;
///     })                                        =>  "3 of {total}, {x}"
///
/// A name without a value stays as it is, with its braces, and so does a brace without the other. A value is
/// not searched for names. Takes time in proportion to the text and the values, whatever braces the text has.
///
/// Internal: not installed.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal::text {

/// `value_of` gives a name's value as an optional text. A name has no braces: it begins after the last {
/// before the next }.
template <typename ValueOf>
std::string with_placeholders(std::string_view text, ValueOf value_of) {
  std::string result;
  for (std::size_t close = text.find('}'); close != text.npos; close = text.find('}')) {
    const std::size_t open = std::min(text.substr(0, close).rfind('{'), close + 1);
    result += text.substr(0, open);
    if (open < close) {
      const auto value = value_of(text.substr(open + 1, close - open - 1));
      result += value ? std::string_view(*value) : text.substr(open, close + 1 - open);
    }
    text.remove_prefix(close + 1);
  }
  return result.append(text);
}

}  // namespace ORVA_NAMESPACE::internal::text
