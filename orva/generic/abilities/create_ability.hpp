/// `create_ability`: a base of classes that have `create() const`, which returns a new default object of the
/// same dynamic type.
#pragma once

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::generic::abilities {

class ORVA_API create_ability {
 public:
  create_ability() noexcept = default;
  create_ability(const create_ability&) noexcept {}
  create_ability& operator=(const create_ability&) noexcept { return *this; }
  virtual ~create_ability();
};

}  // namespace ORVA_NAMESPACE::generic::abilities
