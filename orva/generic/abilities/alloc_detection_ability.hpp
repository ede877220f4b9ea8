/// Whether an object was made with `new` and may be deleted by its last counted pointer.
#pragma once

#include <utility>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::generic::abilities {

class alloc_detection_ability {
 public:
  alloc_detection_ability() noexcept = default;
  /// A copy is an object of its own: where the source stands says nothing about where the copy does.
  alloc_detection_ability(const alloc_detection_ability&) noexcept {}
  /// Takes the flag over from the source. Assign only between objects that were made in the same way.
  alloc_detection_ability& operator=(const alloc_detection_ability&) noexcept = default;

  bool is_created_dynamic() const noexcept { return created_dynamic_; }

 protected:
  ~alloc_detection_ability() = default;

 private:
  template <typename T, typename... Args>
  friend T* create_dynamic(Args&&... args);

  bool created_dynamic_ = false;
};

/// Makes a T on the heap, marked so that the last counted pointer to it deletes it. The count is still 0:
/// hand the result to a counted pointer. This is the only way to set the mark, and what every `clone` and
/// `create` of a counted class returns.
template <typename T, typename... Args>
T* create_dynamic(Args&&... args) {
  T* object = new T(std::forward<Args>(args)...);
  static_cast<alloc_detection_ability*>(object)->created_dynamic_ = true;
  return object;
}

}  // namespace ORVA_NAMESPACE::generic::abilities
