#include "orva/platform/terminal.hpp"

#include <iostream>

namespace ORVA_NAMESPACE::platform {

std::optional<process_output> output_of(const std::ostream& stream) {
  const std::streambuf* const buffer = stream.rdbuf();
  if (buffer == nullptr) return std::nullopt;
  if (buffer == std::cout.rdbuf()) return process_output::standard;
  if (buffer == std::cerr.rdbuf() || buffer == std::clog.rdbuf()) return process_output::error;
  return std::nullopt;
}

}  // namespace ORVA_NAMESPACE::platform
