/// The result of a transform, made from the most units that it can have: allocated once, written once, cut.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <limits>
#include <span>

#include "orva/internal/text/overwrite.hpp"
#include "orva/internal/transforms/failure_text.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::strings::_private {

/// What a writer returns for a text that it cannot read.
inline constexpr std::size_t failed = std::numeric_limits<std::size_t>::max();

/// A string of what `write(std::span<Unit>)` puts into at most `most` units; it returns how many, or
/// `failed`, which gives the failure text.
template <typename Unit, typename Write>
basic_ustring<Unit> written(std::size_t most, Write write) {
  constexpr std::size_t short_text = 512;
  if (most <= short_text) {
    Unit units[short_text];
    const std::size_t size = write(std::span<Unit>(units, most));
    return size == failed ? failure_text<Unit>() : basic_ustring<Unit>(units, size);
  }
  basic_ustring<Unit> output;
  bool good = true;
  internal::text::overwrite(output, most, [&](std::span<Unit> units) {
    const std::size_t size = write(units);
    good = size != failed;
    return good ? size : 0;
  });
  if (!good) return failure_text<Unit>();
  const bool wastes_memory = output.size() < most - most / 4;
  if (wastes_memory) output.shrink_to_fit();
  return output;
}

}  // namespace ORVA_NAMESPACE::strings::_private
