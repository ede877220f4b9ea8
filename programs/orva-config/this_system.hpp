/// What the program asks the operating system.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace orva_config {

/// The words of the command line in UTF-8, the name of the program first.
std::vector<std::string> arguments(int argc, char** argv);

/// The directory of the program's file. Empty if it is not known.
std::filesystem::path program_directory();

/// Lets the standard streams carry bytes as they are, and a write to a closed pipe fail.
void prepare_streams();

}  // namespace orva_config
