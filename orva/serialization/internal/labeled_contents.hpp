/// What a labeled buffer holds once something was stored in it.
///
/// Internal: not installed.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "orva/serialization/labeled_text_buffer.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::serialization {

struct labeled_text_buffer::entry {
  explicit entry(types::variant stored) : value(std::move(stored)) {}

  labeled_text_buffer group;
  types::variant value;
};

struct labeled_text_buffer::contents {
  /// Ordered by the bytes of the labels.
  std::map<std::string, entry> entries;
  /// The last flat form: what `as_str` gave, or what was assigned. Groups within a larger buffer keep none.
  std::string text;
  /// Links what is being destroyed.
  contents* next = nullptr;
};

}  // namespace ORVA_NAMESPACE::serialization
