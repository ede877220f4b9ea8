#include "orva/config/std_config_dispatch.hpp"

#include <utility>

#include "orva/config/commandline_item.hpp"
#include "orva/config/enviroment_item.hpp"
#include "orva/config/file_item.hpp"

namespace ORVA_NAMESPACE::config {

std_config_dispatch::std_config_dispatch(int argc, const char* const* argv, const char* const* envp,
                                         strings::ustring8 file_name, strings::ustring8 second_file_name)
    : argv_(argv),
      envp_(envp),
      argc_(argc),
      file_name_(std::move(file_name)),
      second_file_name_(std::move(second_file_name)) {}

void std_config_dispatch::setup(item_list& items) const {
  append(items, commandline_item(argc_ > 0 ? static_cast<unsigned int>(argc_) : 0, argv_));
  append(items, file_item(file_name_));
  append(items, enviroment_item(envp_));
}

void std_config_dispatch::load(item_list& items) const { load_each(items); }

void std_config_dispatch::unload(item_list& items) const { unload_each(items); }

void std_config_dispatch::save(item_list& items) const { save_each(items); }

std_config_dispatch* std_config_dispatch::clone() const { return new std_config_dispatch(*this); }

}  // namespace ORVA_NAMESPACE::config
