#include "orva/platform/terminal.hpp"

#include "orva/platform/windows/system_calls.hpp"

namespace ORVA_NAMESPACE::platform {

namespace {

HANDLE console_of(process_output output) {
  return windows::calls::get_std_handle(output == process_output::standard ? STD_OUTPUT_HANDLE
                                                                           : STD_ERROR_HANDLE);
}

}  // namespace

bool shows_colour(process_output output) noexcept {
  const HANDLE console = console_of(output);
  DWORD mode = 0;
  if (windows::calls::get_console_mode(console, &mode) == 0) return false;
  return windows::calls::set_console_mode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

std::size_t terminal_columns(process_output output) noexcept {
  CONSOLE_SCREEN_BUFFER_INFO info{};
  if (windows::calls::get_console_screen_buffer_info(console_of(output), &info) == 0) return 0;
  const int columns = info.srWindow.Right - info.srWindow.Left + 1;
  return columns > 0 ? static_cast<std::size_t>(columns) : 0;
}

}  // namespace ORVA_NAMESPACE::platform
