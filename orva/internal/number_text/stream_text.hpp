/// The text of floating values that a standard stream writes, which depends on the global locale.
///
///     stream_text(1234.5)       =>  1234.5, or 1.234,5 after std::locale::global(std::locale("de_DE"))
///
/// Internal: not installed.
#pragma once

#include <concepts>
#include <ios>
#include <locale>
#include <sstream>
#include <string>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal {

/// The precision of a stream whose flags nobody has set.
inline constexpr int default_stream_precision = 6;

template <std::floating_point Floating>
std::string stream_text(Floating value, int precision = default_stream_precision) {
  std::ostringstream stream;
  stream.precision(precision);
  stream << value;
  return stream.str();
}

/// Whether a stream of the global locale writes what `write_general` writes.
inline bool streams_write_general_form() { return std::locale() == std::locale::classic(); }

}  // namespace ORVA_NAMESPACE::internal
