/// `clone_ability` with the operation itself: what code sees that can copy an object and knows no more of it.
#pragma once

#include "orva/export.hpp"
#include "orva/generic/abilities/clone_ability.hpp"

namespace ORVA_NAMESPACE::generic {

class ORVA_API clone_interface : public abilities::clone_ability {
 public:
  clone_interface() noexcept = default;
  clone_interface(const clone_interface&) noexcept = default;
  clone_interface& operator=(const clone_interface&) noexcept = default;
  ~clone_interface() override;
  /// A heap copy of the object, of its dynamic type; the caller owns it.
  virtual clone_interface* clone() const = 0;
};

}  // namespace ORVA_NAMESPACE::generic
