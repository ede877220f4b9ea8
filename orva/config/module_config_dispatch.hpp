/// `module_config_dispatch`: the sources of a module that is loaded into a program.
///
///     1.  a file_item for each file   "standard file"
///     2.  enviroment_item             "enviroment"
///     3.  user_item                   "user_item"       what the module sets itself, its defaults for instance
///
/// This order is the precedence, and the order of loading. The environment is the caller's, and must live as
/// long as the manager.
#pragma once

#include <string>
#include <vector>

#include "orva/config/config_dispatch.hpp"
#include "orva/export.hpp"
#include "orva/generic/varg_list.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API module_config_dispatch : public config_dispatch {
 public:
  /// The values of `files` are the names, the first before all others; names of arguments mean nothing.
  /// `envp` may be null.
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
