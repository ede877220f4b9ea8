/// The count that lets an object be owned by `memory::pointers::rc_pointer` and `shared_pointer`.
///
/// The count sits in the object, so that a counted pointer is one word and can be made again from the raw
/// pointer at any time. A class X that is to be counted derives from `reference_count_pointer_ability<X>`.
///
/// Counting is atomic: pointers to one object may live on several threads. Reading the count is a plain look
/// that may be outdated at once when others hold pointers too.
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
  /// Nobody points at the copy yet: it starts at 0, whatever the source had.
  reference_count_pointer_ability_b(const reference_count_pointer_ability_b& other) noexcept
      : alloc_detection_ability(other) {}
  /// Member by member, count and mark included: callers that assign whole counted objects rely on it.
  reference_count_pointer_ability_b& operator=(const reference_count_pointer_ability_b& other) noexcept {
    alloc_detection_ability::operator=(other);
    ref_count_.store(other.get_ref_count());
    return *this;
  }

 protected:
  ~reference_count_pointer_ability_b() = default;

  void inc_pointer_ref() noexcept { ref_count_.fetch_add(1); }
  /// The new count.
  int dec_pointer_ref() noexcept { return static_cast<int>(ref_count_.fetch_sub(1) - 1); }
  /// The increment of an object that was just made. REQUIRES: no other thread has heard of it.
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
