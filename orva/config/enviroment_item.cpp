#include "orva/config/enviroment_item.hpp"

namespace ORVA_NAMESPACE::config {

enviroment_item::enviroment_item(const char* const* envp) : envp_(envp) { id_ = "enviroment"; }

bool enviroment_item::load() {
  if (envp_ == nullptr) return true;
  for (const char* const* entry = envp_; *entry != nullptr; ++entry) set(*entry, 0);
  return true;
}

void enviroment_item::unload() { tree_.erase(); }

enviroment_item* enviroment_item::clone() const {
  return generic::abilities::create_dynamic<enviroment_item>(*this);
}

}  // namespace ORVA_NAMESPACE::config
