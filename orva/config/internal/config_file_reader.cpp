#include "orva/config/internal/config_file_reader.hpp"

#include <utility>

#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::config::_private {

void config_file_reader::read() {
  while (scanner_.next(part_)) {
    if (part_.kind == scanned_part::type::section) {
      section_name_.swap(part_.name);
      section_ = nullptr;
    } else if (part_.kind == scanned_part::type::value) {
      store_value();
    } else if (part_.kind == scanned_part::type::array) {
      store_array();
    }
  }
}

void config_file_reader::store_value() {
  strings::ustring8& value = part_.values.front().text;
  if (!value.empty()) section().set_node(part_.name, std::move(value), 0);
}

void config_file_reader::add_element(scanned_value& value) {
  elements_.push_back(types::variant(std::move(value.text)));
}

void config_file_reader::store_array() {
  scanned_value last = std::move(part_.values.back());
  part_.values.pop_back();
  for (scanned_value& value : part_.values) add_element(value);
  if (last.text.empty()) return;
  add_element(last);
  config_tree& top = section();
  // An array without a name has the section's own node as its header.
  config_tree& header = part_.name.empty() && !section_name_.empty() ? top : top.ensure_node(part_.name);
  header.store(types::nil, config_tree::NODE_ARRAY);
  top.ensure_parent(part_.name).store_elements(elements_, {});
  elements_.clear();
}

config_tree& config_file_reader::section() {
  if (section_ == nullptr) section_ = section_name_.empty() ? &tree_ : &tree_.ensure_parent(section_name_);
  return *section_;
}

}  // namespace ORVA_NAMESPACE::config::_private
