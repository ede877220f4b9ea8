/// Labels as labeled buffers store them.
///
/// Internal: not installed.
#pragma once

#include <algorithm>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::serialization::_private {

/// The label without blanks, tabs and line ends at both ends.
inline std::string_view trimmed_label(std::string_view label) {
  constexpr std::string_view blanks = " \n\r\t";
  label.remove_suffix(label.size() - (label.find_last_not_of(blanks) + 1));
  label.remove_prefix(std::min(label.find_first_not_of(blanks), label.size()));
  return label;
}

}  // namespace ORVA_NAMESPACE::serialization::_private
