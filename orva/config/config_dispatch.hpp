/// `config_dispatch`: the strategy that decides which sources a `config_manager` has, in which order, and how
/// they load.
///
/// `std_config_dispatch` is the one for programs and `module_config_dispatch` the one for modules. Others
/// derive from this class, and find the usual way to load, unload and save among its protected members. A
/// manager works on a clone, which it shares with its copies.
#pragma once

#include "orva/config/base_config_item.hpp"
#include "orva/export.hpp"
#include "orva/generic/abilities/clone_ability.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API config_dispatch : public generic::abilities::clone_ability {
 public:
  ~config_dispatch() override;

  /// Appends the sources; the first has the highest precedence. Nothing is loaded yet.
  virtual void setup(item_list& items) const = 0;
  virtual void load(item_list& items) const = 0;
  virtual void unload(item_list& items) const = 0;
  virtual void save(item_list& items) const = 0;
  /// A copy on the heap, which is the caller's.
  virtual config_dispatch* clone() const = 0;

 protected:
  /// Loads each item in turn, so that a later one can ask those before it. What they return is not looked at.
  static void load_each(item_list& items);
  static void unload_each(item_list& items);
  /// Calls `save(items)` of each, which writes nothing in the items of the library.
  static void save_each(item_list& items);
};

}  // namespace ORVA_NAMESPACE::config
