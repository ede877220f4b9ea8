/// Advice to the system about memory.
///
/// Internal: not installed. A port owes nothing: doing nothing is right, and slower.
#pragma once

#include <cstddef>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::platform {

/// Says that all of this memory is about to be written for the first time, so that the system can hand it out
/// in large pages. For a file of many megabytes, page faults are what most of the time goes into.
void expect_filling(char* begin, std::size_t size) noexcept;

}  // namespace ORVA_NAMESPACE::platform
