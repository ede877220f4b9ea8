#include "orva/config/linked_file_item.hpp"

#include <typeinfo>
#include <utility>

namespace ORVA_NAMESPACE::config {

linked_file_item::linked_file_item(strings::ustring8 filename) : file_item(std::move(filename)) {
  follows_links_ = true;
}

linked_file_item::linked_file_item(const file_item& item) : file_item(item) { follows_links_ = true; }

linked_file_item* linked_file_item::clone() const {
  return generic::abilities::create_dynamic<linked_file_item>(*this);
}

link_following_dispatch::link_following_dispatch(const config_dispatch& dispatch)
    : dispatch_(dispatch.clone()) {}

void link_following_dispatch::setup(item_list& items) const {
  item_list others;
  dispatch_->setup(others);
  for (auto& item : others) {
    // A class derived from it reads its file in its own way.
    const base_config_item& other = *item;
    if (typeid(other) == typeid(file_item))
      item = item_list::value_type(linked_file_item(static_cast<const file_item&>(other)).clone());
  }
  items.splice(items.end(), others);
}

void link_following_dispatch::load(item_list& items) const { dispatch_->load(items); }
void link_following_dispatch::unload(item_list& items) const { dispatch_->unload(items); }
void link_following_dispatch::save(item_list& items) const { dispatch_->save(items); }

link_following_dispatch* link_following_dispatch::clone() const { return new link_following_dispatch(*this); }

}  // namespace ORVA_NAMESPACE::config
