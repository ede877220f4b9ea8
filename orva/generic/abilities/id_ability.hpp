/// A number by which an object is known.
#pragma once

#include <cstdint>

#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::generic::abilities {

class id_ability {
 public:
  /// The object's own address, so that default ids of live objects differ. Where an address is wider than an
  /// id its low 32 bits are taken: objects less than 4 GiB apart, and so all of one heap arena or stack,
  /// still differ.
  id_ability() noexcept : id_(static_cast<types::uint32>(reinterpret_cast<std::uintptr_t>(this))) {}
  explicit id_ability(types::uint32 id) noexcept : id_(id) {}
  // Copies take the id over: a copy is known by the same number as its source.

  types::uint32 id() const noexcept { return id_; }
  /// Sets the id and returns the new one.
  types::uint32 id(const types::uint32& new_id) noexcept { return id_ = new_id; }

 private:
  types::uint32 id_;
};

}  // namespace ORVA_NAMESPACE::generic::abilities
