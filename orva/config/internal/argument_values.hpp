/// The values that the arguments of a program give, with the number of the argument of each.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

class commandline_item;

namespace _private {

struct argument_value {
  /// As `canonical_key`.
  std::string key;
  /// As in `argv`. That of the option, also where the value is in the argument after it.
  std::size_t argument = 0;
  /// Empty for the array itself.
  strings::ustring8 text;
  bool is_array = false;
};

/// In the order in which a load of the item stores them. The elements of an array follow it. Writes no
/// warning.
std::vector<argument_value> values_of_arguments(const commandline_item& item);

}  // namespace _private

}  // namespace ORVA_NAMESPACE::config
