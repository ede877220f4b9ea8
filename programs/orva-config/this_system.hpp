/// What the program asks the operating system.
#pragma once

#include <filesystem>

namespace orva_config {

/// The directory of the program's file. Empty if it is not known.
std::filesystem::path program_directory();

/// Lets the standard streams carry bytes as they are, and a write to a closed pipe fail.
void prepare_streams();

}  // namespace orva_config
