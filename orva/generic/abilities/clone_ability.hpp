/// Marks a class that has `clone() const`: a heap copy of the object, of its dynamic type.
///
/// Each hierarchy declares `clone` itself, with its own result type; `generic::clone_interface` is the form
/// for code that knows nothing more of a class.
#pragma once

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::generic::abilities {

ORVA_BEGIN_INLINE_VTABLE

class ORVA_API clone_ability {
 public:
  clone_ability() noexcept = default;
  clone_ability(const clone_ability&) noexcept {}
  clone_ability& operator=(const clone_ability&) noexcept { return *this; }
  // Inline, as the payload of every value ends here.
  virtual ~clone_ability() = default;
};

ORVA_END_INLINE_VTABLE

}  // namespace ORVA_NAMESPACE::generic::abilities
