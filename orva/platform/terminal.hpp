/// The terminals that the outputs of the process may be.
///
/// Internal: not installed.
#pragma once

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::platform {

enum class process_output { standard, error };

/// Whether the output is a terminal that knows the colours of ECMA-48. A port switches them on where that
/// must be asked for.
bool shows_colour(process_output output) noexcept;

}  // namespace ORVA_NAMESPACE::platform
