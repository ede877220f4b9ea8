#include "orva/system/io.hpp"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <string>

#include "tests/support/temporary_directory.hpp"

namespace {

using orva_test::temporary_directory;
namespace io = ORVA_2_18::system::io;
namespace strings = ORVA_2_18::strings;
using namespace std::string_literals;

TEST(io, status_of_each_kind) {
  const temporary_directory directory;
  directory.make_directory("directory");
  directory.write("file", "x");
  std::filesystem::create_symlink("file", directory.file("link_to_file"));
  std::filesystem::create_directory_symlink("directory", directory.file("link_to_directory"));
  std::filesystem::create_symlink("nowhere", directory.file("dangling"));
  std::filesystem::create_symlink("loop", directory.file("loop"));
  ASSERT_EQ(mkfifo(directory.file("pipe").c_str(), 0600), 0);

  struct expected {
    const char* name;
    bool exists, is_directory, is_file;
  };
  const expected table[] = {
      {"directory", true, true, false},    {"directory/", true, true, false},
      {"directory/.", true, true, false},  {"file", true, false, true},
      {"file/", false, false, false},      {"file/below", false, false, false},
      {"link_to_file", true, false, true}, {"link_to_directory", true, true, false},
      {"dangling", false, false, false},   {"loop", false, false, false},
      {"pipe", true, false, false},        {"none", false, false, false},
      {"none/below", false, false, false},
  };
  for (const auto& row : table) {
    const auto path = directory.file(row.name);
    EXPECT_EQ(io::exists(path), row.exists) << row.name;
    EXPECT_EQ(io::is_directory(path), row.is_directory) << row.name;
    EXPECT_EQ(io::is_file(path), row.is_file) << row.name;
  }
}

TEST(io, socket_and_device_are_neither_file_nor_directory) {
  const temporary_directory directory;
  const auto path = directory.file("s");
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  ASSERT_LT(path.size(), sizeof(address.sun_path));
  std::memcpy(address.sun_path, path.data(), path.size());
  const int file = socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_EQ(bind(file, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
  for (const auto& special : {path, "/dev/null"s}) {
    EXPECT_TRUE(io::exists(special));
    EXPECT_FALSE(io::is_file(special));
    EXPECT_FALSE(io::is_directory(special));
  }
  close(file);
}

TEST(io, empty_and_overlong_paths_and_paths_with_a_zero_unit_name_nothing) {
  const temporary_directory directory;
  const auto file = directory.write("file", "x");
  for (const auto& path : {""s, std::string(100'000, 'a'), file + '\0', file + "\0.txt"s, "\0"s}) {
    EXPECT_FALSE(io::exists(path));
    EXPECT_FALSE(io::is_file(path));
    EXPECT_FALSE(io::is_directory(path));
    io::mkdir(path);
    io::remove_file(path);
    io::remove_dir(path);
    io::move(path, file);
    io::move(file, path);
  }
  EXPECT_EQ(directory.read("file"), "x");
}

TEST(io, exists_takes_paths_of_all_widths) {
  const temporary_directory directory;
  const strings::ustring8 path = directory.write("file", "x");
  const strings::ustring16 path16(std::u16string(path.begin(), path.end()));
  const strings::ustring32 path32(std::u32string(path.begin(), path.end()));
  EXPECT_TRUE(io::exists(path) && io::exists(path.c_str()) && io::exists(std::string(path)));
  EXPECT_TRUE(io::exists(path16) && io::exists(path16.c_str()) && io::exists(std::u16string(path16)));
  EXPECT_TRUE(io::exists(path32) && io::exists(path32.c_str()) && io::exists(std::u32string(path32)));
}

TEST(io, mkdir_makes_one_directory_and_no_parents) {
  const temporary_directory directory;
  io::mkdir(directory.file("a"));
  io::mkdir(directory.file("b/c"));
  EXPECT_TRUE(io::is_directory(directory.file("a")));
  EXPECT_FALSE(io::exists(directory.file("b")));
  io::mkdir(directory.file("a"));
  EXPECT_TRUE(io::is_directory(directory.file("a")));
}

TEST(io, move_takes_the_new_name_first) {
  const temporary_directory directory;
  directory.write("old", "text");
  io::move(directory.file("new"), directory.file("old"));
  EXPECT_EQ(directory.read("new"), "text");
  EXPECT_FALSE(io::exists(directory.file("old")));
}

TEST(io, move_takes_two_widths_at_once) {
  const temporary_directory directory;
  const auto old_name = directory.write("old", "text");
  const auto new_name = directory.file("new");
  io::move(std::u16string(new_name.begin(), new_name.end()), old_name);
  EXPECT_EQ(directory.read("new"), "text");
}

TEST(io, move_renames_directories_and_links_themselves) {
  const temporary_directory directory;
  directory.write("old/file", "text");
  std::filesystem::create_symlink("nowhere", directory.file("link"));
  io::move(directory.file("new"), directory.file("old"));
  io::move(directory.file("moved"), directory.file("link"));
  EXPECT_EQ(directory.read("new/file"), "text");
  EXPECT_TRUE(std::filesystem::is_symlink(directory.file("moved")));
}

TEST(io, move_onto_a_name_that_is_taken_leaves_both) {
  const temporary_directory directory;
  directory.write("a", "a");
  directory.write("b", "b");
  directory.make_directory("empty");
  directory.make_directory("other");
  io::move(directory.file("b"), directory.file("a"));
  io::move(directory.file("empty"), directory.file("a"));
  io::move(directory.file("empty"), directory.file("other"));
  EXPECT_EQ(directory.read("a"), "a");
  EXPECT_EQ(directory.read("b"), "b");
  EXPECT_TRUE(io::is_directory(directory.file("other")));
}

TEST(io, move_of_nothing_does_nothing) {
  const temporary_directory directory;
  io::move(directory.file("new"), directory.file("none"));
  EXPECT_FALSE(io::exists(directory.file("new")));
}

TEST(io, move_of_a_directory_below_itself_does_nothing) {
  const temporary_directory directory;
  directory.make_directory("a");
  io::move(directory.file("a/b"), directory.file("a"));
  EXPECT_TRUE(io::is_directory(directory.file("a")));
  EXPECT_FALSE(io::exists(directory.file("a/b")));
}

TEST(io, remove_file_removes_files_and_links_and_no_directory) {
  const temporary_directory directory;
  directory.write("file", "x");
  directory.write("target", "x");
  directory.make_directory("directory");
  std::filesystem::create_symlink("target", directory.file("link"));
  for (const auto* name : {"file", "link", "directory", "none"}) io::remove_file(directory.file(name));
  EXPECT_FALSE(io::exists(directory.file("file")));
  EXPECT_FALSE(std::filesystem::is_symlink(directory.file("link")));
  EXPECT_TRUE(io::exists(directory.file("target")));
  EXPECT_TRUE(io::exists(directory.file("directory")));
}

TEST(io, remove_dir_removes_an_empty_directory_and_nothing_else) {
  const temporary_directory directory;
  directory.make_directory("empty");
  directory.write("full/file", "x");
  for (const auto* name : {"empty", "full", "full/file", "none"}) io::remove_dir(directory.file(name));
  EXPECT_FALSE(io::exists(directory.file("empty")));
  EXPECT_EQ(directory.read("full/file"), "x");
}

}  // namespace
