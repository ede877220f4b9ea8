/// A counted pointer for classes without virtual functions; like `rc_pointer`, with a checked dereference for
/// places where an entry may be empty.
#pragma once

#include "orva/memory/internal/counted_pointer.hpp"

namespace ORVA_NAMESPACE::memory::pointers {

template <typename T>
class shared_pointer : public _private::counted_pointer<T> {
 public:
  shared_pointer() noexcept = default;
  shared_pointer(T* target) noexcept : _private::counted_pointer<T>(target) {}
  shared_pointer(T* target, just_made_t) noexcept : _private::counted_pointer<T>(target, just_made) {}
  /// Nothing happens if `target` is held already.
  shared_pointer& operator=(T* target) noexcept {
    _private::counted_pointer<T>::operator=(target);
    return *this;
  }

  /// The target. An empty pointer throws the bare text "unreferanced object", a `const char*`: no handler for
  /// the library's exceptions catches it, since it tells of a broken program and not of bad input.
  T& checked() const {
    if (this->get() == nullptr) throw static_cast<const char*>("unreferanced object");
    return *this->get();
  }
};

}  // namespace ORVA_NAMESPACE::memory::pointers
