/// The result of a transform: allocated once with the most units that it can have, written once, then cut.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <limits>
#include <span>

#include "orva/internal/text/overwrite.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::internal::transforms {

/// What a writer returns for a text that it cannot read.
inline constexpr std::size_t failed = std::numeric_limits<std::size_t>::max();

/// The result for a text that cannot be read: "-1".
template <strings::code_unit Unit>
strings::basic_ustring<Unit> failure_text() {
  constexpr Unit units[] = {'-', '1'};
  return strings::basic_ustring<Unit>(units, 2);
}

/// A string of what `write(std::span<Unit>)` puts into at most `capacity` units. `write` returns the number
/// of units that it has written, or `failed`, which gives the failure text.
template <strings::code_unit Unit, typename Write>
strings::basic_ustring<Unit> make_text(std::size_t capacity, Write write) {
  constexpr std::size_t short_text = 512;
  if (capacity <= short_text) {
    Unit units[short_text];
    const std::size_t size = write(std::span<Unit>(units, capacity));
    return size == failed ? failure_text<Unit>() : strings::basic_ustring<Unit>(units, size);
  }
  strings::basic_ustring<Unit> output;
  bool good = true;
  text::overwrite(output, capacity, [&](std::span<Unit> units) {
    const std::size_t size = write(units);
    good = size != failed;
    return good ? size : 0;
  });
  if (!good) return failure_text<Unit>();
  const bool wastes_memory = output.size() < capacity - capacity / 4;
  if (wastes_memory) output.shrink_to_fit();
  return output;
}

}  // namespace ORVA_NAMESPACE::internal::transforms
