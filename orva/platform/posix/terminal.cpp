#include "orva/platform/terminal.hpp"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>

namespace ORVA_NAMESPACE::platform {

bool shows_colour(process_output output) noexcept {
  const int error = errno;
  const bool is_terminal = isatty(output == process_output::standard ? STDOUT_FILENO : STDERR_FILENO) == 1;
  errno = error;
  const char* const terminal = std::getenv("TERM");
  return is_terminal && terminal != nullptr && std::string_view(terminal) != "dumb";
}

}  // namespace ORVA_NAMESPACE::platform
