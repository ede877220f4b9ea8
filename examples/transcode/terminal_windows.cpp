#include <fcntl.h>
#include <io.h>
#include <stdio.h>

#include "terminal.hpp"

namespace transcode {

bool error_is_terminal() { return _isatty(_fileno(stderr)) != 0; }

void make_streams_binary() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
}

}  // namespace transcode
