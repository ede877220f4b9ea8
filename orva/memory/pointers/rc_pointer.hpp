/// `rc_pointer`: a counted pointer for polymorphic classes.
///
///     using item_pointer = memory::pointers::rc_pointer<config::base_config_item>;
///     item_pointer first = generic::abilities::create_dynamic<config::user_item>();
///     item_pointer second = first;    // two pointers, one object
///     first = nullptr;                // the object lives
///     second = nullptr;               // the object is deleted
///
/// A pointer is one word; a copy costs one atomic increment. The count is in the object. The last pointer
/// deletes an object that was made by `generic::abilities::create_dynamic`; it never deletes an object that
/// was made otherwise. Threads may each hold pointers to the same object; one pointer object may be used by
/// one thread at a time.
///
/// Edge cases: docs/edges.md#core
#pragma once

#include "orva/memory/internal/counted_pointer.hpp"

namespace ORVA_NAMESPACE::memory::pointers {

template <typename T>
class rc_pointer : public _private::counted_pointer<T> {
 public:
  rc_pointer() noexcept = default;
  rc_pointer(T* target) noexcept : _private::counted_pointer<T>(target) {}
  /// For the library: the first pointer to a new object.
  rc_pointer(T* target, _private::just_made_t first) noexcept : _private::counted_pointer<T>(target, first) {}
  /// Does nothing if the pointer already points to `target`.
  rc_pointer& operator=(T* target) noexcept {
    _private::counted_pointer<T>::operator=(target);
    return *this;
  }
};

}  // namespace ORVA_NAMESPACE::memory::pointers
