#include "orva/config/internal/declared_item.hpp"

#include <string>
#include <utility>

#include "orva/config/internal/array_flags.hpp"
#include "orva/config/internal/lower_case_key.hpp"
#include "orva/generic/convert/read_number.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

bool holds(const base_config_item::node_type& node, const given_element& element) {
  return node.first == config_tree::NODE_VALUE_SET && node.second.as_string() == element.text;
}

}  // namespace

declared_item::declared_item(std::string_view id, origin_kind kind,
                             std::shared_ptr<const declared_program> program)
    : kind_(kind), program_(std::move(program)) {
  id_.assign(id);
}

declared_item::~declared_item() = default;

value_origin declared_item::origin_of(std::string_view key) const {
  value_origin origin{origin_kind::program, id_, {}, 0, {}};
  const node_type* const node = get_value(key);
  if (node == nullptr || !given_) return origin;

  // The key of a setting, or of an element of a list.
  const std::string whole = canonical_key(key);
  std::string_view name = whole;
  std::size_t element = 0;
  if (program_->names.find_lower_case_key(name) == not_found) {
    const auto dot = name.rfind('.');
    const auto number = generic::convert::parse_number<std::size_t>(name.substr(dot + 1));
    if (dot == name.npos || !number) return origin;
    element = *number;
    name = name.substr(0, dot);
  }
  const std::size_t number = program_->names.find_lower_case_key(name);
  const given_setting* const given = number != not_found ? given_->find(number) : nullptr;
  if (given == nullptr) return origin;
  const bool has_element = element < given->elements.size();
  const bool is_array = given->is_list && node->first == array_flags;
  if (!is_array && !(has_element && holds(*node, given->elements[element]))) return origin;
  origin.kind = kind_;
  origin.name.assign(given->name);
  if (has_element) origin.argument = given->elements[element].at.line;
  return origin;
}

void declared_item::unload() {
  tree_.erase();
  given_.reset();
}

declared_item* declared_item::clone() const {
  return generic::abilities::create_dynamic<declared_item>(*this);
}

}  // namespace ORVA_NAMESPACE::config::_private
