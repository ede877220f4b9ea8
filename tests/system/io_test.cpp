#include "orva/system/io.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/entries.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using orva_test::make_link;
using orva_test::no_links;
using orva_test::temporary_directory;
namespace io = ORVA_NAMESPACE::system::io;
namespace strings = ORVA_NAMESPACE::strings;
using namespace std::string_literals;

TEST(io, status_of_each_kind) {
  const temporary_directory directory;
  directory.make_directory("directory");
  directory.write("file", "x");

  struct expected {
    const char* name;
    bool exists, is_directory, is_file;
  };
  const expected table[] = {
      {"directory", true, true, false},    {"directory/", true, true, false},
      {"directory/.", true, true, false},  {"file", true, false, true},
      {"file/below", false, false, false}, {"none", false, false, false},
      {"none/below", false, false, false},
  };
  for (const auto& row : table) {
    const auto path = directory.file(row.name);
    EXPECT_EQ(io::exists(path), row.exists) << row.name;
    EXPECT_EQ(io::is_directory(path), row.is_directory) << row.name;
    EXPECT_EQ(io::is_file(path), row.is_file) << row.name;
  }
}

TEST(io, separator_after_a_file_names_nothing) {
  if (orva_test::on_windows) GTEST_SKIP() << "the runtimes of Windows differ";
  const temporary_directory directory;
  EXPECT_FALSE(io::exists(directory.write("file", "x") + '/'));
}

TEST(io, status_is_that_of_the_target_of_a_link) {
  const temporary_directory directory;
  directory.make_directory("directory");
  directory.write("file", "x");
  if (!make_link("file", directory.file("to_file"))) GTEST_SKIP() << no_links;
  ASSERT_TRUE(make_link("directory", directory.file("to_directory")));
  ASSERT_TRUE(make_link("nowhere", directory.file("dangling")));
  ASSERT_TRUE(make_link("loop", directory.file("loop")));
  EXPECT_TRUE(io::is_file(directory.file("to_file")));
  EXPECT_TRUE(io::is_directory(directory.file("to_directory")));
  EXPECT_FALSE(io::is_file(directory.file("to_directory")));
  EXPECT_FALSE(io::exists(directory.file("dangling")));
  EXPECT_FALSE(io::exists(directory.file("loop")));
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
  const strings::ustring16 path16(path.begin(), path.end());
  const strings::ustring32 path32(path.begin(), path.end());
  EXPECT_TRUE(io::exists(path) && io::exists(path.c_str()) && io::exists(std::string(path)));
  EXPECT_TRUE(io::exists(path16) && io::exists(path16.c_str()) && io::exists(strings::wide_string(path16)));
  EXPECT_TRUE(io::exists(path32) && io::exists(path32.c_str()) &&
              io::exists(std::basic_string<strings::code_unit32>(path32)));
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
  io::move(strings::wide_string(new_name.begin(), new_name.end()), old_name);
  EXPECT_EQ(directory.read("new"), "text");
}

TEST(io, move_renames_directories) {
  const temporary_directory directory;
  directory.write("old/file", "text");
  io::move(directory.file("new"), directory.file("old"));
  EXPECT_EQ(directory.read("new/file"), "text");
  EXPECT_FALSE(io::exists(directory.file("old")));
}

TEST(io, move_renames_links_themselves) {
  const temporary_directory directory;
  if (!make_link("nowhere", directory.file("link"))) GTEST_SKIP() << no_links;
  io::move(directory.file("moved"), directory.file("link"));
  EXPECT_TRUE(std::filesystem::is_symlink(directory.file("moved")));
}

TEST(io, move_to_an_existing_name_changes_nothing) {
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

TEST(io, remove_file_removes_files_and_no_directory) {
  const temporary_directory directory;
  directory.write("file", "x");
  directory.make_directory("directory");
  for (const auto* name : {"file", "directory", "none"}) io::remove_file(directory.file(name));
  EXPECT_FALSE(io::exists(directory.file("file")));
  EXPECT_TRUE(io::exists(directory.file("directory")));
}

TEST(io, remove_file_removes_a_link_and_not_its_target) {
  const temporary_directory directory;
  directory.write("target", "x");
  if (!make_link("target", directory.file("link"))) GTEST_SKIP() << no_links;
  io::remove_file(directory.file("link"));
  EXPECT_FALSE(std::filesystem::is_symlink(directory.file("link")));
  EXPECT_TRUE(io::exists(directory.file("target")));
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
