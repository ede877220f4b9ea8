#include "orva/platform/memory.hpp"

namespace ORVA_NAMESPACE::platform {

// Large pages are a privilege of accounts here, not an advice.
void expect_filling(char*, std::size_t) noexcept {}

}  // namespace ORVA_NAMESPACE::platform
