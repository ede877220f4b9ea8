/// The system calls of the platform layer, as a test scripts them.
#pragma once

#include <functional>

#include "orva/platform/posix/system_calls.hpp"
#include "tests/platform/scripted_calls.hpp"

namespace orva_test {

struct call_script {
  /// Asked before each call that changes files, by its name: the error by which it fails, or 0.
  std::function<int(const char*)> refusal;
  std::function<int(const char*, int, mode_t)> open;
  std::function<int(int, struct stat*)> fstat;
  std::function<int(const char*, struct stat*)> stat;
  std::function<int(int)> let_writes_wait;
  std::function<ssize_t(int, void*, std::size_t, off_t)> pread;
  std::function<ssize_t(int, const void*, std::size_t)> write;
  std::function<int(const char*, const char*)> rename_without_replacing;
  std::function<dirent*(DIR*)> readdir;
  std::function<int(int)> isatty;
  std::function<int(int, winsize*)> get_window_size;

  int sleeps = 0;
  int open_files = 0;
  int open_searches = 0;
  int directories_asked_for = 0;
};

using scripted_calls = basic_scripted_calls<call_script>;

}  // namespace orva_test
