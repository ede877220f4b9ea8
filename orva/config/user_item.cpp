#include "orva/config/user_item.hpp"

namespace ORVA_NAMESPACE::config {

user_item::user_item() { id_ = "user item"; }

user_item::user_item(const user_item& other) : base_config_item(other) { id_ = "user_item"; }

user_item* user_item::clone() const { return generic::abilities::create_dynamic<user_item>(*this); }

}  // namespace ORVA_NAMESPACE::config
