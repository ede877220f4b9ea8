/// `file_item::load`: reads the text of a configuration file into a tree.
///
///     config_file_reader("[window]\nwidth = 640\n", tree).read();    // window.width: "640"
///
/// Internal: not installed. Reads the text in one pass. The node of a section is looked up once for all its
/// keys, so that a long name costs its length once.
#pragma once

#include <string_view>

#include "orva/config/config_tree.hpp"
#include "orva/config/internal/config_file_scanner.hpp"
#include "orva/generic/varg_list.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

class config_file_reader {
 public:
  config_file_reader(std::string_view text, config_tree& tree) : scanner_(text), tree_(tree) {}

  void read();

 private:
  void store_value();
  void store_array();
  void add_element(scanned_value& value);

  config_tree& section();

  config_file_scanner scanner_;
  config_tree& tree_;
  scanned_part part_;

  strings::ustring8 section_name_;
  /// The node of the section, null until its first key: a section without keys makes no node.
  config_tree* section_ = nullptr;
  /// The elements of the array that is being read. An array whose last element is empty is not stored and
  /// leaves its elements here: the next array begins with them.
  generic::varg_list elements_;
};

}  // namespace ORVA_NAMESPACE::config::_private
