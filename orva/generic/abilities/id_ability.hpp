/// A number by which an object is known.
#pragma once

#include <cstdint>

namespace ORVA_2_18::generic::abilities {

class id_ability {
 public:
  /// As wide as an address: fewer bits could give two live objects the same default id.
  using id_type = std::uintptr_t;

  /// The object's own address, so that default ids of live objects differ.
  id_ability() noexcept : id_(reinterpret_cast<id_type>(this)) {}
  explicit id_ability(id_type id) noexcept : id_(id) {}
  // Copies take the id over: a copy is known by the same number as its source.

  id_type id() const noexcept { return id_; }
  /// Sets the id and returns the new one.
  id_type id(const id_type& new_id) noexcept { return id_ = new_id; }

 private:
  id_type id_;
};

}  // namespace ORVA_2_18::generic::abilities
