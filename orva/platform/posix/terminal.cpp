#include "orva/platform/terminal.hpp"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>

#include "orva/platform/posix/system_calls.hpp"

namespace ORVA_NAMESPACE::platform {

namespace {

int file_of(process_output output) {
  return output == process_output::standard ? STDOUT_FILENO : STDERR_FILENO;
}

}  // namespace

bool shows_colour(process_output output) noexcept {
  const int error = errno;
  const bool is_terminal = posix::calls::isatty(file_of(output)) == 1;
  errno = error;
  const char* const terminal = std::getenv("TERM");
  return is_terminal && terminal != nullptr && std::string_view(terminal) != "dumb";
}

std::size_t terminal_columns(process_output output) noexcept {
  const int error = errno;
  winsize size{};
  const bool is_known = posix::calls::get_window_size(file_of(output), &size) == 0;
  errno = error;
  return is_known ? size.ws_col : 0;
}

}  // namespace ORVA_NAMESPACE::platform
