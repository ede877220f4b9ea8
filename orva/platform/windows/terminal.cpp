#include "orva/platform/terminal.hpp"

#include "orva/platform/windows/system.hpp"

namespace ORVA_NAMESPACE::platform {

bool shows_colour(process_output output) noexcept {
  const HANDLE handle =
      GetStdHandle(output == process_output::standard ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
  DWORD mode = 0;
  if (GetConsoleMode(handle, &mode) == 0) return false;
  return SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

}  // namespace ORVA_NAMESPACE::platform
