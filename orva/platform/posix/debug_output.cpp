#include "orva/platform/debug_output.hpp"

#include <unistd.h>

#include "orva/platform/posix/write_all.hpp"

namespace ORVA_NAMESPACE::platform {

void debug_output(std::string_view text) noexcept {
  // What called this may be in the middle of looking at errno.
  const int error = errno;
  posix::write_all(STDERR_FILENO, text);
  errno = error;
}

}  // namespace ORVA_NAMESPACE::platform
