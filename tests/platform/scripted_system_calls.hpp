/// The system calls of the platform layer, as a test scripts them.
///
/// A call whose function is set goes there; any other goes to the system. What was opened and not closed is
/// counted. One script for the process: `scripted_calls` starts and ends it.
#pragma once

#include <functional>

#include "orva/platform/posix/system_calls.hpp"

namespace orva_test {

struct call_script {
  std::function<int(const char*, int, mode_t)> open;
  std::function<int(int, struct stat*)> fstat;
  std::function<int(int)> let_writes_wait;
  std::function<ssize_t(int, void*, std::size_t, off_t)> pread;
  std::function<ssize_t(int, const void*, std::size_t)> write;
  std::function<int(const char*, const char*)> rename_without_replacing;
  std::function<dirent*(DIR*)> readdir;

  int sleeps = 0;
  int open_files = 0;
  int open_searches = 0;
  int directories_asked_for = 0;
};

/// The script in force.
call_script& script();

/// A script for one test; its end drops it.
class scripted_calls {
 public:
  scripted_calls() { script() = {}; }
  scripted_calls(const scripted_calls&) = delete;
  scripted_calls& operator=(const scripted_calls&) = delete;
  ~scripted_calls() { script() = {}; }

  call_script* operator->() const { return &script(); }
};

}  // namespace orva_test
