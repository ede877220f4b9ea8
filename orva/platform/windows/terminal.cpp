#include "orva/platform/terminal.hpp"

#include "orva/platform/windows/system_calls.hpp"

namespace ORVA_NAMESPACE::platform {

bool shows_colour(process_output output) noexcept {
  const HANDLE console = windows::calls::get_std_handle(
      output == process_output::standard ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
  DWORD mode = 0;
  if (windows::calls::get_console_mode(console, &mode) == 0) return false;
  return windows::calls::set_console_mode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

}  // namespace ORVA_NAMESPACE::platform
