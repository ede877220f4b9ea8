#include "orva/platform/decimal_point.hpp"

#include <langinfo.h>

namespace ORVA_NAMESPACE::platform {

// localeconv gives the same, but fills a buffer that all threads share.
std::string_view decimal_point() noexcept { return nl_langinfo(RADIXCHAR); }

}  // namespace ORVA_NAMESPACE::platform
