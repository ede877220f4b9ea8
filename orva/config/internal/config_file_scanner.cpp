#include "orva/config/internal/config_file_scanner.hpp"

namespace ORVA_NAMESPACE::config::_private {

using tok_types = config_token::tok_types;

namespace {

// The bytes at which the functions below look at a token. All other bytes are copied in runs.
constexpr byte_set comment_stops("\r\n\"");
constexpr byte_set section_stops("]\r\n\t \"");
constexpr byte_set key_stops("=<>:+-*/\r\n\t \"");
constexpr byte_set scalar_stops("#*/\r\n\t \"");
constexpr byte_set array_stops(",#*/\r\n\t \"");

void append(scanned_value& value, std::string_view text, unsigned int begin, unsigned int end) {
  value.text += text;
  if (value.begin == value.end) value.begin = begin;
  value.end = end;
}

}  // namespace

void skip_comment(std::string_view text, unsigned int& position) {
  scanned_token token;
  for (;;) {
    scan_plain(text, position, comment_stops);
    const unsigned int start = position;
    if (scan_token(text, position, token) != tok_types::T_END && token.type != tok_types::T_NEWLINE) continue;
    position = start;
    return;
  }
}

bool config_file_scanner::at_comment() const {
  return token_.type == tok_types::T_POUND || token_.type == tok_types::T_FSFS;
}

bool config_file_scanner::next(scanned_part& part) {
  do {
    if (scan() == tok_types::T_END) return false;
  } while (token_.is_white_space());
  part.begin = token_.start_position;
  read(part);
  part.end = position_;
  return true;
}

void config_file_scanner::read(scanned_part& part) {
  part.name.clear();
  if (at_comment()) {
    part.kind = scanned_part::type::comment;
    return skip_comment(text_, position_);
  }
  if (token_.type == tok_types::T_SBRACKET) return read_section(part);

  read_key(part);
  if (part.name.empty()) {
    part.kind = scanned_part::type::no_key;
  } else if (token_.type == tok_types::T_END) {
    part.kind = scanned_part::type::unfinished_key;
  } else if (part.name.ends_with("[]")) {
    part.kind = scanned_part::type::array;
    part.name.resize(part.name.size() - 2);
    read_values(part, array_stops);
  } else {
    part.kind = scanned_part::type::value;
    read_values(part, scalar_stops);
  }
}

void config_file_scanner::read_section(scanned_part& part) {
  part.kind = scanned_part::type::section;
  for (;;) {
    part.name += plain_text(section_stops);
    if (scan() == tok_types::T_END || token_.type == tok_types::T_EBRACKET) break;
    if (!token_.is_white_space()) part.name += token_.text;
  }
  part.name_end = position_;
}

/// A key ends only at `=`. It may continue over line ends.
void config_file_scanner::read_key(scanned_part& part) {
  while (token_.type != tok_types::T_END && token_.type != tok_types::T_EQ) {
    if (!token_.is_white_space()) {
      part.name += token_.text;
      part.name_end = position_;
    }
    const std::string_view plain = plain_text(key_stops);
    if (!plain.empty()) {
      part.name += plain;
      part.name_end = position_;
    }
    scan();
  }
}

/// A line end after a comma does not end an array, and neither do blank lines and comments there. The stops
/// of a scalar have no comma.
void config_file_scanner::read_values(scanned_part& part, const byte_set& stops) {
  part.values.resize(1);
  scanned_value& first = part.values.front();
  first.text.clear();
  first.begin = first.end = position_;
  bool may_end = true;
  for (;;) {
    const unsigned int start = position_;
    const std::string_view plain = plain_text(stops);
    if (!plain.empty()) {
      append(part.values.back(), plain, start, position_);
      may_end = true;
    }
    if (scan() == tok_types::T_END) return;
    if (token_.type == tok_types::T_NEWLINE) {
      if (may_end) return;
    } else if (at_comment()) {
      skip_comment(text_, position_);
    } else if (token_.type == tok_types::T_NON_ALPHA_NUM && token_.text == ",") {
      part.values.push_back({{}, position_, position_});
      may_end = false;
    } else if (!token_.is_white_space()) {
      append(part.values.back(), token_.text, token_.start_position, token_.end_position);
      may_end = true;
    }
  }
}

}  // namespace ORVA_NAMESPACE::config::_private
