// list_directory and get_directory_files.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <string>

#include "orva/strings/ustring_for.hpp"
#include "orva/system/file_utility.hpp"
#include "orva/system/io.hpp"
#include "tests/support/entries.hpp"
#include "tests/support/native_path.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/support/wide_text.hpp"
#include "tests/support/working_directory.hpp"

namespace {

using orva_test::native;
using orva_test::separator;
using orva_test::temporary_directory;
using orva_test::utf16;
using orva_test::utf32;
using orva_test::working_directory;
namespace strings = ORVA_NAMESPACE::strings;
namespace sys = ORVA_NAMESPACE::system;
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
  const paths8 in_utf8 = {native("d/\xC3\xA4")};
  EXPECT_EQ(sys::list_directory("d"), in_utf8);
  EXPECT_EQ(sys::list_directory("d"s), in_utf8);
  EXPECT_EQ(sys::list_directory(strings::ustring8("d")), in_utf8);
  const paths16 in_utf16 = {native(utf16(u"d/\u00E4"))};
  EXPECT_EQ(sys::list_directory(utf16(u"d").c_str()), in_utf16);
  EXPECT_EQ(sys::list_directory(strings::wide_string(utf16(u"d"))), in_utf16);
  EXPECT_EQ(sys::list_directory(utf16(u"d")), in_utf16);
  const paths32 in_utf32 = {native(utf32(U"d/\u00E4"))};
  EXPECT_EQ(sys::list_directory(utf32(U"d").c_str()), in_utf32);
  EXPECT_EQ(sys::list_directory(std::basic_string<strings::code_unit32>(utf32(U"d"))), in_utf32);
  EXPECT_EQ(sys::list_directory(utf32(U"d")), in_utf32);
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
  const std::string marked = directory.name() + separator;
  EXPECT_EQ(sys::list_directory(marked), (paths8{marked + separator + "file"}));
}

TEST(list_directory, link_to_a_directory_is_listed_through) {
  const temporary_directory directory;
  directory.write("real/file", "");
  if (!orva_test::make_link("real", directory.file("link"))) GTEST_SKIP() << orva_test::no_links;
  EXPECT_EQ(sys::list_directory(directory.file("link")), (paths8{directory.file("link/file")}));
}

TEST(list_directory, invalid_utf8_lists_the_path_minus_1) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  directory.write("-1/file", "");
  EXPECT_EQ(sys::list_directory("\xFF"), (paths8{native("-1/file")}));
  EXPECT_EQ(files_below("\xFF"), (paths8{native("-1/file")}));
}

TEST(list_directory, relative_wide_path_that_begins_with_the_swapped_mark_returns) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  directory.write("\xEF\xBF\xBE/file", "x");
  const strings::ustring16 path = {strings::code_unit16{0xFFFE}};
  EXPECT_EQ(sys::list_directory(path), (paths16{native(path + utf16(u"/file"))}));
  EXPECT_EQ(files_below(path), (paths16{native(path + utf16(u"/file"))}));
}

TEST(list_directory, utf32_has_true_code_points_which_do_not_open_above_the_basic_plane) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  directory.write("d/\xF0\x9F\x98\x80", "x");
  const strings::ustring32 path = native(utf32(U"d/\U0001F600"));
  EXPECT_EQ(sys::list_directory(utf32(U"d")), (paths32{path}));
  EXPECT_FALSE(sys::io::exists(path));
  EXPECT_EQ(files_below(utf32(U"d")), (paths32{path}));
}

TEST(list_directory, many_entries_are_all_listed_and_sorted) {
  const temporary_directory directory;
  paths8 expected;
  for (int i = 0; i < 3000; ++i) expected.push_back(directory.write("entry_" + std::to_string(i), ""));
  std::sort(expected.begin(), expected.end());
  auto paths = sys::list_directory(directory.name());
  if (orva_test::on_windows) std::sort(paths.begin(), paths.end());  // which has its own order
  EXPECT_EQ(paths, expected);
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

TEST(get_directory_files, files_of_a_directory_are_listed_in_place_of_its_name) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  for (const auto* name : {"d/a", "d/b/x", "d/b/a/y", "d/b.txt", "d/c"}) directory.write(name, "");
  EXPECT_EQ(files_below("d"),
            (paths8{native("d/a"), native("d/b/a/y"), native("d/b/x"), native("d/b.txt"), native("d/c")}));
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
  EXPECT_EQ(files_below(utf16(u"d")), (paths16{native(utf16(u"d/e/\u00E4"))}));
  EXPECT_EQ(files_below(utf32(U"d")), (paths32{native(utf32(U"d/e/\u00E4"))}));
}

TEST(get_directory_files, what_has_no_read_bit_is_left_out) {
  const temporary_directory directory;
  const auto readable = directory.write("readable", "");
  directory.write("closed_directory/file", "");
  if (!orva_test::set_mode(directory.write("closed", ""), 0333)) GTEST_SKIP() << orva_test::always_readable;
  ASSERT_TRUE(orva_test::set_mode(directory.file("closed_directory"), 0377));
  EXPECT_EQ(files_below(directory.name()), (paths8{readable}));
  EXPECT_EQ(sys::list_directory(directory.name()).size(), 3u);
  ASSERT_TRUE(orva_test::set_mode(directory.file("closed_directory"), 0700));
}

TEST(get_directory_files, dangling_links_are_left_out) {
  const temporary_directory directory;
  if (!orva_test::make_link("nowhere", directory.file("dangling"))) GTEST_SKIP() << orva_test::no_links;
  EXPECT_TRUE(files_below(directory.name()).empty());
}

TEST(get_directory_files, links_are_followed) {
  const temporary_directory directory;
  directory.write("real/file", "");
  if (!orva_test::make_link("real", directory.file("link"))) GTEST_SKIP() << orva_test::no_links;
  if (!orva_test::make_link("real/file", directory.file("link_to_file"))) GTEST_SKIP() << orva_test::no_links;
  EXPECT_EQ(
      files_below(directory.name()),
      (paths8{directory.file("link/file"), directory.file("link_to_file"), directory.file("real/file")}));
}

TEST(get_directory_files, link_that_leads_back_up_goes_round_until_the_system_refuses) {
  const temporary_directory directory;
  directory.write("file", "");
  if (!orva_test::make_link(".", directory.file("loop"))) GTEST_SKIP() << orva_test::no_links;
  const auto files = files_below(directory.name());
  EXPECT_GT(files.size(), 10u);
  EXPECT_LT(files.size(), 1000u);
  EXPECT_EQ(files.front(), directory.file("file"));
  EXPECT_EQ(files[1], directory.file("loop/file"));
}

TEST(get_directory_files, deep_nesting_costs_no_stack) {
  const temporary_directory directory;
  std::string nested = directory.name();
  int depth = 0;
  const int deepest =
      orva_test::on_windows ? 200 : 1100;  // paths are longer than 1,000 units there, or refused
  for (; depth < deepest; ++depth) {
    sys::io::mkdir(nested + separator + "d");
    if (!sys::io::is_directory(nested + separator + "d"))
      break;  // longer than the longest path of the system
    nested += separator;
    nested += 'd';
  }
  EXPECT_GT(depth, 50);
  if (sys::store_file(nested + separator + "f", "") != 0) nested = nested.substr(0, nested.size() - 2);
  ASSERT_EQ(sys::store_file(nested + separator + "f", ""), 0);
  EXPECT_EQ(files_below(directory.name()), (paths8{nested + separator + "f"}));
}

TEST(get_directory_files, directory_that_utf32_cannot_name_is_not_entered) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  directory.write("d/\xF0\x9F\x98\x80/file", "");
  EXPECT_TRUE(files_below(utf32(U"d")).empty());
  EXPECT_EQ(files_below(utf16(u"d")).size(), 1u);
  EXPECT_EQ(files_below("d").size(), 1u);
}

/// All regular files below `directory`, found by the standard library.
paths8 files_by_standard_library(const std::filesystem::path& directory) {
  paths8 files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(directory))
    if (entry.is_regular_file()) files.push_back(orva_test::text_of(entry.path()));
  std::sort(files.begin(), files.end());
  return files;
}

TEST(get_directory_files, random_trees_agree_with_the_standard_library) {
  orva_test::random_engine random;
  for (int run = 0; run < 10; ++run) {
    const temporary_directory directory;
    std::vector<std::string> directories = {""};
    for (int i = 0; i < 60; ++i) {
      const auto name = directories[random() % directories.size()] + "n" + std::to_string(random() % 500);
      if (std::filesystem::exists(orva_test::path_of(directory.file(name)))) continue;
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
