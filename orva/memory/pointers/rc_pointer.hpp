/// A counted pointer for the polymorphic classes of the library.
///
/// One word; copying it costs one atomic increment. The object counts its pointers, and the last one to let
/// go deletes it if it was made by `generic::abilities::create_dynamic`; an object that lives anywhere else
/// is left where it is. Several threads may hold pointers to one object; one pointer object belongs to one
/// thread.
#pragma once

#include "orva/memory/internal/counted_pointer.hpp"

namespace ORVA_NAMESPACE::memory::pointers {

template <typename T>
class rc_pointer : public _private::counted_pointer<T> {
 public:
  rc_pointer() noexcept = default;
  rc_pointer(T* target) noexcept : _private::counted_pointer<T>(target) {}
  rc_pointer(T* target, just_made_t) noexcept : _private::counted_pointer<T>(target, just_made) {}
  /// Nothing happens if `target` is held already.
  rc_pointer& operator=(T* target) noexcept {
    _private::counted_pointer<T>::operator=(target);
    return *this;
  }
};

}  // namespace ORVA_NAMESPACE::memory::pointers
