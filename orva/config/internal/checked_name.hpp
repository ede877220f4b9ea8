/// `checked_name`: the name of a key or of a section, as a check reads it.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string_view>

#include "orva/config/internal/checked_text.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// What a name has where it reads otherwise than it looks. Offsets of the text, or nowhere.
struct checked_name {
  enum class end { line_end, bracket, equals, comment };

  /// As `file_item` reads it, and as it is in the text, without blanks at both ends.
  strings::ustring8 text;
  std::string_view raw;
  std::size_t begin = nowhere;
  end ended_by = end::line_end;

  bool broken = false;  // a quote that is not closed in its line: there is a finding
  std::size_t blank = nowhere;
  std::size_t quote = nowhere;
  std::size_t hidden = nowhere;
  std::size_t colon = nowhere;
  /// `==`, `:=` and others, which do not end a key.
  std::size_t pair = nowhere;
  bool only_hidden = true;

  bool empty() const { return text.empty(); }
};

/// Reads up to the `]` of a section, which is consumed, or to the line end.
checked_name read_section_name(checked_text& text);
/// Reads up to the `=` of a key, which is consumed, to a comment or to the line end.
checked_name read_key_name(checked_text& text);

/// Makes the findings about the spelling of a name that is used.
void check_section_spelling(const checked_name& section, checked_text& text);
/// The same for a key, which may have `[]` at its end.
void check_key_spelling(const checked_name& key, checked_text& text);

}  // namespace ORVA_NAMESPACE::config::_private
