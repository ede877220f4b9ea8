/// The system calls of the platform layer on Windows, as a test scripts them.
#pragma once

#include <functional>

#include "orva/platform/windows/system_calls.hpp"
#include "tests/platform/scripted_calls.hpp"

namespace orva_test {

struct call_script {
  /// Asked before each call that only a replacement makes, by its name: the error by which it fails, or 0.
  std::function<DWORD(const char*)> refusal;
  std::function<HANDLE(const wchar_t*)> create_file;
  std::function<BOOL(HANDLE, LARGE_INTEGER*)> get_file_size;
  std::function<BOOL(HANDLE, BY_HANDLE_FILE_INFORMATION*)> get_file_information;
  std::function<BOOL(HANDLE)> set_end_of_file;
  std::function<BOOL(HANDLE, void*, DWORD, DWORD*, OVERLAPPED*)> read_file;
  std::function<BOOL(HANDLE, const void*, DWORD, DWORD*)> write_file;
  std::function<int(const wchar_t*, struct _stat64i32*)> stat;
  std::function<BOOL(HANDLE, WIN32_FIND_DATAW*)> find_next_file;
  std::function<int(int room)> convert;
  std::function<const wchar_t*()> get_command_line;
  std::function<wchar_t**(const wchar_t*, int*)> command_line_to_argv;
  std::function<HANDLE(DWORD)> get_std_handle;
  std::function<BOOL(HANDLE, DWORD*)> get_console_mode;
  std::function<BOOL(HANDLE, DWORD)> set_console_mode;
  std::function<BOOL(HANDLE, CONSOLE_SCREEN_BUFFER_INFO*)> get_console_screen_buffer_info;

  int open_files = 0;
  int open_searches = 0;
  int open_command_lines = 0;
};

using scripted_calls = basic_scripted_calls<call_script>;

}  // namespace orva_test
