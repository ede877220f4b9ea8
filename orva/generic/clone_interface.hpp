/// `clone_interface`: `clone_ability` with a virtual `clone`, for code that copies objects of unknown
/// classes.
///
///     std::unique_ptr<generic::clone_interface> copy(object.clone());
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
  /// Returns a copy of the object, of its dynamic type, on the heap. The caller owns it.
  [[nodiscard]] virtual clone_interface* clone() const = 0;
};

}  // namespace ORVA_NAMESPACE::generic
