/// The command line of the process.
///
/// Internal: not installed.
#pragma once

#include <string>
#include <vector>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::platform {

/// The words of the command line in UTF-8, the name of the program first, as `append_native` converts them.
/// Empty where the arguments of `main` are right already, and if the system does not tell.
std::vector<std::string> program_arguments();

}  // namespace ORVA_NAMESPACE::platform
