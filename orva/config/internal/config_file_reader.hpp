/// `file_item::load`: reads the text of a configuration file into a tree.
///
///     config_file_reader("[window]\nwidth = 640\n", tree).read();    // window.width: "640"
///
/// Internal: not installed. Reads the text in one pass. The node of a section is looked up once for all its
/// keys, so that a long name costs its length once.
#pragma once

#include <string_view>

#include "orva/config/config_tree.hpp"
#include "orva/config/internal/token_scanner.hpp"
#include "orva/generic/varg_list.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// Moves `position` to the line end after a comment, or to the end of the text.
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
  /// The node of the section, null until its first key: a section without keys makes no node.
  config_tree* section_ = nullptr;
  strings::ustring8 key_;
  strings::ustring8 value_;
  /// The elements of the array that is being read. An array whose last element is empty is not stored and
  /// leaves its elements here: the next array begins with them.
  generic::varg_list elements_;
};

}  // namespace ORVA_NAMESPACE::config::_private
