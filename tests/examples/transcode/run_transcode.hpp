/// `run`: the program in a line of the shell.
#pragma once

#include <string>

#include "tests/support/child_process.hpp"

namespace orva_test {

/// As the README of the program lists them.
enum transcode_exit_code { nothing_lost = 0, something_lost = 1, file_failure = 3, interrupted = 4 };

/// Runs a line of the shell, in which $transcode is the program. Its standard output is the result's.
inline child_result run(const std::string& line) {
  return run_child("/bin/sh", {"sh", "-c", line}, {"transcode=" ORVA_TRANSCODE, "PATH=/usr/bin:/bin"});
}

}  // namespace orva_test
