// What the file services, the code pages, the terminals and the command line do when a system call of Windows
// fails.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "orva/exceptions/exception.hpp"
#include "orva/platform/directory_listing.hpp"
#include "orva/platform/terminal.hpp"
#include "orva/strings/code_page.hpp"
#include "orva/system/file_utility.hpp"
#include "orva/system/io.hpp"
#include "orva/system/program_arguments.hpp"
#include "orva/system/replace_file.hpp"
#include "tests/platform/windows_scripted_calls.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using orva_test::scripted_calls;
using orva_test::some_bytes;
using orva_test::temporary_directory;
namespace exceptions = ORVA_NAMESPACE::exceptions;
namespace platform = ORVA_NAMESPACE::platform;
namespace strings = ORVA_NAMESPACE::strings;
namespace sys = ORVA_NAMESPACE::system;

BOOL fail_with(DWORD error) {
  ::SetLastError(error);
  return FALSE;
}

TEST(failing_load_file, short_reads_are_put_together) {
  const temporary_directory directory;
  const auto bytes = some_bytes(300'000);
  const auto path = directory.write("file", bytes);
  const scripted_calls calls;
  calls->read_file = [](HANDLE file, void* to, DWORD count, DWORD* read, OVERLAPPED* position) {
    return ::ReadFile(file, to, std::min<DWORD>(count, 7001), read, position);
  };
  std::string contents;
  EXPECT_EQ(sys::load_file(path, contents), 0);
  EXPECT_TRUE(contents == bytes);
  EXPECT_EQ(calls->open_files, 0);
}

TEST(failing_load_file, read_error_leaves_zeros_and_gives_0) {
  const temporary_directory directory;
  const auto bytes = some_bytes(500'000);
  const auto path = directory.write("file", bytes);
  const scripted_calls calls;
  for (const DWORD failing_from : {0u, 1u, 200'000u, 499'999u}) {
    calls->read_file = [=](HANDLE file, void* to, DWORD count, DWORD* read, OVERLAPPED* position) {
      if (position->Offset >= failing_from) return fail_with(ERROR_CRC);
      return ::ReadFile(file, to, std::min<DWORD>(count, failing_from - position->Offset), read, position);
    };
    std::string contents = "before";
    EXPECT_EQ(sys::load_file(path, contents), 0);
    EXPECT_TRUE(contents == bytes.substr(0, failing_from) + std::string(bytes.size() - failing_from, '\0'))
        << failing_from;
  }
  EXPECT_EQ(calls->open_files, 0);
}

TEST(failing_load_file, refused_open_gives_1) {
  const temporary_directory directory;
  const auto path = directory.write("file", "x");
  const scripted_calls calls;
  for (const DWORD error : {ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION, ERROR_TOO_MANY_OPEN_FILES}) {
    calls->create_file = [error](const wchar_t*) {
      ::SetLastError(error);
      return INVALID_HANDLE_VALUE;
    };
    std::string contents = "before";
    EXPECT_EQ(sys::load_file(path, contents), 1);
    EXPECT_EQ(sys::store_file(path, "y"), 1);
    EXPECT_EQ(contents, "before");
  }
  EXPECT_EQ(calls->open_files, 0);
  EXPECT_EQ(directory.read("file"), "x");
}

TEST(failing_load_file, refused_size_gives_1_and_closes) {
  const temporary_directory directory;
  const auto path = directory.write("file", "x");
  const scripted_calls calls;
  calls->get_file_size = [](HANDLE, LARGE_INTEGER*) { return fail_with(ERROR_IO_DEVICE); };
  std::string contents = "before";
  EXPECT_EQ(sys::load_file(path, contents), 1);
  EXPECT_EQ(contents, "before");
  EXPECT_EQ(calls->open_files, 0);
}

TEST(failing_load_file, size_above_0x7FFFFFFF_raises_and_closes) {
  const temporary_directory directory;
  const auto path = directory.write("file", "x");
  const scripted_calls calls;
  calls->get_file_size = [](HANDLE, LARGE_INTEGER* size) {
    size->QuadPart = 0x80000000;
    return TRUE;
  };
  std::string contents = "before";
  EXPECT_THROW(static_cast<void>(sys::load_file(path, contents)), exceptions::runtime_error);
  EXPECT_EQ(contents, "before");
  EXPECT_EQ(calls->open_files, 0);
}

TEST(failing_load_file, link_that_takes_the_files_place_after_the_check_gives_1) {
  const temporary_directory directory;
  const auto path = directory.write("file", "x");
  const scripted_calls calls;
  calls->get_file_information = [](HANDLE file, BY_HANDLE_FILE_INFORMATION* information) {
    const BOOL result = ::GetFileInformationByHandle(file, information);
    information->dwFileAttributes |= FILE_ATTRIBUTE_REPARSE_POINT;
    return result;
  };
  std::string contents = "before";
  EXPECT_EQ(sys::load_file(path, contents), 1);
  EXPECT_EQ(sys::store_file(path, "y"), 1);
  EXPECT_EQ(contents, "before");
  EXPECT_EQ(directory.read("file"), "x");
  EXPECT_EQ(calls->open_files, 0);
}

TEST(failing_store_file, short_writes_are_put_together) {
  const temporary_directory directory;
  const auto bytes = some_bytes(10'000);
  const scripted_calls calls;
  calls->write_file = [](HANDLE file, const void* from, DWORD count, DWORD* written) {
    return ::WriteFile(file, from, std::min<DWORD>(count, 777), written, nullptr);
  };
  EXPECT_EQ(sys::store_file(directory.file("file"), bytes), 0);
  EXPECT_TRUE(directory.read("file") == bytes);
  EXPECT_EQ(calls->open_files, 0);
}

TEST(failing_store_file, full_disk_is_not_reported) {
  const temporary_directory directory;
  const scripted_calls calls;
  int room = 2;
  calls->write_file = [&](HANDLE file, const void* from, DWORD, DWORD* written) {
    return room-- > 0 ? ::WriteFile(file, from, 5, written, nullptr) : fail_with(ERROR_DISK_FULL);
  };
  EXPECT_EQ(sys::store_file(directory.file("file"), some_bytes(100)), 0);
  EXPECT_EQ(directory.read("file"), some_bytes(10));
  EXPECT_EQ(calls->open_files, 0);
}

TEST(failing_store_file, file_that_cannot_be_emptied_gives_1_and_keeps_its_contents) {
  const temporary_directory directory;
  const auto path = directory.write("file", "x");
  const scripted_calls calls;
  calls->set_end_of_file = [](HANDLE) { return fail_with(ERROR_USER_MAPPED_FILE); };
  EXPECT_EQ(sys::store_file(path, "y"), 1);
  EXPECT_EQ(directory.read("file"), "x");
  EXPECT_EQ(calls->open_files, 0);
}

TEST(failing_replace_file, each_call_that_fails_leaves_the_old_file_and_nothing_beside) {
  using error = sys::replace_file_result::error;
  const std::pair<std::string, error> failures[] = {
      {"get_file_attributes", error::not_a_file}, {"create_new_file", error::not_created},
      {"get_access_list", error::owner_changes},  {"set_access_list", error::owner_changes},
      {"flush_file_buffers", error::not_synced},  {"move_file_replacing", error::not_renamed}};
  for (const auto& [failing, expected] : failures) {
    const temporary_directory directory;
    const auto path = directory.write("file", "old");
    const scripted_calls calls;
    calls->refusal = [&](const char* call) { return call == failing ? ERROR_IO_DEVICE : DWORD{0}; };
    const auto result = sys::replace_file(path, "new");
    EXPECT_EQ(result.code, expected) << failing;
    EXPECT_EQ(result.reason.value(), ERROR_IO_DEVICE) << failing;
    EXPECT_EQ(directory.read("file"), "old") << failing;
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory.path()), {}), 1) << failing;
    EXPECT_EQ(calls->open_files, 0) << failing;
  }
}

TEST(failing_replace_file, full_disk_is_reported) {
  const temporary_directory directory;
  const auto path = directory.write("file", "old");
  const scripted_calls calls;
  calls->write_file = [](HANDLE, const void*, DWORD, DWORD*) { return fail_with(ERROR_DISK_FULL); };
  const auto result = sys::replace_file(path, "new");
  EXPECT_EQ(result.code, sys::replace_file_result::error::not_written);
  EXPECT_EQ(result.reason.value(), ERROR_DISK_FULL);
  EXPECT_EQ(directory.read("file"), "old");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory.path()), {}), 1);
}

TEST(directory_listing, failed_search_keeps_what_it_read_and_is_closed) {
  const temporary_directory directory;
  for (const auto* name : {"a", "b", "c"}) directory.write(name, "");
  const scripted_calls calls;
  int reads = 0;
  calls->find_next_file = [&](HANDLE search, WIN32_FIND_DATAW* found) {
    return ++reads <= 2 ? ::FindNextFileW(search, found) : fail_with(ERROR_IO_DEVICE);
  };
  EXPECT_LE(sys::list_directory(directory.name()).size(), 3u);
  EXPECT_EQ(calls->open_searches, 0);
}

TEST(failing_status, is_no_file_and_no_directory) {
  const temporary_directory directory;
  const auto path = directory.write("file", "x");
  const scripted_calls calls;
  calls->stat = [](const wchar_t*, struct _stat64i32*) { return -1; };
  EXPECT_FALSE(sys::io::exists(path));
  EXPECT_FALSE(sys::io::is_file(path));
  EXPECT_FALSE(sys::io::is_directory(directory.name()));
}

TEST(failing_conversion, is_a_length_failure_also_when_the_second_call_fails) {
  const strings::code_page page(strings::code_page::cp_1252);
  const scripted_calls calls;
  calls->convert = [](int) { return 0; };
  EXPECT_THROW(page.encode(strings::ustring8("text")), std::length_error);
  EXPECT_THROW(page.as_utf16("text"), std::length_error);
  calls->convert = [](int room) { return room == 0 ? 4 : 0; };
  EXPECT_THROW(page.encode(strings::ustring8("text")), std::length_error);
  EXPECT_THROW(page.as_utf16("text"), std::length_error);
}

/// A process whose standard output is a console with this mode, and whose error output is none.
void script_console(const scripted_calls& calls, DWORD& mode) {
  static int console;
  calls->get_std_handle = [](DWORD output) -> HANDLE {
    return output == STD_OUTPUT_HANDLE ? &console : INVALID_HANDLE_VALUE;
  };
  calls->get_console_mode = [&mode](HANDLE asked, DWORD* answer) {
    if (asked != &console) return fail_with(ERROR_INVALID_HANDLE);
    *answer = mode;
    return TRUE;
  };
  calls->set_console_mode = [&mode](HANDLE, DWORD wanted) {
    mode = wanted;
    return TRUE;
  };
}

TEST(shows_colour, switches_colours_on_and_keeps_the_rest_of_the_mode) {
  const scripted_calls calls;
  DWORD mode = ENABLE_PROCESSED_OUTPUT;
  script_console(calls, mode);
  EXPECT_TRUE(platform::shows_colour(platform::process_output::standard));
  EXPECT_EQ(mode, DWORD{ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING});
}

TEST(shows_colour, is_false_for_an_output_that_is_no_console) {
  const scripted_calls calls;
  DWORD mode = 0;
  script_console(calls, mode);
  EXPECT_FALSE(platform::shows_colour(platform::process_output::error));
  EXPECT_EQ(mode, DWORD{0});
}

TEST(shows_colour, is_false_for_a_console_that_refuses_the_mode) {
  const scripted_calls calls;
  DWORD mode = 0;
  script_console(calls, mode);
  calls->set_console_mode = [](HANDLE, DWORD) { return fail_with(ERROR_INVALID_PARAMETER); };
  EXPECT_FALSE(platform::shows_colour(platform::process_output::standard));
}

TEST(terminal_columns, are_those_of_the_window_of_the_console) {
  const scripted_calls calls;
  DWORD mode = 0;
  script_console(calls, mode);
  calls->get_console_screen_buffer_info = [](HANDLE console, CONSOLE_SCREEN_BUFFER_INFO* info) {
    if (console == INVALID_HANDLE_VALUE) return fail_with(ERROR_INVALID_HANDLE);
    info->srWindow = {10, 0, 141, 24};
    return TRUE;
  };
  EXPECT_EQ(platform::terminal_columns(platform::process_output::standard), 132u);
  EXPECT_EQ(platform::terminal_columns(platform::process_output::error), 0u);
}

std::vector<std::string> words_of(const sys::program_arguments& arguments) {
  return {arguments.values(), arguments.values() + arguments.count()};
}

const char* const of_main[] = {"tool", "caf?.txt", nullptr};

TEST(program_arguments, are_those_of_the_system_in_utf8) {
  const scripted_calls calls;
  calls->get_command_line = [] {
    return L"\"C:\\a tool.exe\" caf\u00E9.txt \"\u6587 \U0001F600\" \"\" a\\\"b";
  };
  const sys::program_arguments arguments(2, of_main);
  EXPECT_EQ(words_of(arguments), (std::vector<std::string>{"C:\\a tool.exe", "caf\xC3\xA9.txt",
                                                           "\xE6\x96\x87 \xF0\x9F\x98\x80", "", "a\"b"}));
  EXPECT_EQ(arguments.values()[arguments.count()], nullptr);
  EXPECT_EQ(calls->open_command_lines, 0);
}

TEST(program_arguments, name_a_file_whose_name_is_no_text) {
  const scripted_calls calls;
  calls->get_command_line = [] { return L"tool \xD800"; };
  EXPECT_EQ(words_of(sys::program_arguments(2, of_main)), (std::vector<std::string>{"tool", "\xED\xA0\x80"}));
}

TEST(program_arguments, are_those_of_main_if_the_system_refuses) {
  const scripted_calls calls;
  calls->command_line_to_argv = [](const wchar_t*, int*) -> wchar_t** { return nullptr; };
  EXPECT_EQ(words_of(sys::program_arguments(2, of_main)), (std::vector<std::string>{"tool", "caf?.txt"}));
}

}  // namespace
