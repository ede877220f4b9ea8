/// Advice to the system about memory.
///
/// Internal: not installed. A port may ignore it: that costs time and nothing else.
#pragma once

#include <cstddef>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::platform {

/// Announces that all of this memory is about to be written for the first time, so that the system can
/// provide large pages. Most of the time of reading a file of many megabytes is spent in page faults.
void expect_filling(char* begin, std::size_t size) noexcept;

}  // namespace ORVA_NAMESPACE::platform
