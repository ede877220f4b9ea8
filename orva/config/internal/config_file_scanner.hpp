/// The parts of a configuration file, with their places in the text.
///
///     config_file_scanner scanner("# note\n[window]\nwidth = 640\n");
///     scanned_part part;
///     while (scanner.next(part)) use(part);     // a comment, a section, and a value with the name "width"
///
/// Internal: not installed. Every text has parts. Between them are only blanks, tabs and line ends, and a
/// part reads the same whatever comes before it: a scan may begin after any part.
///
/// A quote that is not closed takes the rest of the text. The end of its part is then one more than the size
/// of the text.
#pragma once

#include <string_view>
#include <vector>

#include "orva/config/internal/token_scanner.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// Moves `position` to the line end after a comment, or to the end of the text.
void skip_comment(std::string_view text, unsigned int& position);

/// A value, or an element of an array.
struct scanned_value {
  strings::ustring8 text;
  /// From the first to the last of its tokens. Both are the place after the `=` or the comma if it has none.
  unsigned int begin = 0;
  unsigned int end = 0;
};

struct scanned_part {
  enum class type {
    comment,         // up to its line end, which is not part of it
    section,         // up to its `]`
    value,           // up to and with its line end
    array,           // the same
    no_key,          // a `=` without a key, which is dropped
    unfinished_key,  // the text ends without a `=`
  };

  type kind = type::comment;
  unsigned int begin = 0;
  unsigned int end = 0;
  /// Of a section, a value or an array, here without the "[]".
  strings::ustring8 name;
  /// The end of the tokens of the name, which begin at `begin`. That of an array includes the "[]".
  unsigned int name_end = 0;
  /// One of a value, all of an array; without a meaning for other parts. If the last one is empty, none is
  /// stored. Reading many parts into one object keeps the memory of the first value.
  std::vector<scanned_value> values;

  bool has_values() const { return kind == type::value || kind == type::array; }
};

class config_file_scanner {
 public:
  explicit config_file_scanner(std::string_view text, unsigned int position = 0)
      : text_(text), position_(position) {}

  /// False at the end of the text.
  bool next(scanned_part& part);

 private:
  config_token::tok_types scan() { return scan_token(text_, position_, token_); }
  std::string_view plain_text(const byte_set& stops) { return scan_plain(text_, position_, stops); }
  bool at_comment() const;

  void read(scanned_part& part);
  void read_section(scanned_part& part);
  void read_key(scanned_part& part);
  void read_values(scanned_part& part, const byte_set& stops);

  std::string_view text_;
  unsigned int position_;
  scanned_token token_;
};

}  // namespace ORVA_NAMESPACE::config::_private
