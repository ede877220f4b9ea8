#include "orva/platform/windows/system_calls.hpp"

#include <direct.h>
#include <shellapi.h>
#include <stdio.h>
#include <wchar.h>

namespace ORVA_NAMESPACE::platform::windows::calls {

HANDLE create_file(const wchar_t* path, DWORD access, DWORD sharing, DWORD creation, DWORD flags) {
  return ::CreateFileW(path, access, sharing, nullptr, creation, flags, nullptr);
}

BOOL close_handle(HANDLE file) { return ::CloseHandle(file); }
DWORD get_file_type(HANDLE file) { return ::GetFileType(file); }

BOOL get_file_information(HANDLE file, BY_HANDLE_FILE_INFORMATION* information) {
  return ::GetFileInformationByHandle(file, information);
}

BOOL get_file_size(HANDLE file, LARGE_INTEGER* size) { return ::GetFileSizeEx(file, size); }
BOOL set_end_of_file(HANDLE file) { return ::SetEndOfFile(file); }

BOOL read_file(HANDLE file, void* to, DWORD count, DWORD* read, OVERLAPPED* position) {
  return ::ReadFile(file, to, count, read, position);
}

BOOL write_file(HANDLE file, const void* from, DWORD count, DWORD* written) {
  return ::WriteFile(file, from, count, written, nullptr);
}

HANDLE create_new_file(const wchar_t* path, DWORD attributes) {
  return ::CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_NEW, attributes, nullptr);
}

DWORD get_file_attributes(const wchar_t* path) { return ::GetFileAttributesW(path); }

BOOL get_access_list(const wchar_t* path, void* list, DWORD room, DWORD* size) {
  return ::GetFileSecurityW(path, DACL_SECURITY_INFORMATION, list, room, size);
}

BOOL set_access_list(const wchar_t* path, void* list) {
  return ::SetFileSecurityW(path, DACL_SECURITY_INFORMATION, list);
}

BOOL flush_file_buffers(HANDLE file) { return ::FlushFileBuffers(file); }

BOOL move_file_replacing(const wchar_t* from, const wchar_t* to) {
  return ::MoveFileExW(from, to, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

int stat(const wchar_t* path, struct _stat64i32* status) { return ::_wstat64i32(path, status); }
BOOL create_directory(const wchar_t* path) { return ::CreateDirectoryW(path, nullptr); }
int mkdir(const wchar_t* path) { return ::_wmkdir(path); }
int rename(const wchar_t* from, const wchar_t* to) { return ::_wrename(from, to); }
int remove(const wchar_t* path) { return ::_wremove(path); }
int rmdir(const wchar_t* path) { return ::_wrmdir(path); }

HANDLE find_first_file(const wchar_t* pattern, WIN32_FIND_DATAW* found) {
  return ::FindFirstFileW(pattern, found);
}

BOOL find_next_file(HANDLE search, WIN32_FIND_DATAW* found) { return ::FindNextFileW(search, found); }
BOOL find_close(HANDLE search) { return ::FindClose(search); }

UINT get_acp() { return ::GetACP(); }
UINT get_oemcp() { return ::GetOEMCP(); }

int wide_char_to_multi_byte(UINT page, const wchar_t* units, int count, char* to, int room) {
  return ::WideCharToMultiByte(page, 0, units, count, to, room, nullptr, nullptr);
}

int multi_byte_to_wide_char(UINT page, const char* bytes, int count, wchar_t* to, int room) {
  return ::MultiByteToWideChar(page, 0, bytes, count, to, room);
}

void output_debug_string(const char* text) { ::OutputDebugStringA(text); }

const wchar_t* get_command_line() { return ::GetCommandLineW(); }
wchar_t** command_line_to_argv(const wchar_t* line, int* count) { return ::CommandLineToArgvW(line, count); }
void local_free(void* memory) { ::LocalFree(memory); }

HANDLE get_std_handle(DWORD output) { return ::GetStdHandle(output); }
BOOL get_console_mode(HANDLE console, DWORD* mode) { return ::GetConsoleMode(console, mode); }
BOOL set_console_mode(HANDLE console, DWORD mode) { return ::SetConsoleMode(console, mode); }
BOOL get_console_screen_buffer_info(HANDLE console, CONSOLE_SCREEN_BUFFER_INFO* info) {
  return ::GetConsoleScreenBufferInfo(console, info);
}

}  // namespace ORVA_NAMESPACE::platform::windows::calls
