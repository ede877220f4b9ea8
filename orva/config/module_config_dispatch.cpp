#include "orva/config/module_config_dispatch.hpp"

#include "orva/config/enviroment_item.hpp"
#include "orva/config/file_item.hpp"
#include "orva/config/user_item.hpp"

namespace ORVA_NAMESPACE::config {

module_config_dispatch::module_config_dispatch(const generic::varg_list& files, const char* const* envp)
    : envp_(envp) {
  file_names_.reserve(files.size());
  for (const generic::argument& file : files) file_names_.push_back(file.value().as_string());
}

void module_config_dispatch::setup(item_list& items) const {
  for (const std::string& name : file_names_) append(items, file_item(name));
  append(items, enviroment_item(envp_));
  append(items, user_item());
}

void module_config_dispatch::load(item_list& items) const { load_each(items); }

void module_config_dispatch::unload(item_list& items) const { unload_each(items); }

void module_config_dispatch::save(item_list& items) const { save_each(items); }

module_config_dispatch* module_config_dispatch::clone() const { return new module_config_dispatch(*this); }

}  // namespace ORVA_NAMESPACE::config
