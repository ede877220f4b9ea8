#include "orva/platform/terminal.hpp"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>

#include "orva/platform/posix/system_calls.hpp"

namespace ORVA_NAMESPACE::platform {

bool shows_colour(process_output output) noexcept {
  const int error = errno;
  const int file = output == process_output::standard ? STDOUT_FILENO : STDERR_FILENO;
  const bool is_terminal = posix::calls::isatty(file) == 1;
  errno = error;
  const char* const terminal = std::getenv("TERM");
  return is_terminal && terminal != nullptr && std::string_view(terminal) != "dumb";
}

}  // namespace ORVA_NAMESPACE::platform
