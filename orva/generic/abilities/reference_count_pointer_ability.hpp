/// `reference_count_pointer_ability`: the count of an object owned by `rc_pointer` or `shared_pointer`.
///
///     class document : public generic::abilities::reference_count_pointer_ability<document> { ... };
///     memory::pointers::shared_pointer<document> open = generic::abilities::create_dynamic<document>();
///
/// The count is in the object, so that a counted pointer is one word and can be made from a raw pointer at
/// any time. Counting is atomic: several threads may hold pointers to the same object. The count that is read
/// may already be out of date when other threads hold pointers too.
///
/// Edge cases: docs/edges.md#core
#pragma once

#include <atomic>

#include "orva/generic/abilities/alloc_detection_ability.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::memory::pointers::_private {
template <typename T>
class counted_pointer;
}

namespace ORVA_NAMESPACE::generic::abilities {

/// The count itself, without the type of the object.
class reference_count_pointer_ability_b : public alloc_detection_ability {
 public:
  reference_count_pointer_ability_b() noexcept = default;
  /// The count of a copy starts at 0, since no pointer points to it yet.
  reference_count_pointer_ability_b(const reference_count_pointer_ability_b& other) noexcept
      : alloc_detection_ability(other) {}
  /// Copies the count and the mark too. Assign only between objects that no pointer points to.
  reference_count_pointer_ability_b& operator=(const reference_count_pointer_ability_b& other) noexcept {
    alloc_detection_ability::operator=(other);
    ref_count_.store(other.get_ref_count());
    return *this;
  }

 protected:
  ~reference_count_pointer_ability_b() = default;

  void inc_pointer_ref() noexcept { ref_count_.fetch_add(1); }
  /// Returns the new count.
  int dec_pointer_ref() noexcept { return static_cast<int>(ref_count_.fetch_sub(1) - 1); }
  /// The increment for the first pointer to a new object. REQUIRES: no other thread knows the object.
  void first_pointer_ref() noexcept { ref_count_.store(1, std::memory_order_relaxed); }
  /// The same as `dec_pointer_ref`, without an atomic decrement where the caller's pointer is the only one of
  /// an object that is deleted with it: no other thread can count such an object, and everything that others
  /// did before they released theirs has happened.
  int release_pointer_ref() noexcept {
    const bool is_last = is_created_dynamic() && ref_count_.load(std::memory_order_acquire) == 1;
    if (!is_last) return dec_pointer_ref();
    ref_count_.store(0, std::memory_order_relaxed);
    return 0;
  }

  bool is_pointer_referenced() const noexcept { return get_ref_count() > 0; }
  types::uint32 get_ref_count() const noexcept { return ref_count_.load(std::memory_order_relaxed); }

 private:
  template <typename T>
  friend class memory::pointers::_private::counted_pointer;

  std::atomic<types::uint32> ref_count_{0};
};

template <typename T>
class reference_count_pointer_ability : public reference_count_pointer_ability_b {
 protected:
  reference_count_pointer_ability() noexcept = default;
  reference_count_pointer_ability(const reference_count_pointer_ability&) noexcept = default;
  reference_count_pointer_ability& operator=(const reference_count_pointer_ability&) noexcept = default;
  ~reference_count_pointer_ability() = default;
};

}  // namespace ORVA_NAMESPACE::generic::abilities
