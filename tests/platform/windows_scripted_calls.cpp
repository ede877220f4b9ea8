#include "tests/platform/windows_scripted_calls.hpp"

#include <direct.h>
#include <shellapi.h>
#include <stdio.h>
#include <wchar.h>

namespace orva_test {

call_script& script() {
  static call_script current;
  return current;
}

}  // namespace orva_test

namespace {

bool is_refused(const char* call) {
  const DWORD error = orva_test::script().refusal ? orva_test::script().refusal(call) : 0;
  if (error != 0) ::SetLastError(error);
  return error != 0;
}

}  // namespace

namespace ORVA_NAMESPACE::platform::windows::calls {

using orva_test::script;

HANDLE create_file(const wchar_t* path, DWORD access, DWORD sharing, DWORD creation, DWORD flags) {
  const HANDLE file = script().create_file
                          ? script().create_file(path)
                          : ::CreateFileW(path, access, sharing, nullptr, creation, flags, nullptr);
  if (file != INVALID_HANDLE_VALUE) ++script().open_files;
  return file;
}

BOOL close_handle(HANDLE file) {
  --script().open_files;
  return ::CloseHandle(file);
}

DWORD get_file_type(HANDLE file) { return ::GetFileType(file); }

BOOL get_file_information(HANDLE file, BY_HANDLE_FILE_INFORMATION* information) {
  if (script().get_file_information) return script().get_file_information(file, information);
  return ::GetFileInformationByHandle(file, information);
}

BOOL get_file_size(HANDLE file, LARGE_INTEGER* size) {
  return script().get_file_size ? script().get_file_size(file, size) : ::GetFileSizeEx(file, size);
}

BOOL set_end_of_file(HANDLE file) {
  return script().set_end_of_file ? script().set_end_of_file(file) : ::SetEndOfFile(file);
}

BOOL read_file(HANDLE file, void* to, DWORD count, DWORD* read, OVERLAPPED* position) {
  if (script().read_file) return script().read_file(file, to, count, read, position);
  return ::ReadFile(file, to, count, read, position);
}

BOOL write_file(HANDLE file, const void* from, DWORD count, DWORD* written) {
  if (script().write_file) return script().write_file(file, from, count, written);
  return ::WriteFile(file, from, count, written, nullptr);
}

HANDLE create_new_file(const wchar_t* path, DWORD attributes) {
  if (is_refused("create_new_file")) return INVALID_HANDLE_VALUE;
  const HANDLE file = ::CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_NEW, attributes, nullptr);
  if (file != INVALID_HANDLE_VALUE) ++script().open_files;
  return file;
}

DWORD get_file_attributes(const wchar_t* path) {
  return is_refused("get_file_attributes") ? INVALID_FILE_ATTRIBUTES : ::GetFileAttributesW(path);
}

BOOL get_access_list(const wchar_t* path, void* list, DWORD room, DWORD* size) {
  if (is_refused("get_access_list")) return FALSE;
  return ::GetFileSecurityW(path, DACL_SECURITY_INFORMATION, list, room, size);
}

BOOL set_access_list(const wchar_t* path, void* list) {
  return !is_refused("set_access_list") && ::SetFileSecurityW(path, DACL_SECURITY_INFORMATION, list);
}

BOOL flush_file_buffers(HANDLE file) { return !is_refused("flush_file_buffers") && ::FlushFileBuffers(file); }

BOOL move_file_replacing(const wchar_t* from, const wchar_t* to) {
  return !is_refused("move_file_replacing") &&
         ::MoveFileExW(from, to, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

int stat(const wchar_t* path, struct _stat64i32* status) {
  return script().stat ? script().stat(path, status) : ::_wstat64i32(path, status);
}

BOOL create_directory(const wchar_t* path) { return ::CreateDirectoryW(path, nullptr); }
int mkdir(const wchar_t* path) { return ::_wmkdir(path); }
int rename(const wchar_t* from, const wchar_t* to) { return ::_wrename(from, to); }
int remove(const wchar_t* path) { return ::_wremove(path); }
int rmdir(const wchar_t* path) { return ::_wrmdir(path); }

HANDLE find_first_file(const wchar_t* pattern, WIN32_FIND_DATAW* found) {
  const HANDLE search = ::FindFirstFileW(pattern, found);
  if (search != INVALID_HANDLE_VALUE) ++script().open_searches;
  return search;
}

BOOL find_next_file(HANDLE search, WIN32_FIND_DATAW* found) {
  return script().find_next_file ? script().find_next_file(search, found) : ::FindNextFileW(search, found);
}

BOOL find_close(HANDLE search) {
  --script().open_searches;
  return ::FindClose(search);
}

UINT get_acp() { return ::GetACP(); }
UINT get_oemcp() { return ::GetOEMCP(); }

int wide_char_to_multi_byte(UINT page, const wchar_t* units, int count, char* to, int room) {
  if (script().convert) return script().convert(room);
  return ::WideCharToMultiByte(page, 0, units, count, to, room, nullptr, nullptr);
}

int multi_byte_to_wide_char(UINT page, const char* bytes, int count, wchar_t* to, int room) {
  if (script().convert) return script().convert(room);
  return ::MultiByteToWideChar(page, 0, bytes, count, to, room);
}

void output_debug_string(const char* text) { ::OutputDebugStringA(text); }

const wchar_t* get_command_line() {
  return script().get_command_line ? script().get_command_line() : ::GetCommandLineW();
}

wchar_t** command_line_to_argv(const wchar_t* line, int* count) {
  if (script().command_line_to_argv) return script().command_line_to_argv(line, count);
  ++script().open_command_lines;
  return ::CommandLineToArgvW(line, count);
}

void local_free(void* memory) {
  --script().open_command_lines;
  ::LocalFree(memory);
}

HANDLE get_std_handle(DWORD output) {
  return script().get_std_handle ? script().get_std_handle(output) : ::GetStdHandle(output);
}

BOOL get_console_mode(HANDLE console, DWORD* mode) {
  return script().get_console_mode ? script().get_console_mode(console, mode)
                                   : ::GetConsoleMode(console, mode);
}

BOOL set_console_mode(HANDLE console, DWORD mode) {
  return script().set_console_mode ? script().set_console_mode(console, mode)
                                   : ::SetConsoleMode(console, mode);
}

BOOL get_console_screen_buffer_info(HANDLE console, CONSOLE_SCREEN_BUFFER_INFO* info) {
  return script().get_console_screen_buffer_info ? script().get_console_screen_buffer_info(console, info)
                                                 : ::GetConsoleScreenBufferInfo(console, info);
}

}  // namespace ORVA_NAMESPACE::platform::windows::calls
