// A program for config_process_test: loads its own command line and environment, and prints an item.
//
//     config_probe -probe=<id of the item> ...
#include <unistd.h>

#include <iostream>

#include "orva/config/config_manager.hpp"
#include "orva/config/std_config_dispatch.hpp"

int main(int argc, char** argv) {
  using namespace ORVA_NAMESPACE::config;
  config_manager config;
  config.init(std_config_dispatch(argc, argv, environ, "", ""));
  config.load();
  const auto item = config.get_config_item(config.get_value("probe").as_string());
  if (!item) return 1;
  std::cout << *item;
}
