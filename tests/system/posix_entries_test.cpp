// Entries, names and failures that only POSIX systems have: pipes, sockets and devices, names of any bytes,
// open files that can be counted, directories that may not be searched, limits.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <boost/filesystem/exception.hpp>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "orva/strings/unicode.hpp"
#include "orva/system/file_utility.hpp"
#include "orva/system/io.hpp"
#include "tests/support/entries.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/support/wide_text.hpp"
#include "tests/support/working_directory.hpp"

namespace {

using orva_test::temporary_directory;
using orva_test::working_directory;
namespace strings = ORVA_NAMESPACE::strings;
namespace sys = ORVA_NAMESPACE::system;
namespace io = ORVA_NAMESPACE::system::io;
using namespace std::string_literals;
using paths8 = std::vector<strings::ustring8>;

paths8 files_below(const std::string& path) {
  paths8 files;
  sys::get_directory_files(strings::ustring8(path), files);
  return files;
}

TEST(io, pipe_socket_and_device_are_neither_file_nor_directory) {
  const temporary_directory directory;
  const auto path = directory.file("s");
  const auto pipe = directory.file("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  ASSERT_LT(path.size(), sizeof(address.sun_path));
  std::memcpy(address.sun_path, path.data(), path.size());
  const int file = socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_EQ(bind(file, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
  for (const auto& special : {path, pipe, "/dev/null"s}) {
    EXPECT_TRUE(io::exists(special));
    EXPECT_FALSE(io::is_file(special));
    EXPECT_FALSE(io::is_directory(special));
  }
  close(file);
}

std::ptrdiff_t open_files() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                       std::filesystem::directory_iterator());
}

struct odd_name {
  const char* bytes;
  bool reported;
};

const odd_name odd_names[] = {
    {"\xFF", false},                      // no lead byte
    {"a\x80", false},                     // stray continuation byte
    {"\xC3", false},                      // cut sequence
    {"\xC0\xAF", false},                  // overlong separator
    {"\xE0\x80\xAF", false},              // overlong
    {"\xF4\x90\x80\x80", false},          // above U+10FFFF
    {"\xED\xA0\xBD\xED\xB8\x80", false},  // a pair written as two surrogates
    {"\xED\xA0\x80", true},               // unpaired surrogates have 16-bit paths
    {"\xED\xB0\x80\xED\xA0\x80", true},   //
    {"\xEF\xBF\xBE", true},               // U+FFFE, the mark of the other byte order
    {"\xEF\xBF\xBF", true},               // U+FFFF
    {"\xEF\xBB\xBFmarked", true},         //
    {"\xF0\x9F\x98\x80", true},           //
    {"\xF4\x8F\xBF\xBF", true},           // U+10FFFF
    {"line\nfeed\t\"'\\*?", true},        //
    {"\x01\x7F", true},                   //
};

TEST(list_directory, every_reported_name_opens_and_others_are_left_out) {
  for (const auto& name : odd_names) {
    const temporary_directory directory;
    directory.write(name.bytes, "x");
    const auto path = directory.name();
    const auto paths = sys::list_directory(path);
    const auto wide_paths = sys::list_directory(std::u16string(path.begin(), path.end()));
    ASSERT_EQ(paths.size(), name.reported ? 1u : 0u) << directory.file(name.bytes);
    ASSERT_EQ(wide_paths.size(), paths.size());
    EXPECT_EQ(files_below(path), paths);
    if (paths.empty()) continue;
    EXPECT_EQ(paths[0], directory.file(name.bytes));
    EXPECT_TRUE(sys::io::is_file(paths[0]));
    EXPECT_TRUE(sys::io::is_file(wide_paths[0]));
    std::string contents;
    EXPECT_EQ(sys::load_file(wide_paths[0], contents), 0);
    EXPECT_EQ(contents, "x");
  }
}

TEST(list_directory, empty_path_lists_the_root) {
  const auto paths = sys::list_directory("");
  EXPECT_NE(std::find(paths.begin(), paths.end(), "/dev"), paths.end());
}

TEST(list_directory, leaves_no_search_open) {
  const temporary_directory directory;
  directory.write("a/file", "");
  const auto before = open_files();
  for (int i = 0; i < 100; ++i) {
    sys::list_directory(directory.name());
    sys::list_directory(directory.file("none"));
    files_below(directory.name());
    files_below(directory.file("none"));
  }
  EXPECT_EQ(open_files(), before);
}

TEST(get_directory_files, deep_nesting_costs_no_stack_and_no_open_files) {
  const temporary_directory directory;
  const auto before = open_files();
  auto nested = directory.name();
  for (int depth = 0; depth < 1100; ++depth) sys::io::mkdir(nested += "/d");
  ASSERT_EQ(sys::store_file(nested + "/file", ""), 0);
  EXPECT_EQ(files_below(directory.name()), (paths8{nested + "/file"}));
  EXPECT_EQ(open_files(), before);
}

/// Ends the process with 0 if loading `path` as an ordinary user gives a filesystem_error.
[[noreturn]] void load_as_ordinary_user(const std::string& path) {
  if (geteuid() == 0 && seteuid(65534) != 0) _exit(2);
  try {
    std::string contents;
    std::ignore = sys::load_file(path, contents);
  } catch (const boost::filesystem::filesystem_error&) {
    _exit(0);
  }
  _exit(1);
}

TEST(load_file, pipe_without_a_writer_gives_1_at_once) {
  const temporary_directory directory;
  ASSERT_EQ(mkfifo(directory.file("pipe").c_str(), 0600), 0);
  std::string contents = "before";
  EXPECT_EQ(sys::load_file(directory.file("pipe"), contents), 1);
  EXPECT_EQ(contents, "before");
}

TEST(load_file, device_of_no_size_is_empty) {
  std::string contents = "before";
  EXPECT_EQ(sys::load_file("/dev/null", contents), 0);
  EXPECT_EQ(contents, "");
}

TEST(load_file, file_that_reports_size_0_is_empty) {
  std::string contents = "before";
  EXPECT_EQ(sys::load_file("/proc/version", contents), 0);
  EXPECT_EQ(contents, "");
}

TEST(load_file, status_that_cannot_be_asked_for_passes_the_failure_through) {
  const temporary_directory directory;
  ASSERT_TRUE(orva_test::make_link("loop", directory.file("loop")));
  std::string contents = "before";
  EXPECT_THROW(std::ignore = sys::load_file(directory.file("loop/file"), contents),
               boost::filesystem::filesystem_error);
  EXPECT_THROW(std::ignore = sys::load_file(directory.file(std::string(300, 'n')), contents),
               boost::filesystem::filesystem_error);
  EXPECT_EQ(contents, "before");
}

TEST(load_file, failure_of_the_status_is_caught_without_boost) {
  const temporary_directory directory;
  std::string contents;
  try {
    std::ignore = sys::load_file(directory.file(std::string(300, 'n')), contents);
    FAIL() << "nothing was thrown";
  } catch (const std::runtime_error& failure) {
    EXPECT_STRNE(failure.what(), "");
  }
}

TEST(store_file, status_that_cannot_be_asked_for_passes_the_failure_through) {
  const temporary_directory directory;
  EXPECT_THROW(std::ignore = sys::store_file(directory.file(std::string(300, 'n')), "x"),
               boost::filesystem::filesystem_error);
}

TEST(load_file, directory_that_may_not_be_searched_passes_the_failure_through) {
  const temporary_directory directory;
  const auto path = directory.write("closed/file", "x");
  ASSERT_TRUE(orva_test::set_mode(directory.file("closed"), 0));
  EXPECT_EXIT(load_as_ordinary_user(path), testing::ExitedWithCode(0), "");
  ASSERT_TRUE(orva_test::set_mode(directory.file("closed"), 0700));
}

TEST(store_file, pipe_without_a_reader_gives_1_at_once) {
  const temporary_directory directory;
  ASSERT_EQ(mkfifo(directory.file("pipe").c_str(), 0600), 0);
  EXPECT_EQ(sys::store_file(directory.file("pipe"), "x"), 1);
}

TEST(store_file, full_device_still_gives_0) { EXPECT_EQ(sys::store_file("/dev/full", "x"), 0); }

TEST(store_file, write_that_fails_half_way_still_gives_0) {
  const temporary_directory directory;
  const auto store_beyond_limit = [&] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {1000, 1000};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) _exit(2);
    _exit(sys::store_file(directory.file("file"), std::string(5000, 'x')));
  };
  EXPECT_EXIT(store_beyond_limit(), testing::ExitedWithCode(0), "");
  EXPECT_EQ(directory.read("file"), std::string(1000, 'x'));
}

TEST(create_directory, root_is_there) {
  EXPECT_TRUE(sys::create_directory("/"));
  EXPECT_FALSE(sys::create_directory("//"));
}

TEST(list_directory, is_sorted_by_the_bytes_of_the_name) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  for (const auto* name :
       {"b", "a", "B", "a.b", "ab", ".a", "...", "\xEF\xBF\xBD", "\xF0\x9F\x98\x80", "!", "a b"})
    directory.write("d/"s + name, "");
  paths8 expected = {"d/!",
                     "d/...",
                     "d/.a",
                     "d/B",
                     "d/a",
                     "d/a b",
                     "d/a.b",
                     "d/ab",
                     "d/b",
                     "d/\xEF\xBF\xBD",
                     "d/\xF0\x9F\x98\x80"};
  EXPECT_EQ(sys::list_directory("d"), expected);
}

TEST(get_directory_files, pipes_are_left_out) {
  const temporary_directory directory;
  ASSERT_EQ(mkfifo(directory.file("pipe").c_str(), 0600), 0);
  EXPECT_TRUE(files_below(directory.name()).empty());
}

TEST(get_directory_files, directory_that_utf32_cannot_name_leads_nowhere_else) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  directory.write("d/\xED\xA0\x80/file", "");
  // The path that utf32_to_utf16 makes of it: the walk must not go there again and again.
  directory.write("-1/\xED\xA0\x80/file", "");
  std::vector<strings::ustring32> files;
  sys::get_directory_files(orva_test::utf32(U"d"), files);
  sys::get_directory_files(orva_test::utf32(U"-1"), files);
  EXPECT_TRUE(files.empty());
  EXPECT_EQ(files_below("d").size(), 1u);
}

TEST(get_directory_files, entries_deeper_than_the_longest_path_are_left_out) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  const std::string name(200, 'd');
  for (int depth = 0; depth < 30; ++depth) {
    directory.write(name + "/file", "");
    std::filesystem::create_directory(name);
    std::filesystem::current_path(name);
    std::ofstream("file").put('x');
  }
  for (const auto& file : files_below(directory.name())) EXPECT_TRUE(io::is_file(file));
  EXPECT_LT(files_below(directory.name()).size(), 30u);
}

TEST(path, lone_surrogates_name_files) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  const std::u16string names[] = {{u'\xD800'}, {u'\xDC00', u'\xD800'}};
  for (const auto& name : names) {
    EXPECT_EQ(sys::store_file(name, "x"), 0);
    EXPECT_TRUE(io::is_file(name));
    EXPECT_EQ(sys::list_directory(u"."), (std::vector<strings::ustring16>{u"./" + name}));
    io::remove_file(name);
    EXPECT_FALSE(io::exists(name));
  }
}

}  // namespace
