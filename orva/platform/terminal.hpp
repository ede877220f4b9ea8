/// The terminals that the outputs of the process may be.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <optional>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::platform {

enum class process_output { standard, error };

/// The output that a stream writes to: that of the buffer of `std::cout`, `std::cerr` or `std::clog`.
std::optional<process_output> output_of(const std::ostream& stream);

/// Whether the output is a terminal that knows the colours of ECMA-48. A port switches them on where that
/// must be asked for.
bool shows_colour(process_output output) noexcept;

/// How many columns the window of the terminal has. 0 if the output is no terminal, or one of no known size.
std::size_t terminal_columns(process_output output) noexcept;

}  // namespace ORVA_NAMESPACE::platform
