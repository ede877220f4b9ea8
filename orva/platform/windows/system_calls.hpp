/// The system calls that the files in this folder make, one function each.
///
/// The functions do what their namesakes do, the last error or `errno` included. A test links others in their
/// place, so that a full disk, a short read and a refused search can be tested. The clocks are not among
/// them: they cannot fail, and a stopwatch pays for each call; tests replace `platform/clock.hpp` as a whole.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include "orva/platform/windows/system.hpp"
#include "orva/version.hpp"

namespace ORVA_NAMESPACE::platform::windows::calls {

HANDLE create_file(const wchar_t* path, DWORD access, DWORD sharing, DWORD creation, DWORD flags);
BOOL close_handle(HANDLE file);
DWORD get_file_type(HANDLE file);
BOOL get_file_information(HANDLE file, BY_HANDLE_FILE_INFORMATION* information);
BOOL get_file_size(HANDLE file, LARGE_INTEGER* size);
BOOL set_end_of_file(HANDLE file);
BOOL read_file(HANDLE file, void* to, DWORD count, DWORD* read, OVERLAPPED* position);
BOOL write_file(HANDLE file, const void* from, DWORD count, DWORD* written);

/// Fails where the path is taken. No other process may open the file.
HANDLE create_new_file(const wchar_t* path, DWORD attributes);
DWORD get_file_attributes(const wchar_t* path);
/// The access control list, with the owner's rights in it, as `set_access_list` takes it.
BOOL get_access_list(const wchar_t* path, void* list, DWORD room, DWORD* size);
BOOL set_access_list(const wchar_t* path, void* list);
BOOL flush_file_buffers(HANDLE file);
/// Gives `from` the name `to`, which another file may have, and waits until the disk has it.
BOOL move_file_replacing(const wchar_t* from, const wchar_t* to);

/// `_wstat64i32`.
int stat(const wchar_t* path, struct _stat64i32* status);
BOOL create_directory(const wchar_t* path);
int mkdir(const wchar_t* path);
int rename(const wchar_t* from, const wchar_t* to);
int remove(const wchar_t* path);
int rmdir(const wchar_t* path);

HANDLE find_first_file(const wchar_t* pattern, WIN32_FIND_DATAW* found);
BOOL find_next_file(HANDLE search, WIN32_FIND_DATAW* found);
BOOL find_close(HANDLE search);

UINT get_acp();
UINT get_oemcp();
int wide_char_to_multi_byte(UINT page, const wchar_t* units, int count, char* to, int room);
int multi_byte_to_wide_char(UINT page, const char* bytes, int count, wchar_t* to, int room);
void output_debug_string(const char* text);

const wchar_t* get_command_line();
wchar_t** command_line_to_argv(const wchar_t* line, int* count);
void local_free(void* memory);

HANDLE get_std_handle(DWORD output);
BOOL get_console_mode(HANDLE console, DWORD* mode);
BOOL set_console_mode(HANDLE console, DWORD mode);
BOOL get_console_screen_buffer_info(HANDLE console, CONSOLE_SCREEN_BUFFER_INFO* info);

}  // namespace ORVA_NAMESPACE::platform::windows::calls
