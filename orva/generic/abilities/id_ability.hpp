/// A number by which an object is known.
#pragma once

#include <cstdint>

#include "orva/types/integers.hpp"

namespace ORVA_2_18::generic::abilities {

class id_ability {
 public:
  /// The object's own address, its low 32 bits: default ids of live objects differ.
  id_ability() noexcept : id_(static_cast<types::uint32>(reinterpret_cast<std::uintptr_t>(this))) {}
  explicit id_ability(types::uint32 id) noexcept : id_(id) {}
  // Copies take the id over: a copy is known by the same number as its source.

  types::uint32 id() const noexcept { return id_; }
  /// Sets the id and returns the new one.
  types::uint32 id(const types::uint32& new_id) noexcept { return id_ = new_id; }

 private:
  types::uint32 id_;
};

}  // namespace ORVA_2_18::generic::abilities
