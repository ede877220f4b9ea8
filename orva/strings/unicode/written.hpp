/// The result of a transform, made from the most units that it can have: allocated once, written once, cut.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <limits>
#include <span>
#include <stdexcept>
#include <string>

#include "orva/strings/unicode/failure_text.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_2_18::strings::_private {

/// What a writer returns for a text that it cannot read.
inline constexpr std::size_t failed = std::numeric_limits<std::size_t>::max();

/// `units` times `factor`, which on a machine of 32 bits no string may be able to hold.
inline std::size_t times(std::size_t units, std::size_t factor) {
  if (units > std::numeric_limits<std::size_t>::max() / factor) throw std::length_error("string too long");
  return units * factor;
}

/// Lets `write` fill `size` units of `output` and cuts it to what `write` returns. The units are not cleared
/// beforehand where the standard library can leave that out: it would cost as much as the fastest transforms
/// do.
template <typename Unit, typename Write>
void overwrite(std::basic_string<Unit>& output, std::size_t size, Write write) {
  if (size > output.max_size()) throw std::length_error("string too long");
#if defined(__cpp_lib_string_resize_and_overwrite)
  output.resize_and_overwrite(size,
                              [&](Unit* units, std::size_t) { return write(std::span<Unit>(units, size)); });
#else
  output.resize(size);
  output.resize(write(std::span<Unit>(output.data(), size)));
#endif
}

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
  overwrite(output, most, [&](std::span<Unit> units) {
    const std::size_t size = write(units);
    good = size != failed;
    return good ? size : 0;
  });
  if (!good) return failure_text<Unit>();
  const bool wastes_memory = output.size() < most - most / 4;
  if (wastes_memory) output.shrink_to_fit();
  return output;
}

}  // namespace ORVA_2_18::strings::_private
