// list_directory and get_directory_files.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <random>
#include <string>

#include "orva/strings/ustring_for.hpp"
#include "orva/system/file_utility.hpp"
#include "orva/system/io.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/support/working_directory.hpp"

namespace {

using orva_test::temporary_directory;
using orva_test::working_directory;
namespace strings = ORVA_2_18::strings;
namespace sys = ORVA_2_18::system;
using namespace std::string_literals;
using paths8 = std::vector<strings::ustring8>;
using paths16 = std::vector<strings::ustring16>;
using paths32 = std::vector<strings::ustring32>;

template <typename Path>
auto files_below(const Path& path) {
  std::vector<strings::ustring_for<Path>> files;
  sys::get_directory_files(path, files);
  return files;
}

std::ptrdiff_t open_files() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                       std::filesystem::directory_iterator());
}

TEST(list_directory, gives_files_and_directories_as_full_paths_and_does_not_descend) {
  const temporary_directory directory;
  directory.write("b/c", "");
  directory.write("a", "");
  EXPECT_EQ(sys::list_directory(directory.name()), (paths8{directory.file("a"), directory.file("b")}));
}

TEST(list_directory, gives_the_class_of_the_path) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  directory.write("d/\xC3\xA4", "");
  EXPECT_EQ(sys::list_directory("d"), (paths8{"d/\xC3\xA4"}));
  EXPECT_EQ(sys::list_directory("d"s), (paths8{"d/\xC3\xA4"}));
  EXPECT_EQ(sys::list_directory(strings::ustring8("d")), (paths8{"d/\xC3\xA4"}));
  EXPECT_EQ(sys::list_directory(u"d"), (paths16{u"d/\u00E4"}));
  EXPECT_EQ(sys::list_directory(u"d"s), (paths16{u"d/\u00E4"}));
  EXPECT_EQ(sys::list_directory(strings::ustring16(u"d")), (paths16{u"d/\u00E4"}));
  EXPECT_EQ(sys::list_directory(U"d"), (paths32{U"d/\u00E4"}));
  EXPECT_EQ(sys::list_directory(U"d"s), (paths32{U"d/\u00E4"}));
  EXPECT_EQ(sys::list_directory(strings::ustring32(U"d")), (paths32{U"d/\u00E4"}));
}

TEST(list_directory, is_sorted_by_the_bytes_of_the_name) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  for (const auto* name :
       {"b", "a", "B", "a.b", "ab", ".a", "...", "\xEF\xBF\xBD", "\xF0\x9F\x98\x80", "!", "a b"})
    directory.write("d/"s + name, "");
  EXPECT_EQ(sys::list_directory("d"), (paths8{"d/!", "d/...", "d/.a", "d/B", "d/a", "d/a b", "d/a.b", "d/ab",
                                              "d/b", "d/\xEF\xBF\xBD", "d/\xF0\x9F\x98\x80"}));
}

TEST(list_directory, what_is_no_readable_directory_gives_nothing) {
  const temporary_directory directory;
  directory.make_directory("empty");
  directory.write("file", "");
  for (const auto* name : {"none", "empty", "file", "none/none"})
    EXPECT_TRUE(sys::list_directory(directory.file(name)).empty()) << name;
  EXPECT_TRUE(sys::list_directory(std::string(100'000, 'a')).empty());
}

TEST(list_directory, zero_unit_in_the_path_gives_nothing) {
  const temporary_directory directory;
  directory.write("file", "");
  EXPECT_TRUE(sys::list_directory(directory.name() + '\0').empty());
  EXPECT_TRUE(sys::list_directory("\0"s).empty());
  EXPECT_TRUE(files_below(directory.name() + "\0x"s).empty());
}

TEST(list_directory, separator_at_the_end_is_doubled) {
  const temporary_directory directory;
  directory.write("file", "");
  EXPECT_EQ(sys::list_directory(directory.name() + "/"), (paths8{directory.name() + "//file"}));
}

TEST(list_directory, empty_path_lists_the_root) {
  const auto paths = sys::list_directory("");
  EXPECT_NE(std::find(paths.begin(), paths.end(), "/dev"), paths.end());
}

TEST(list_directory, link_to_a_directory_is_listed_through) {
  const temporary_directory directory;
  directory.write("real/file", "");
  std::filesystem::create_directory_symlink("real", directory.file("link"));
  EXPECT_EQ(sys::list_directory(directory.file("link")), (paths8{directory.file("link/file")}));
}

TEST(list_directory, invalid_utf8_lists_the_path_minus_1) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  directory.write("-1/file", "");
  EXPECT_EQ(sys::list_directory("\xFF"), (paths8{"-1/file"}));
  EXPECT_EQ(files_below("\xFF"), (paths8{"-1/file"}));
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

TEST(list_directory, relative_wide_path_that_begins_with_the_swapped_mark_returns) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  directory.write("\xEF\xBF\xBE/file", "x");
  const std::u16string path = {u'\xFFFE'};
  EXPECT_EQ(sys::list_directory(path), (paths16{path + u"/file"}));
  EXPECT_EQ(files_below(path), (paths16{path + u"/file"}));
}

TEST(list_directory, utf32_tells_true_code_points_which_do_not_open_above_the_basic_plane) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  directory.write("d/\xF0\x9F\x98\x80", "x");
  EXPECT_EQ(sys::list_directory(U"d"), (paths32{U"d/\U0001F600"}));
  EXPECT_FALSE(sys::io::exists(U"d/\U0001F600"));
  EXPECT_EQ(files_below(U"d"), (paths32{U"d/\U0001F600"}));
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

TEST(list_directory, many_entries_are_all_told_and_sorted) {
  const temporary_directory directory;
  paths8 expected;
  for (int i = 0; i < 3000; ++i) expected.push_back(directory.write("entry_" + std::to_string(i), ""));
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(sys::list_directory(directory.name()), expected);
}

TEST(get_directory_files, gives_files_only_also_from_subdirectories) {
  const temporary_directory directory;
  directory.write("b/c/deep", "");
  directory.write("b/a", "");
  directory.make_directory("empty");
  directory.write("z", "");
  directory.write("a", "");
  EXPECT_EQ(files_below(directory.name()), (paths8{directory.file("a"), directory.file("b/a"),
                                                   directory.file("b/c/deep"), directory.file("z")}));
}

TEST(get_directory_files, files_of_a_directory_stand_in_the_place_of_its_name) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  for (const auto* name : {"d/a", "d/b/x", "d/b/a/y", "d/b.txt", "d/c"}) directory.write(name, "");
  EXPECT_EQ(files_below("d"), (paths8{"d/a", "d/b/a/y", "d/b/x", "d/b.txt", "d/c"}));
}

TEST(get_directory_files, appends_and_does_not_clear) {
  const temporary_directory directory;
  const auto file = directory.write("file", "");
  paths8 files = {"before"};
  sys::get_directory_files(directory.name(), files);
  sys::get_directory_files(directory.file("none"), files);
  sys::get_directory_files(file, files);
  EXPECT_EQ(files, (paths8{"before", file}));
}

TEST(get_directory_files, gives_the_class_of_the_path) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  directory.write("d/e/\xC3\xA4", "");
  EXPECT_EQ(files_below(u"d"), (paths16{u"d/e/\u00E4"}));
  EXPECT_EQ(files_below(U"d"), (paths32{U"d/e/\u00E4"}));
}

TEST(get_directory_files, what_has_no_read_bit_is_left_out) {
  const temporary_directory directory;
  const auto readable = directory.write("readable", "");
  ASSERT_EQ(chmod(directory.write("closed", "").c_str(), 0333), 0);
  directory.write("closed_directory/file", "");
  ASSERT_EQ(chmod(directory.file("closed_directory").c_str(), 0377), 0);
  EXPECT_EQ(files_below(directory.name()), (paths8{readable}));
  EXPECT_EQ(sys::list_directory(directory.name()).size(), 3u);
  ASSERT_EQ(chmod(directory.file("closed_directory").c_str(), 0700), 0);
}

TEST(get_directory_files, pipes_and_dangling_links_are_left_out) {
  const temporary_directory directory;
  ASSERT_EQ(mkfifo(directory.file("pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("nowhere", directory.file("dangling"));
  EXPECT_TRUE(files_below(directory.name()).empty());
}

TEST(get_directory_files, links_are_followed) {
  const temporary_directory directory;
  directory.write("real/file", "");
  std::filesystem::create_directory_symlink("real", directory.file("link"));
  std::filesystem::create_symlink("real/file", directory.file("link_to_file"));
  EXPECT_EQ(
      files_below(directory.name()),
      (paths8{directory.file("link/file"), directory.file("link_to_file"), directory.file("real/file")}));
}

TEST(get_directory_files, link_that_leads_back_up_goes_round_until_the_system_refuses) {
  const temporary_directory directory;
  directory.write("file", "");
  std::filesystem::create_directory_symlink(".", directory.file("loop"));
  const auto files = files_below(directory.name());
  EXPECT_GT(files.size(), 10u);
  EXPECT_LT(files.size(), 1000u);
  EXPECT_EQ(files.front(), directory.file("file"));
  EXPECT_EQ(files[1], directory.file("loop/file"));
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

TEST(get_directory_files, what_lies_deeper_than_a_path_can_tell_is_left_out) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  const std::string name(200, 'd');
  for (int depth = 0; depth < 30; ++depth) {
    directory.write(name + "/file", "");
    std::filesystem::create_directory(name);
    std::filesystem::current_path(name);
    std::ofstream("file").put('x');
  }
  for (const auto& file : files_below(directory.name())) EXPECT_TRUE(sys::io::is_file(file));
  EXPECT_LT(files_below(directory.name()).size(), 30u);
}

TEST(get_directory_files, directory_that_utf32_cannot_name_is_not_entered) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  directory.write("d/\xF0\x9F\x98\x80/file", "");
  directory.write("d/\xED\xA0\x80/file", "");
  // What utf32_to_utf16 makes of the second: it must not lead the walk there, round and round.
  directory.write("-1/\xED\xA0\x80/file", "");
  EXPECT_TRUE(files_below(U"d").empty());
  EXPECT_TRUE(files_below(U"-1").empty());
  EXPECT_EQ(files_below(u"d").size(), 2u);
  EXPECT_EQ(files_below("d").size(), 2u);
}

/// All regular files below `directory`, found by the standard library.
paths8 files_by_standard_library(const std::filesystem::path& directory) {
  paths8 files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(directory))
    if (entry.is_regular_file()) files.push_back(entry.path().string());
  std::sort(files.begin(), files.end());
  return files;
}

TEST(get_directory_files, random_trees_agree_with_the_standard_library) {
  for (unsigned seed = 1; seed <= 10; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const temporary_directory directory;
    std::vector<std::string> directories = {""};
    for (int i = 0; i < 60; ++i) {
      const auto name = directories[random() % directories.size()] + "n" + std::to_string(random() % 500);
      if (std::filesystem::exists(directory.file(name))) continue;
      if (random() % 2 == 0) {
        directory.make_directory(name);
        directories.push_back(name + "/");
      } else {
        directory.write(name, "");
      }
    }
    auto files = files_below(directory.name());
    std::sort(files.begin(), files.end());
    EXPECT_EQ(files, files_by_standard_library(directory.path()));
  }
}

}  // namespace
