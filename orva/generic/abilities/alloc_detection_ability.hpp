/// `alloc_detection_ability`: marks objects that their last counted pointer may delete.
///
///     auto* item = generic::abilities::create_dynamic<config::user_item>();
///     item->is_created_dynamic()    =>  true; an object made otherwise returns false
///
/// Edge cases: docs/edges.md#core
#pragma once

#include <utility>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::generic::abilities {

class alloc_detection_ability {
 public:
  alloc_detection_ability() noexcept = default;
  /// A copy is not marked: the source may be on the heap while the copy is not.
  alloc_detection_ability(const alloc_detection_ability&) noexcept {}
  /// Copies the mark. Assign only between objects that were made in the same way.
  alloc_detection_ability& operator=(const alloc_detection_ability&) noexcept = default;

  bool is_created_dynamic() const noexcept { return created_dynamic_; }

 protected:
  ~alloc_detection_ability() = default;

 private:
  template <typename T, typename... Args>
  friend T* create_dynamic(Args&&... args);

  bool created_dynamic_ = false;
};

/// Makes a T on the heap, marked so that the last counted pointer to it deletes it. The count is 0: give the
/// result to a counted pointer, since nothing else deletes it. Every `clone` and `create` of a counted class
/// must return an object made by this function; nothing else sets the mark.
template <typename T, typename... Args>
[[nodiscard]] T* create_dynamic(Args&&... args) {
  T* object = new T(std::forward<Args>(args)...);
  static_cast<alloc_detection_ability*>(object)->created_dynamic_ = true;
  return object;
}

}  // namespace ORVA_NAMESPACE::generic::abilities
