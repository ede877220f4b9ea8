/// The system calls of the platform layer on Windows, as a test scripts them.
///
/// A call whose function is set goes there; any other goes to the system. What was opened and not closed is
/// counted. One script for the process: `scripted_calls` starts and ends it.
#pragma once

#include <functional>

#include "orva/platform/windows/system_calls.hpp"

namespace orva_test {

struct call_script {
  std::function<HANDLE(const wchar_t*)> create_file;
  std::function<BOOL(HANDLE, LARGE_INTEGER*)> get_file_size;
  std::function<BOOL(HANDLE, BY_HANDLE_FILE_INFORMATION*)> get_file_information;
  std::function<BOOL(HANDLE)> set_end_of_file;
  std::function<BOOL(HANDLE, void*, DWORD, DWORD*, OVERLAPPED*)> read_file;
  std::function<BOOL(HANDLE, const void*, DWORD, DWORD*)> write_file;
  std::function<int(const wchar_t*, struct _stat64i32*)> stat;
  std::function<BOOL(HANDLE, WIN32_FIND_DATAW*)> find_next_file;
  std::function<int(int room)> convert;

  int open_files = 0;
  int open_searches = 0;
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
