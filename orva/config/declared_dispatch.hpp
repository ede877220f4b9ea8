/// `declared_dispatch`: the sources of a program whose settings are declared, for a `config_manager`.
///
///     config_manager config;
///     config.init(declared_dispatch(viewer, argc, argv, environ));
///     config.load();
///     config.get_value("threads").as_int32()
///
/// It sets up these items, the first with the highest precedence:
///
///     1.  the command line    "command line"     the values of declared options and positional arguments
///     2.  a file_item         "standard file"    the file that "cfg_file" names, if that is declared
///     3.  file_items          "standard file"    the files of the options
///     4.  the environment     "enviroment"       the declared variables
///     5.  the defaults        "user_item"
///
/// They load in the order 1, 4, 5, 2, 3, so that the command line, the environment and the default can name
/// the file, in this order; of these, the first that can be opened is read.
///
/// Each item has the text that its source has, also where it is wrong: "10 MiB", "yes". Flags are "true" and
/// "false" if the command line gives no other text, lists are arrays. A file has all its keys. What was given
/// for a deprecated setting is stored for its successor, too, in the same item. `config::settings` has
/// checked values and findings; a program that uses this class alone sees neither.
///
/// `explain` has the number of each argument, the name of each variable, and the places in the files.
///
/// The arguments and the environment are not copied: they must outlive the manager. The declaration is
/// copied.
#pragma once

#include <memory>

#include "orva/config/config_dispatch.hpp"
#include "orva/config/declaration.hpp"
#include "orva/config/settings_options.hpp"
#include "orva/export.hpp"

namespace ORVA_NAMESPACE::config {

namespace _private {
struct declared_program;
struct load_result;
}  // namespace _private

class ORVA_API declared_dispatch : public config_dispatch {
 public:
  /// A negative `argc` counts as 0. Either array may be null. Throws `exceptions::invalid_argument_value` for
  /// a wrong declaration.
  declared_dispatch(declaration declared, int argc, const char* const* argv,
                    const char* const* envp = nullptr, settings_options options = {});
  declared_dispatch(const declared_dispatch& other);
  declared_dispatch& operator=(const declared_dispatch& other);
  ~declared_dispatch() override;

  void setup(item_list& items) const override;
  /// REQUIRES: the items are those that `setup` made; others may follow them.
  void load(item_list& items) const override;
  void unload(item_list& items) const override;
  void save(item_list& items) const override;
  declared_dispatch* clone() const override;

 private:
  friend class settings;

  std::shared_ptr<const _private::declared_program> program_;
  std::shared_ptr<_private::load_result> result_;
  int argc_;
  const char* const* argv_;
  const char* const* envp_;
  settings_options options_;
};

}  // namespace ORVA_NAMESPACE::config
