#include "orva/platform/decimal_point.hpp"

#include <clocale>

namespace ORVA_NAMESPACE::platform {

// The runtime here keeps what localeconv returns for each locale, and fills nothing.
std::string_view decimal_point() noexcept { return std::localeconv()->decimal_point; }

}  // namespace ORVA_NAMESPACE::platform
