/// `checked_value`: a value, or an element of an array, as a check reads it.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string_view>

#include "orva/config/internal/checked_text.hpp"

namespace ORVA_NAMESPACE::config::_private {

enum class value_kind { scalar, element };

/// Where a value is, and what it has where it reads otherwise than it looks. Offsets of the text, or nowhere.
struct checked_value {
  std::size_t begin = nowhere;
  std::size_t end = 0;
  std::size_t comma = nowhere;  // that ends it; nowhere at the line end

  /// The number of texts in quotes and of other texts of which it is put together. `content` is the last one.
  std::size_t pieces = 0;
  std::string_view content;
  bool quoted = false;
  bool stored = false;  // there is more than ""
  bool after_blank = false;

  bool broken = false;  // a quote that is not closed: there is a finding
  bool cut = false;     // what looks like a comment is none, or the reverse: there is a finding
  std::size_t blank = nowhere;
  std::size_t quote = nowhere;
  std::size_t hidden = nowhere;

  bool empty() const { return begin == nowhere; }
};

/// Reads up to the comma, which is consumed, or to the line end.
checked_value read_value(checked_text& text, value_kind kind);

/// Makes the findings about the spelling of a value that is used.
void check_spelling(const checked_value& value, value_kind kind, checked_text& text);

}  // namespace ORVA_NAMESPACE::config::_private
