/// `shared_pointer`: a counted pointer for classes without virtual functions.
///
/// The same as `rc_pointer`, with a checked dereference for pointers that may be empty:
///
///     shared_pointer<record> found = records.find(name);
///     found.checked().use();    // throws if `found` is empty
///
/// Edge cases: docs/edges.md#core
#pragma once

#include "orva/memory/internal/counted_pointer.hpp"

namespace ORVA_NAMESPACE::memory::pointers {

template <typename T>
class shared_pointer : public _private::counted_pointer<T> {
 public:
  shared_pointer() noexcept = default;
  shared_pointer(T* target) noexcept : _private::counted_pointer<T>(target) {}
  /// For the library: the first pointer to a new object.
  shared_pointer(T* target, _private::just_made_t first) noexcept
      : _private::counted_pointer<T>(target, first) {}
  /// Does nothing if the pointer already points to `target`.
  shared_pointer& operator=(T* target) noexcept {
    _private::counted_pointer<T>::operator=(target);
    return *this;
  }

  /// The target. An empty pointer throws the text "unreferanced object" as a `const char*`, which no handler
  /// of the library's exceptions catches: the error is in the program, not in its input.
  T& checked() const {
    if (this->get() == nullptr) throw static_cast<const char*>("unreferanced object");
    return *this->get();
  }
};

}  // namespace ORVA_NAMESPACE::memory::pointers
