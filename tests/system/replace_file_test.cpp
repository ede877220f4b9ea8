// replace_file on the real system: what it replaces, creates, follows and refuses.
#include "orva/system/replace_file.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

#include "orva/system/file_utility.hpp"
#include "tests/support/native_path.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/support/working_directory.hpp"

namespace {

using orva_test::temporary_directory;
using orva_test::working_directory;
namespace sys = ORVA_NAMESPACE::system;
using error = sys::replace_file_result::error;
using namespace std::string_literals;

std::size_t entries_of(const temporary_directory& directory) {
  std::size_t count = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(directory.path())) ++count;
  return count;
}

TEST(replace_file, documentation_example) {
  const temporary_directory directory;
  const auto path = directory.write("settings.cfg", "old");
  const std::string text = "new";
  const auto saved = sys::replace_file(path, text);
  if (saved.code != sys::replace_file_result::error::none)
    std::cerr << "settings.cfg: " << describe(saved) << '\n';
  EXPECT_EQ(directory.read("settings.cfg"), "new");
}

TEST(replace_file, creates_a_file_that_does_not_exist) {
  const temporary_directory directory;
  const auto result = sys::replace_file(directory.file("file"), "contents");
  EXPECT_EQ(result.code, error::none);
  EXPECT_FALSE(result.reason);
  EXPECT_EQ(describe(result), "");
  EXPECT_EQ(directory.read("file"), "contents");
  EXPECT_EQ(entries_of(directory), 1u);
}

TEST(replace_file, replaces_by_contents_of_any_size_and_bytes) {
  const temporary_directory directory;
  for (const auto size : {0, 1, 4096, 1'000'000}) {
    std::string contents(static_cast<std::size_t>(size), '\0');
    for (std::size_t i = 0; i < contents.size(); ++i) contents[i] = static_cast<char>(i * 7);
    EXPECT_EQ(sys::replace_file(directory.file("file"), contents).code, error::none);
    EXPECT_TRUE(directory.read("file") == contents) << size;
  }
  EXPECT_EQ(entries_of(directory), 1u);
}

TEST(replace_file, takes_paths_beyond_ascii) {
  const temporary_directory directory;
  const auto path = directory.path() / u"\u00E4\u65E5";
  EXPECT_EQ(sys::replace_file(path, "1").code, error::none);
  EXPECT_EQ(sys::replace_file(orva_test::text_of(path), "2").code, error::none);
  std::string contents;
  EXPECT_EQ(sys::load_file(path, contents), 0);
  EXPECT_EQ(contents, "2");
  EXPECT_EQ(entries_of(directory), 1u);
}

TEST(replace_file, path_without_directory_is_in_the_working_directory) {
  const temporary_directory directory;
  const working_directory change(directory.name());
  EXPECT_EQ(sys::replace_file("file", "contents").code, error::none);
  EXPECT_EQ(sys::replace_file("./file", "again").code, error::none);
  EXPECT_EQ(directory.read("file"), "again");
  EXPECT_EQ(entries_of(directory), 1u);
}

TEST(replace_file, name_of_the_greatest_length_is_replaced) {
  const temporary_directory directory;
  const std::string name(200, 'n');
  EXPECT_EQ(sys::replace_file(directory.file(name), "1").code, error::none);
  EXPECT_EQ(sys::replace_file(directory.file(name), "2").code, error::none);
  EXPECT_EQ(directory.read(name), "2");
}

TEST(replace_file, missing_directory_is_reported) {
  const temporary_directory directory;
  const auto result = sys::replace_file(directory.file("missing/file"), "contents");
  EXPECT_EQ(result.code, error::no_directory);
  EXPECT_EQ(result.reason, std::errc::no_such_file_or_directory);
  EXPECT_EQ(describe(result), "The directory of the file could not be opened: " + result.reason.message());
  EXPECT_EQ(entries_of(directory), 0u);
}

TEST(replace_file, file_in_place_of_the_directory_is_reported) {
  const temporary_directory directory;
  directory.write("file", "old");
  EXPECT_NE(sys::replace_file(directory.file("file/below"), "contents").code, error::none);
  EXPECT_EQ(directory.read("file"), "old");
  EXPECT_EQ(entries_of(directory), 1u);
}

TEST(replace_file, directory_is_no_file) {
  const temporary_directory directory;
  const auto below = directory.make_directory("below");
  EXPECT_EQ(sys::replace_file(below, "contents").code, error::not_a_file);
  EXPECT_NE(sys::replace_file(below + orva_test::separator, "contents").code, error::none);
  EXPECT_NE(sys::replace_file(directory.file("file") + orva_test::separator, "contents").code, error::none);
  EXPECT_NE(sys::replace_file(below + orva_test::native("/."s), "contents").code, error::none);
  EXPECT_NE(sys::replace_file(below + orva_test::native("/.."s), "contents").code, error::none);
  EXPECT_NE(sys::replace_file(".", "contents").code, error::none);
  EXPECT_EQ(entries_of(directory), 1u);
}

TEST(replace_file, empty_path_and_path_with_a_zero_unit_are_bad) {
  const temporary_directory directory;
  const auto path = directory.write("file", "old");
  EXPECT_EQ(sys::replace_file("", "contents").code, error::bad_path);
  const auto result = sys::replace_file(path + '\0' + "more", "contents");
  EXPECT_EQ(result.code, error::bad_path);
  EXPECT_EQ(describe(result), "The path is empty or has a zero character.");
  EXPECT_EQ(directory.read("file"), "old");
  EXPECT_EQ(entries_of(directory), 1u);
}

/// A directory with links; where a process may not make links, `is_possible` is false.
class directory_with_links {
 public:
  bool link(const std::string& name, const std::string& target) const {
    std::error_code refused;
    std::filesystem::create_symlink(target, directory_.path() / name, refused);
    return !refused;
  }

  const temporary_directory* operator->() const { return &directory_; }
  const temporary_directory& operator*() const { return directory_; }

 private:
  temporary_directory directory_;
};

TEST(replace_file, link_stays_and_its_file_is_replaced) {
  const directory_with_links directory;
  directory->write("data/file", "old");
  directory->make_directory("links");
  if (!directory.link("relative", orva_test::native("data/file"s))) GTEST_SKIP() << "no links here";
  ASSERT_TRUE(directory.link("links/up", orva_test::native("../data/file"s)));
  ASSERT_TRUE(directory.link("absolute", directory->file("data/file")));
  ASSERT_TRUE(directory.link("links/chain", "up"));
  for (const auto* name : {"relative", "links/up", "absolute", "links/chain"}) {
    EXPECT_EQ(sys::replace_file(directory->file(name), name).code, error::none) << name;
    EXPECT_EQ(directory->read("data/file"), name);
    EXPECT_TRUE(std::filesystem::is_symlink(directory->path() / name)) << name;
  }
  EXPECT_EQ(entries_of(*directory), 4u);
}

TEST(replace_file, link_through_a_linked_directory_leads_from_the_real_directory) {
  const directory_with_links directory;
  directory->write("real/config/file", "old");
  if (!directory.link("short", orva_test::native("real/config"s))) GTEST_SKIP() << "no links here";
  ASSERT_TRUE(directory.link("real/config/link", orva_test::native("../other"s)));
  EXPECT_EQ(sys::replace_file(directory->file("short/link"), "new").code, error::none);
  EXPECT_EQ(directory->read("real/other"), "new");
}

TEST(replace_file, file_that_a_link_leads_to_is_created) {
  const directory_with_links directory;
  if (!directory.link("link", "missing")) GTEST_SKIP() << "no links here";
  EXPECT_EQ(sys::replace_file(directory->file("link"), "new").code, error::none);
  EXPECT_EQ(directory->read("missing"), "new");
  EXPECT_EQ(entries_of(*directory), 2u);
}

TEST(replace_file, circle_of_links_is_an_error) {
  const directory_with_links directory;
  if (!directory.link("a", "b")) GTEST_SKIP() << "no links here";
  ASSERT_TRUE(directory.link("b", "a"));
  ASSERT_TRUE(directory.link("self", "self"));
  for (const auto* name : {"a", "self"}) {
    const auto result = sys::replace_file(directory->file(name), "contents");
    EXPECT_EQ(result.code, error::bad_link) << name;
    EXPECT_TRUE(orva_test::on_windows || result.reason == std::errc::too_many_symbolic_link_levels);
  }
  EXPECT_EQ(entries_of(*directory), 3u);
}

TEST(replace_file, chain_of_forty_links_is_followed) {
  const directory_with_links directory;
  directory->write("0", "old");
  for (int i = 1; i <= 41; ++i)
    if (!directory.link(std::to_string(i), std::to_string(i - 1))) GTEST_SKIP() << "no links here";
  EXPECT_EQ(sys::replace_file(directory->file("40"), "new").code, error::none);
  EXPECT_EQ(directory->read("0"), "new");
  EXPECT_EQ(sys::replace_file(directory->file("41"), "newer").code, error::bad_link);
  EXPECT_EQ(directory->read("0"), "new");
}

TEST(replace_file, link_to_a_directory_is_no_file) {
  const directory_with_links directory;
  directory->make_directory("below");
  if (!directory.link("link", "below")) GTEST_SKIP() << "no links here";
  EXPECT_EQ(sys::replace_file(directory->file("link"), "contents").code, error::not_a_file);
}

TEST(replace_file, other_names_of_the_file_keep_the_old_contents) {
  const temporary_directory directory;
  directory.write("file", "old");
  std::filesystem::create_hard_link(directory.path() / "file", directory.path() / "other");
  EXPECT_EQ(sys::replace_file(directory.file("file"), "new").code, error::none);
  EXPECT_EQ(directory.read("file"), "new");
  EXPECT_EQ(directory.read("other"), "old");
}

TEST(replace_file, failure_is_a_finding_with_the_reason_of_the_system) {
  const temporary_directory directory;
  const auto found = describe(sys::replace_file(directory.file("missing/file"), "contents"), "file");
  EXPECT_EQ(found.code, "file.no_directory");
  EXPECT_EQ(found.file, "file");
  EXPECT_TRUE(sentence(found).starts_with("The directory of the file could not be opened: "));
  EXPECT_EQ(sys::describe(sys::replace_file_result{}, "file").code, "");
}

TEST(replace_file, every_error_has_a_sentence_of_its_own) {
  std::string last;
  for (int code = 1; code <= static_cast<int>(error::not_durable); ++code) {
    const auto text = sys::describe({static_cast<error>(code), {}});
    EXPECT_FALSE(text.empty()) << code;
    EXPECT_FALSE(text.starts_with("file.")) << text;
    EXPECT_NE(text, last);
    last = text;
  }
}

}  // namespace
