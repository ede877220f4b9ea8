/// The entries of a labeled buffer, which is without them until something is stored.
///
/// Internal: not installed.
#pragma once

#include <map>
#include <string>

#include "orva/serialization/labeled_text_buffer.hpp"

namespace ORVA_NAMESPACE::serialization {

struct labeled_text_buffer::contents {
  /// Ordered by the bytes of the labels.
  std::map<std::string, entry> entries;
  /// The last flat form: the result of `as_str`, or the text assigned. Empty for groups, unless they were
  /// asked themselves.
  std::string text;
  /// The next group to destroy, while groups are being destroyed.
  contents* next = nullptr;
};

}  // namespace ORVA_NAMESPACE::serialization
