/// `std_config_dispatch`: the sources of a program.
///
///     int main(int argc, char** argv) {
///       config_manager config;
///       config.init(std_config_dispatch(argc, argv, environ, "app.cfg", ""));
///       config.load();
///
/// It sets up three items, the first with the highest precedence:
///
///     1.  commandline_item   "command line"
///     2.  file_item          "standard file"
///     3.  enviroment_item    "enviroment"
///
/// They load in the same order. Therefore the command line can name the file, by `-cfg_file=name`, and the
/// environment cannot. The arguments and the environment are not copied: they must outlive the manager.
///
/// Speaking sibling: `settings`, and for a manager alone `declared_dispatch`.
///
/// Edge cases: docs/edges.md#configuration
#pragma once

#include "orva/config/config_dispatch.hpp"
#include "orva/export.hpp"
#include "orva/strings/text_argument.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API std_config_dispatch : public config_dispatch {
 public:
  /// A negative `argc` counts as 0. Either array may be null. `file_name` is the name of the `file_item`, and
  /// may be empty. The second name is stored and not used.
  std_config_dispatch(int argc, const char* const* argv, const char* const* envp, strings::ustring8 file_name,
                      strings::ustring8 second_file_name);
  /// The same with names that are views, paths, or text of another width.
  template <typename Name, typename SecondName>
  std_config_dispatch(int argc, const char* const* argv, const char* const* envp, const Name& file_name,
                      const SecondName& second_file_name) requires strings::other_text<Name> ||
      strings::other_text<SecondName>
      : std_config_dispatch(argc, argv, envp, strings::text_argument(file_name).get(),
                            strings::text_argument(second_file_name).get()) {}

  void setup(item_list& items) const override;
  void load(item_list& items) const override;
  void unload(item_list& items) const override;
  void save(item_list& items) const override;
  std_config_dispatch* clone() const override;

 private:
  const char* const* argv_;
  const char* const* envp_;
  int argc_;
  strings::ustring8 file_name_;
  strings::ustring8 second_file_name_;
};

}  // namespace ORVA_NAMESPACE::config
