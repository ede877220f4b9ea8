#include "orva/config/internal/config_file_reader.hpp"

#include <utility>

#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::config::_private {

using tok_types = config_token::tok_types;

namespace {

// The bytes at which the functions below look at a token. All other bytes are copied in runs.
constexpr byte_set comment_stops("\r\n\"");
constexpr byte_set section_stops("]\r\n\t \"");
constexpr byte_set key_stops("=<>:+-*/\r\n\t \"");
constexpr byte_set scalar_stops("#*/\r\n\t \"");
constexpr byte_set array_stops(",#*/\r\n\t \"");

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

bool config_file_reader::at_comment() const {
  return token_.type == tok_types::T_POUND || token_.type == tok_types::T_FSFS;
}

void config_file_reader::read() {
  while (position_ < text_.size()) {
    skip_to_content();
    if (token_.type == tok_types::T_SBRACKET) {
      read_section();
      continue;
    }
    read_key();
    if (key_.empty()) continue;
    if (key_.ends_with("[]")) {
      read_array();
    } else {
      read_scalar();
    }
  }
}

void config_file_reader::skip_to_content() {
  while (next() != tok_types::T_END) {
    if (at_comment()) {
      skip_comment(text_, position_);
    } else if (!token_.is_white_space()) {
      return;
    }
  }
}

void config_file_reader::read_section() {
  section_name_.clear();
  section_ = nullptr;
  for (;;) {
    section_name_ += plain_text(section_stops);
    if (next() == tok_types::T_END || token_.type == tok_types::T_EBRACKET) return;
    if (!token_.is_white_space()) section_name_ += token_.text;
  }
}

/// A key ends only at `=`. It may continue over line ends.
void config_file_reader::read_key() {
  key_.clear();
  while (token_.type != tok_types::T_END && token_.type != tok_types::T_EQ) {
    if (!token_.is_white_space()) key_ += token_.text;
    key_ += plain_text(key_stops);
    next();
  }
}

void config_file_reader::read_scalar() {
  value_.clear();
  for (;;) {
    value_ += plain_text(scalar_stops);
    if (next() == tok_types::T_END || token_.type == tok_types::T_NEWLINE) break;
    if (at_comment()) {
      skip_comment(text_, position_);
    } else if (!token_.is_white_space()) {
      value_ += token_.text;
    }
  }
  if (!value_.empty()) section().set_node(key_, std::exchange(value_, {}), 0);
}

void config_file_reader::read_array() {
  key_.resize(key_.size() - 2);
  value_.clear();
  bool has_content = true;
  for (;;) {
    const std::string_view text = plain_text(array_stops);
    value_ += text;
    has_content |= !text.empty();
    if (next() == tok_types::T_END) break;
    if (token_.type == tok_types::T_NEWLINE) {
      if (has_content) break;
    } else if (at_comment()) {
      skip_comment(text_, position_);
    } else if (token_.type == tok_types::T_NON_ALPHA_NUM && token_.text == ",") {
      push_element();
      has_content = false;
    } else if (!token_.is_white_space()) {
      value_ += token_.text;
      has_content = true;
    }
  }
  end_array();
}

void config_file_reader::push_element() { elements_.push_back(types::variant(std::exchange(value_, {}))); }

void config_file_reader::end_array() {
  if (value_.empty()) return;
  push_element();
  config_tree& top = section();
  // An array without a name has the section's own node as its header.
  config_tree& header = key_.empty() && !section_name_.empty() ? top : top.ensure_node(key_);
  header.store(types::nil, config_tree::NODE_ARRAY);
  top.ensure_parent(key_).store_elements(elements_, {});
  elements_.clear();
}

config_tree& config_file_reader::section() {
  if (section_ == nullptr) section_ = section_name_.empty() ? &tree_ : &tree_.ensure_parent(section_name_);
  return *section_;
}

}  // namespace ORVA_NAMESPACE::config::_private
