/// `config_dispatch`: decides which sources a `config_manager` has, in which order, and how they load.
///
/// `std_config_dispatch` is the one for programs, `module_config_dispatch` the one for modules. A program
/// that needs other sources derives from this class:
///
///     class clock_dispatch : public config_dispatch {
///      public:
///       void setup(item_list& items) const override { append(items, clock_item()); }
///       void load(item_list& items) const override { load_each(items); }
///       void unload(item_list& items) const override { unload_each(items); }
///       void save(item_list& items) const override { save_each(items); }
///       clock_dispatch* clone() const override { return new clock_dispatch(*this); }
///     };
///
/// A manager uses a clone, which it shares with its copies.
///
/// Edge cases: docs/edges.md#configuration
#pragma once

#include "orva/config/base_config_item.hpp"
#include "orva/export.hpp"
#include "orva/generic/abilities/clone_ability.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API config_dispatch : public generic::abilities::clone_ability {
 public:
  config_dispatch() noexcept = default;
  config_dispatch(const config_dispatch&) noexcept = default;
  config_dispatch& operator=(const config_dispatch&) noexcept = default;
  ~config_dispatch() override;

  /// Appends the sources; the first has the highest precedence. Loads nothing.
  virtual void setup(item_list& items) const = 0;
  virtual void load(item_list& items) const = 0;
  virtual void unload(item_list& items) const = 0;
  virtual void save(item_list& items) const = 0;
  /// Returns a copy on the heap, which the caller owns.
  virtual config_dispatch* clone() const = 0;

 protected:
  /// Appends a clone of the item. Where memory runs out, the list is unchanged and nothing leaks.
  static void append(item_list& items, const base_config_item& item);
  /// Loads each item in turn, so that later items can read earlier ones. Ignores their results.
  static void load_each(item_list& items);
  static void unload_each(item_list& items);
  /// Calls `save(items)` of each, which writes nothing in the items of the library.
  static void save_each(item_list& items);
};

}  // namespace ORVA_NAMESPACE::config
