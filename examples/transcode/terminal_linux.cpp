#include <unistd.h>

#include "terminal.hpp"

namespace transcode {

bool error_is_terminal() { return isatty(STDERR_FILENO) == 1; }

void make_streams_binary() {}

}  // namespace transcode
