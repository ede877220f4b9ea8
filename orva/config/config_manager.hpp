/// `config_manager`: reads the settings of a program, whichever source they come from.
///
///     config_manager config;
///     config.init(std_config_dispatch(argc, argv, environ, "app.cfg", ""));
///     config.load();
///     config.get_value("window.width", 640).as_int32()
///
/// A manager asks its items in turn, and the first that has the key answers. Precedence is by key: the trees
/// of different sources are not merged. The dispatch that `init` gets decides which items there are.
///
/// Copies of a manager share the items and the dispatch: a value that is loaded or set through one is seen by
/// all. Any number of threads may read after loading; `init`, `load` and `unload` must not run at the same
/// time as reads. No read fails.
///
/// Edge cases: docs/edges.md#configuration
#pragma once

#include <iosfwd>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/config/base_config_item.hpp"
#include "orva/config/config_dispatch.hpp"
#include "orva/export.hpp"
#include "orva/memory/pointers/rc_pointer.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::diagnostics {
class report;
enum class severity;
}  // namespace ORVA_NAMESPACE::diagnostics

namespace ORVA_NAMESPACE::config {

class ORVA_API config_manager {
 public:
  /// Without items: no key is found.
  config_manager() = default;
  config_manager(const config_manager& other) = default;
  config_manager& operator=(const config_manager& other) = default;
  virtual ~config_manager();

  /// Replaces dispatch and items by a clone of the dispatch and the items that it sets up. Loads nothing. An
  /// exception leaves the manager unchanged.
  void init(const config_dispatch& dispatch);

  /// False before `init`. `save` writes no file: `get_config_item("standard file")->save()` does.
  bool load();
  bool unload();
  bool save();

  /// The value of a key in the first item that has it, or the default.
  ///
  ///     an array                   =>  its first element, or nil if it has none
  ///     a link                     =>  the value of the key that it names, from the first item with that key
  ///     links in a circle          =>  the name in the link that closes the circle
  ///     a link to a missing key    =>  the default
  ///     a node without a value     =>  true
  ///
  /// `explain` says where the value comes from, and what it hides.
  types::variant get_value(std::string_view key, const types::variant& default_value = {}) const;

  /// Whether `get_value` finds anything but nil.
  bool value_exist(std::string_view key) const;

  /// Whether any item has the key as an array, even if an earlier item has it as a plain value.
  bool is_array(std::string_view key) const;

  /// Appends the values of the elements, from the first item that has the key as an array.
  void get_array(std::string_view key, std::vector<types::variant>& out) const;

  /// Appends names and values of the children of a key, from the first item that has the key. Names are
  /// relative to the key. With `recursive` the nodes below the children are included.
  void get_key_value_array(std::string_view key,
                           std::vector<std::pair<strings::ustring8, types::variant>>& out,
                           bool recursive) const;

  /// The first item with that id, shared with the manager, or a null pointer.
  ///
  ///     "command line", "standard file", "enviroment"     under a std_config_dispatch
  ///     "standard file", "enviroment", "user_item"        under a module_config_dispatch
  memory::pointers::rc_pointer<base_config_item> get_config_item(std::string_view id) const;

  /// Writes all items in a form for people.
  void dump(std::ostream& stream) const;

 private:
  // These look at the items.
  friend class explainer;
  friend class watch;
  friend ORVA_API void check_files(const config_manager& manager, diagnostics::report& findings,
                                   diagnostics::severity level);

  struct found_node {
    const base_config_item* item = nullptr;
    const base_config_item::node_type* node = nullptr;
  };

  /// The node in the first item that has the key.
  found_node find(std::string_view key) const;
  /// The first item that has the key as an array, or null.
  const base_config_item* find_array(std::string_view key) const;

  item_list items_;
  std::shared_ptr<const config_dispatch> dispatch_;
};

/// As `dump`.
ORVA_API std::ostream& operator<<(std::ostream& stream, const config_manager& manager);

}  // namespace ORVA_NAMESPACE::config
