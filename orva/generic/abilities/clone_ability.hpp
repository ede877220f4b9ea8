/// `clone_ability`: a base of classes that have `clone() const`, which returns a copy on the heap.
///
/// Each hierarchy declares `clone` itself, with its own result type. `generic::clone_interface` declares it
/// for code that copies objects of unknown classes.
#pragma once

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::generic::abilities {

ORVA_BEGIN_INLINE_VTABLE

class ORVA_API clone_ability {
 public:
  clone_ability() noexcept = default;
  clone_ability(const clone_ability&) noexcept {}
  clone_ability& operator=(const clone_ability&) noexcept { return *this; }
  // Inline for speed: it runs for the payload of every value.
  virtual ~clone_ability() = default;
};

ORVA_END_INLINE_VTABLE

}  // namespace ORVA_NAMESPACE::generic::abilities
