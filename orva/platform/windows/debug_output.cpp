#include "orva/platform/debug_output.hpp"

#include <new>
#include <string>

#include "orva/platform/windows/system_calls.hpp"

namespace ORVA_NAMESPACE::platform {

void debug_output(std::string_view text) noexcept {
  try {
    // The system wants a terminated text, and in one piece, so that nobody's line gets between.
    windows::calls::output_debug_string(std::string(text).c_str());
  } catch (const std::bad_alloc&) {
  }
}

}  // namespace ORVA_NAMESPACE::platform
