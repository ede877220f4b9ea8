/// The lines of a document, and where a new key comes in.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "orva/config/internal/document_text.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// The begin of the line that a place is in.
std::size_t line_begin(std::string_view text, std::size_t offset);
/// The number of the line that a place is in, from 1.
std::size_t line_number(std::string_view text, std::size_t offset);
/// That of the line before, or else of the line after a place; LF if there is none.
std::string_view line_end_near(std::string_view text, std::size_t offset);

/// Whether only blanks are before the part in its line.
bool begins_line(const document_text& document, std::size_t index);
/// The blanks before a part that begins its line.
std::string_view indentation(const document_text& document, std::size_t index);

/// The first of the comments directly above the line that a part begins; the part itself if there is none.
std::size_t comment_above(const document_text& document, std::size_t index);
/// Whether the line after a part is one of another key.
bool key_follows(const document_text& document, std::size_t index);

/// Whether the text ends in quotes, a section or a key that is open.
bool ends_open(const document_text& document);

/// Where a new line is written, and how.
struct placement {
  /// The index of the part that comes after the new one.
  std::size_t part = 0;
  std::size_t offset = 0;
  /// So many characters of the key are given by the section, with the dot after them.
  std::size_t section_length = 0;
  bool needs_section = false;
  bool before_section = false;
  std::string indentation;
  std::string assignment = " = ";
};

/// `path` and its spelling have the same size, and dots at the same places.
placement placement_of(const document_text& document, std::string_view path);
/// At the end of the text.
placement placement_at_end(const document_text& document);

/// `lines`, of which the last one has no line end, as they are written at a place.
replacement inserted_lines(std::string_view text, const placement& place, std::string_view lines);

}  // namespace ORVA_NAMESPACE::config::_private
