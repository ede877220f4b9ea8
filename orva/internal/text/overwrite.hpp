/// Writing into a string that is not cleared first, where the standard library offers that.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <limits>
#include <span>
#include <stdexcept>
#include <string>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal::text {

/// `units` times `factor`. Throws where the product wraps, which it can on a machine of 32 bits.
inline std::size_t times(std::size_t units, std::size_t factor) {
  if (units > std::numeric_limits<std::size_t>::max() / factor) throw std::length_error("string too long");
  return units * factor;
}

/// Lets `write` fill `size` units of `output`, and cuts it to the number that `write` returns. The units are
/// not cleared first where the standard library can omit it: clearing takes as long as the fastest transforms
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

}  // namespace ORVA_NAMESPACE::internal::text
