#include "orva/config/config_dispatch.hpp"

namespace ORVA_NAMESPACE::config {

config_dispatch::~config_dispatch() = default;

void config_dispatch::append(item_list& items, const base_config_item& item) {
  // The copy has an owner before the list allocates a place for it.
  const memory::pointers::rc_pointer<base_config_item> copy(item.clone());
  items.push_back(copy);
}

void config_dispatch::load_each(item_list& items) {
  for (const auto& item : items) item->load(items);
}

void config_dispatch::unload_each(item_list& items) {
  for (const auto& item : items) item->unload();
}

void config_dispatch::save_each(item_list& items) {
  for (const auto& item : items) item->save(items);
}

}  // namespace ORVA_NAMESPACE::config
