/// `counted_pointer`: the common base of `rc_pointer` and `shared_pointer`.
///
/// Internal: installed, since their templates need it, but included by them only.
#pragma once

#include <utility>

#include "orva/generic/abilities/reference_count_pointer_ability.hpp"

namespace ORVA_NAMESPACE::memory::pointers::_private {

/// Selects the constructor for the first pointer to a new object, which needs no atomic increment.
/// REQUIRES: the object exists, and no other thread knows it.
struct just_made_t {};
inline constexpr just_made_t just_made;

template <typename T>
class counted_pointer {
 public:
  T* get() const noexcept { return target_; }
  /// REQUIRES: the pointer is not empty.
  T* operator->() const noexcept { return target_; }
  /// REQUIRES: the pointer is not empty.
  T& operator*() const noexcept { return *target_; }
  explicit operator bool() const noexcept { return target_ != nullptr; }
  /// Same target; two empty pointers are equal.
  bool operator==(const counted_pointer& other) const noexcept { return target_ == other.target_; }
  bool operator==(const T* target) const noexcept { return target_ == target; }

 protected:
  counted_pointer() noexcept = default;
  explicit counted_pointer(T* target) noexcept : target_(target) { acquire(target_); }
  counted_pointer(T* target, just_made_t) noexcept : target_(target) {
    static_cast<ability*>(target)->first_pointer_ref();
  }
  counted_pointer(const counted_pointer& other) noexcept : counted_pointer(other.target_) {}
  counted_pointer(counted_pointer&& other) noexcept : target_(std::exchange(other.target_, nullptr)) {}
  ~counted_pointer() { release(std::exchange(target_, nullptr)); }

  counted_pointer& operator=(const counted_pointer& other) noexcept {
    if (this != &other) replace(other.target_);
    return *this;
  }
  counted_pointer& operator=(counted_pointer&& other) noexcept {
    if (this != &other) release(std::exchange(target_, std::exchange(other.target_, nullptr)));
    return *this;
  }
  counted_pointer& operator=(T* target) noexcept {
    if (target != target_) replace(target);
    return *this;
  }

 private:
  static void acquire(T* target) noexcept {
    if (target != nullptr) static_cast<ability*>(target)->inc_pointer_ref();
  }

  static void release(T* target) noexcept {
    if (target == nullptr || static_cast<ability*>(target)->release_pointer_ref() != 0) return;
    if (target->is_created_dynamic()) destroy(target);
  }

  /// Not inlined: a compiler that sees an automatic object and this `delete` together warns, although the
  /// caller's condition is false for such an object.
  [[gnu::noinline]] static void destroy(T* target) noexcept { delete target; }

  /// Acquires the new target before the old one is released: the old one may be its only owner.
  void replace(T* target) noexcept {
    acquire(target);
    release(std::exchange(target_, target));
  }

  using ability = generic::abilities::reference_count_pointer_ability_b;

  T* target_ = nullptr;
};

}  // namespace ORVA_NAMESPACE::memory::pointers::_private
