#include <iostream>

#include "orva/diagnostics/write.hpp"
#include "orva/platform/terminal.hpp"

namespace ORVA_NAMESPACE::diagnostics {

bool shows_colour(const std::ostream& stream) {
  const std::streambuf* const buffer = stream.rdbuf();
  if (buffer == nullptr) return false;
  if (buffer == std::cout.rdbuf()) return platform::shows_colour(platform::process_output::standard);
  const bool is_error = buffer == std::cerr.rdbuf() || buffer == std::clog.rdbuf();
  return is_error && platform::shows_colour(platform::process_output::error);
}

}  // namespace ORVA_NAMESPACE::diagnostics
