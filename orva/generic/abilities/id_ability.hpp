/// `id_ability`: a number that identifies an object.
#pragma once

#include <cstdint>

#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::generic::abilities {

class id_ability {
 public:
  /// The low 32 bits of the object's address. Objects that live at the same time and less than 4 GiB apart
  /// have different ids.
  id_ability() noexcept : id_(static_cast<types::uint32>(reinterpret_cast<std::uintptr_t>(this))) {}
  explicit id_ability(types::uint32 id) noexcept : id_(id) {}
  // A copy has the id of its source.

  types::uint32 id() const noexcept { return id_; }
  /// Sets the id and returns the new one.
  types::uint32 id(const types::uint32& new_id) noexcept { return id_ = new_id; }

 private:
  types::uint32 id_;
};

}  // namespace ORVA_NAMESPACE::generic::abilities
