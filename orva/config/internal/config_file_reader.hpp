/// The reader behind `file_item`: the text of a configuration file into a tree.
///
/// Internal: not installed. One pass; a section's node is walked to once, so that long names cost their
/// length once.
#pragma once

#include <string_view>

#include "orva/config/config_tree.hpp"
#include "orva/config/internal/token_scanner.hpp"
#include "orva/generic/varg_list.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// Moves `position` to the line end that ends a comment, or to the end of the text.
void skip_comment(std::string_view text, unsigned int& position);

class config_file_reader {
 public:
  config_file_reader(std::string_view text, config_tree& tree) : text_(text), tree_(tree) {}

  void read();

 private:
  config_token::tok_types next() { return scan_token(text_, position_, token_); }
  std::string_view plain_text(const byte_set& stops) { return scan_plain(text_, position_, stops); }
  bool at_comment() const;

  void skip_to_content();
  void read_section();
  void read_key();
  void read_scalar();
  void read_array();
  void push_element();
  void end_array();

  config_tree& section();

  std::string_view text_;
  config_tree& tree_;
  unsigned int position_ = 0;
  scanned_token token_;

  strings::ustring8 section_name_;
  /// The node of the section. Made for the first key: a section without keys leaves no trace.
  config_tree* section_ = nullptr;
  strings::ustring8 key_;
  strings::ustring8 value_;
  /// What an array left here without its last element is in front of the next array.
  generic::varg_list elements_;
};

}  // namespace ORVA_NAMESPACE::config::_private
