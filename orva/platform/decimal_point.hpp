/// The decimal point of the process's current C locale, as `printf` writes it.
///
/// Internal: not installed. Any thread may ask while no thread changes the locale.
#pragma once

#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::platform {

/// The text stays valid until the locale is changed.
std::string_view decimal_point() noexcept;

}  // namespace ORVA_NAMESPACE::platform
