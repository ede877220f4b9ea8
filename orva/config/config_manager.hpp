/// `config_manager`: how a program reads its settings, whatever source they come from.
///
/// A manager asks its items in turn, and the first that has a key answers: precedence is by key, and trees of
/// different sources are not merged. Which items there are is decided by the dispatch given to `init`.
///
///     config_manager config;
///     config.init(std_config_dispatch(argc, argv, environ, "app.cfg", ""));
///     config.load();
///     config.get_value("window.width", 640).as_int32()
///
/// Copies of a manager share the items and the dispatch, which live as long as the last of them: what is
/// loaded or set through one is seen by all. Many threads may read once loading has ended; `init`, `load` and
/// `unload` must not overlap with reads. No read fails.
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

namespace ORVA_NAMESPACE::config {

class ORVA_API config_manager {
 public:
  /// Without items: every read misses.
  config_manager() = default;
  config_manager(const config_manager& other) = default;
  config_manager& operator=(const config_manager& other) = default;
  virtual ~config_manager();

  /// Takes a clone of the dispatch and the items that it sets up, in place of those before. Loads nothing.
  void init(const config_dispatch& dispatch);

  /// False before `init`. `save` writes no file: `get_config_item("standard file")->save()` does.
  bool load();
  bool unload();
  bool save();

  /// The value of a key in the first item that has it, or the default.
  ///
  ///     of an array                       =>  its first element; nil if it has none
  ///     of a link                         =>  the value of the key that it names, in the first item that has that one
  ///     of a link that leads back         =>  the name in the link where the circle closes
  ///     of a link to what is not there    =>  the default
  ///     of a node without a value         =>  true
  types::variant get_value(std::string_view key, const types::variant& default_value = {}) const;

  /// Whether `get_value` finds anything but nil.
  bool value_exist(std::string_view key) const;

  /// Whether any item has the key as an array, the first that has the key or not.
  bool is_array(std::string_view key) const;

  /// Appends the values of the elements, from the first item that has the key as an array.
  void get_array(std::string_view key, std::vector<types::variant>& out) const;

  /// Appends the children of a key, from the first item that has the key: names relative to the key, and
  /// values. With `recursive` also what is below them.
  void get_key_value_array(std::string_view key,
                           std::vector<std::pair<strings::ustring8, types::variant>>& out,
                           bool recursive) const;

  /// The first item of that id, to share, or a null pointer.
  ///
  ///     "command line", "standard file", "enviroment"     under a std_config_dispatch
  ///     "standard file", "enviroment", "user_item"        under a module_config_dispatch
  memory::pointers::rc_pointer<base_config_item> get_config_item(std::string_view id) const;

  /// Writes all items for people to read.
  void dump(std::ostream& stream) const;

 private:
  struct found_node {
    const base_config_item* item = nullptr;
    const base_config_item::node_type* node = nullptr;
  };

  /// In the first item that has the key.
  found_node find(std::string_view key) const;
  /// The first item that has the key as an array, or null.
  const base_config_item* find_array(std::string_view key) const;

  item_list items_;
  std::shared_ptr<const config_dispatch> dispatch_;
};

/// As `dump`.
ORVA_API std::ostream& operator<<(std::ostream& stream, const config_manager& manager);

}  // namespace ORVA_NAMESPACE::config
