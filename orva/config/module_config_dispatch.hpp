/// `module_config_dispatch`: the sources of a module that is loaded into a program.
///
///     config_manager config;
///     config.init(module_config_dispatch(varg_list(argument("user.cfg"), argument("module.cfg")), environ));
///     config.get_config_item("user_item")->set("module.size", 5, 0);   // a default
///     config.load();
///
/// It sets up these items, the first with the highest precedence:
///
///     1.  a file_item for each file   "standard file"
///     2.  enviroment_item             "enviroment"
///     3.  user_item                   "user_item"       values that the module sets itself, such as defaults
///
/// They load in the same order. The environment is not copied: it must outlive the manager.
///
/// Edge cases: docs/edges.md#configuration
#pragma once

#include <string>
#include <vector>

#include "orva/config/config_dispatch.hpp"
#include "orva/export.hpp"
#include "orva/generic/varg_list.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API module_config_dispatch : public config_dispatch {
 public:
  /// The values of `files` are the names of the files; names of arguments are ignored. `envp` may be null.
  module_config_dispatch(const generic::varg_list& files, const char* const* envp);

  void setup(item_list& items) const override;
  void load(item_list& items) const override;
  void unload(item_list& items) const override;
  void save(item_list& items) const override;
  module_config_dispatch* clone() const override;

 private:
  const char* const* envp_;
  std::vector<std::string> file_names_;
};

}  // namespace ORVA_NAMESPACE::config
