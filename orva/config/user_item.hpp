/// `user_item`: the values that a program sets itself, by `set` and `set_array`.
///
/// Loading and unloading leave them alone.
#pragma once

#include "orva/config/base_config_item.hpp"
#include "orva/export.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API user_item : public base_config_item {
 public:
  /// The id is "user item".
  user_item();
  /// The id of a copy is "user_item", and so is that of every item in a manager's list: programs find it
  /// under this name.
  user_item(const user_item& other);
  /// Takes over values and id.
  user_item& operator=(const user_item& other) = default;

  user_item* clone() const override;
};

}  // namespace ORVA_NAMESPACE::config
