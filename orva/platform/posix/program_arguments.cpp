#include "orva/platform/program_arguments.hpp"

namespace ORVA_NAMESPACE::platform {

std::vector<std::string> program_arguments() { return {}; }

}  // namespace ORVA_NAMESPACE::platform
