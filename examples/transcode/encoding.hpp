/// The encodings that the program knows: the code pages of the library, ASCII, UTF-16 and UTF-32.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "orva/orva.hpp"

namespace transcode {

enum class encoding_form { page, ascii, utf16, utf32 };

struct encoding {
  std::string name;
  encoding_form form = encoding_form::page;
  /// For a page.
  orva::strings::code_page page;
  /// For UTF-16 and UTF-32.
  bool is_big_endian = false;
  /// Neither "LE" nor "BE" is in the name: the mark of a file says which it is, and a file that is written
  /// gets one.
  bool has_mark = false;
};

/// By its name or one of its labels; nothing for a label that is not known.
std::optional<encoding> find_encoding(std::string_view label);

struct listed_encoding {
  std::string name;
  std::vector<std::string_view> labels;
};

std::vector<listed_encoding> all_encodings();

/// Removes the byte order mark of this encoding from the first bytes of a file. The mark chooses the byte
/// order of an encoding whose name leaves it open.
void take_mark(encoding& of, std::string_view& bytes);

/// The mark of this encoding; empty for code pages other than UTF-8.
std::string_view mark_of(const encoding& of);

/// The name of the Unicode encoding whose mark the bytes begin with; empty if there is none.
std::string_view marked_encoding(std::string_view bytes);

}  // namespace transcode
