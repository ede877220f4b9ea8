/// `user_item`: the values that a program sets itself, by `set` and `set_array`.
///
///     user_item defaults;
///     defaults.set("window.width", 640, 0);
///
/// Loading and unloading do not change them.
///
/// Edge cases: docs/edges.md#configuration
#pragma once

#include "orva/config/base_config_item.hpp"
#include "orva/export.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API user_item : public base_config_item {
 public:
  /// The id is "user item".
  user_item();
  /// The id of a copy is "user_item". A manager holds a copy: `get_config_item("user_item")` finds it.
  user_item(const user_item& other);
  /// Copies values and id.
  user_item& operator=(const user_item& other) = default;

  user_item* clone() const override;
};

}  // namespace ORVA_NAMESPACE::config
