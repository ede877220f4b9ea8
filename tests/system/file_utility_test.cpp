#include "orva/system/file_utility.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tuple>

#include "orva/exceptions/exception.hpp"
#include "orva/system/io.hpp"
#include "tests/support/entries.hpp"
#include "tests/support/native_path.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/support/wide_text.hpp"
#include "tests/support/working_directory.hpp"

namespace {

using orva_test::native;
using orva_test::temporary_directory;
using orva_test::utf16;
using orva_test::utf32;
using orva_test::working_directory;
namespace exceptions = ORVA_NAMESPACE::exceptions;
namespace strings = ORVA_NAMESPACE::strings;
namespace sys = ORVA_NAMESPACE::system;
using namespace std::string_literals;

/// Every byte value, several times over.
std::string all_bytes(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 7 + i / 256);
  return bytes;
}

TEST(load_file, missing_file_gives_1_and_leaves_contents_unchanged) {
  const temporary_directory directory;
  strings::ustring8 contents = "before";
  EXPECT_EQ(sys::load_file(directory.file("none"), contents), 1);
  EXPECT_EQ(contents, "before");
}

TEST(load_file, empty_file_replaces_contents_with_nothing) {
  const temporary_directory directory;
  strings::ustring8 contents = "before";
  EXPECT_EQ(sys::load_file(directory.write("empty", ""), contents), 0);
  EXPECT_EQ(contents, "");
}

TEST(load_file, byte_order_mark_stays) {
  const temporary_directory directory;
  strings::ustring8 contents;
  EXPECT_EQ(sys::load_file(directory.write("marked", "\xEF\xBB\xBFtext"), contents), 0);
  EXPECT_EQ(contents, "\xEF\xBB\xBFtext");
}

TEST(load_file, bytes_arrive_as_they_are_at_every_size_around_a_piece) {
  const temporary_directory directory;
  for (const std::size_t piece : {0x100u, 0x20000u, 0x40000u}) {
    for (std::size_t size = piece - 1; size <= piece + 1; ++size) {
      const auto bytes = all_bytes(size);
      std::string contents = "before";
      EXPECT_EQ(sys::load_file(directory.write("file", bytes), contents), 0);
      EXPECT_TRUE(contents == bytes) << size;
    }
  }
}

TEST(load_file, ustring8_and_byte_string_get_the_same) {
  const temporary_directory directory;
  const auto path = directory.write("file", "a\0\r\n\xFF"s);
  strings::ustring8 text;
  std::string bytes;
  EXPECT_EQ(sys::load_file(path, text), 0);
  EXPECT_EQ(sys::load_file(path, bytes), 0);
  EXPECT_EQ(text, "a\0\r\n\xFF"s);
  EXPECT_EQ(bytes, "a\0\r\n\xFF"s);
}

TEST(load_file, contents_that_held_more_are_replaced) {
  const temporary_directory directory;
  std::string contents(100'000, 'x');
  EXPECT_EQ(sys::load_file(directory.write("file", "short"), contents), 0);
  EXPECT_EQ(contents, "short");
}

TEST(load_file, large_file_is_read_whole) {
  const temporary_directory directory;
  const auto bytes = all_bytes(9'000'001);
  std::string contents;
  EXPECT_EQ(sys::load_file(directory.write("file", bytes), contents), 0);
  EXPECT_TRUE(contents == bytes);
}

TEST(load_file, directory_gives_1_and_leaves_contents_unchanged) {
  const temporary_directory directory;
  std::string contents = "before";
  EXPECT_EQ(sys::load_file(directory.name(), contents), 1);
  EXPECT_EQ(sys::load_file(directory.name() + "/", contents), 1);
  EXPECT_EQ(contents, "before");
}

TEST(load_file, empty_path_gives_1) {
  std::string contents = "before";
  EXPECT_EQ(sys::load_file("", contents), 1);
  EXPECT_EQ(contents, "before");
}

TEST(load_file, separator_after_a_file_gives_1) {
  const temporary_directory directory;
  std::string contents;
  EXPECT_EQ(sys::load_file(directory.write("file", "x") + "/", contents), 1);
}

TEST(load_file, symbolic_link_gives_1_even_when_the_target_exists) {
  const temporary_directory directory;
  directory.write("target", "secret");
  if (!orva_test::make_link("target", directory.file("link"))) GTEST_SKIP() << orva_test::no_links;
  if (!orva_test::make_link("nowhere", directory.file("dangling"))) GTEST_SKIP() << orva_test::no_links;
  std::string contents = "before";
  EXPECT_EQ(sys::load_file(directory.file("link"), contents), 1);
  EXPECT_EQ(sys::load_file(directory.file("dangling"), contents), 1);
  EXPECT_EQ(contents, "before");
}

TEST(load_file, symbolic_link_before_the_last_component_is_followed) {
  const temporary_directory directory;
  directory.write("real/file", "text");
  if (!orva_test::make_link("real", directory.file("link"))) GTEST_SKIP() << orva_test::no_links;
  std::string contents;
  EXPECT_EQ(sys::load_file(directory.file("link/file"), contents), 0);
  EXPECT_EQ(contents, "text");
}

TEST(load_file, size_above_31_bits_raises_and_leaves_contents_unchanged) {
  const temporary_directory directory;
  const auto path = directory.write("sparse", "");
  std::filesystem::resize_file(path, 0x80000000);
  std::string contents = "before";
  try {
    std::ignore = sys::load_file(path, contents);
    FAIL() << "nothing raised";
  } catch (const exceptions::runtime_error& error) {
    EXPECT_STREQ(error.message(), "2147483648 is large than a string can hold");
    EXPECT_STREQ(error.error_state().function(), ORVA_QUALIFIED("system::load_file"));
    EXPECT_STREQ(error.error_state().file(), "system/file_utility");
    EXPECT_GT(error.error_state().line(), 0u);
  }
  EXPECT_EQ(contents, "before");
}

TEST(load_file, message_has_all_digits_of_a_size_beyond_32_bits) {
  const temporary_directory directory;
  const auto path = directory.write("sparse", "");
  std::filesystem::resize_file(path, 5'000'000'000);
  std::string contents;
  try {
    std::ignore = sys::load_file(path, contents);
    FAIL() << "nothing raised";
  } catch (const exceptions::runtime_error& error) {
    EXPECT_STREQ(error.message(), "5000000000 is large than a string can hold");
  }
}

TEST(load_file, takes_paths_of_all_widths) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  directory.write("na\xC3\xAFve", "x");
  std::string contents;
  EXPECT_EQ(sys::load_file("na\xC3\xAFve", contents), 0);
  EXPECT_EQ(sys::load_file("na\xC3\xAFve"s, contents), 0);
  EXPECT_EQ(sys::load_file(strings::ustring8("na\xC3\xAFve"), contents), 0);
  const strings::ustring16 path16 = utf16(u"na\u00EFve");
  EXPECT_EQ(sys::load_file(path16.c_str(), contents), 0);
  EXPECT_EQ(sys::load_file(strings::wide_string(path16), contents), 0);
  EXPECT_EQ(sys::load_file(path16, contents), 0);
  const strings::ustring32 path32 = utf32(U"na\u00EFve");
  EXPECT_EQ(sys::load_file(path32.c_str(), contents), 0);
  EXPECT_EQ(sys::load_file(std::basic_string<strings::code_unit32>(path32), contents), 0);
  EXPECT_EQ(sys::load_file(path32, contents), 0);
}

TEST(load_file, zero_unit_in_the_path_names_no_file) {
  const temporary_directory directory;
  const auto path = directory.write("file", "x");
  std::string contents = "before";
  EXPECT_EQ(sys::load_file(path + '\0', contents), 1);
  EXPECT_EQ(sys::load_file(path + "\0.xml"s, contents), 1);
  EXPECT_EQ(contents, "before");
}

TEST(store_file, load_file_gives_back_what_was_stored) {
  const temporary_directory directory;
  for (const std::size_t size : {0u, 1u, 255u, 0x20001u, 3'000'000u}) {
    const auto bytes = all_bytes(size);
    std::string contents;
    EXPECT_EQ(sys::store_file(directory.file("file"), bytes), 0);
    EXPECT_EQ(sys::load_file(directory.file("file"), contents), 0);
    EXPECT_TRUE(contents == bytes) << size;
  }
}

TEST(store_file, longer_file_is_cut_to_the_new_length) {
  const temporary_directory directory;
  const auto path = directory.write("file", "a long content");
  EXPECT_EQ(sys::store_file(path, "short"), 0);
  EXPECT_EQ(directory.read("file"), "short");
}

TEST(store_file, takes_ustring8_byte_string_and_literal_contents) {
  const temporary_directory directory;
  const auto path = directory.file("file");
  EXPECT_EQ(sys::store_file(path, strings::ustring8("text")), 0);
  EXPECT_EQ(directory.read("file"), "text");
  EXPECT_EQ(sys::store_file(path, "by\0tes"s), 0);
  EXPECT_EQ(directory.read("file"), "by\0tes"s);
  EXPECT_EQ(sys::store_file(path, "literal"), 0);
  EXPECT_EQ(directory.read("file"), "literal");
}

TEST(store_file, symbolic_link_gives_1_and_leaves_the_target_alone) {
  const temporary_directory directory;
  directory.write("target", "kept");
  if (!orva_test::make_link("target", directory.file("link"))) GTEST_SKIP() << orva_test::no_links;
  if (!orva_test::make_link("nowhere", directory.file("dangling"))) GTEST_SKIP() << orva_test::no_links;
  EXPECT_EQ(sys::store_file(directory.file("link"), "new"), 1);
  EXPECT_EQ(sys::store_file(directory.file("dangling"), "new"), 1);
  EXPECT_EQ(directory.read("target"), "kept");
  EXPECT_FALSE(std::filesystem::exists(directory.file("nowhere")));
}

TEST(store_file, what_cannot_be_opened_gives_1) {
  const temporary_directory directory;
  EXPECT_EQ(sys::store_file(directory.name(), "x"), 1);
  EXPECT_EQ(sys::store_file(directory.file("missing/file"), "x"), 1);
  EXPECT_EQ(sys::store_file(directory.write("file", "") + "/below", "x"), 1);
  EXPECT_EQ(sys::store_file("", "x"), 1);
}

TEST(store_file, zero_unit_in_the_path_makes_no_file) {
  const temporary_directory directory;
  EXPECT_EQ(sys::store_file(directory.file("file") + "\0.txt"s, "x"), 1);
  EXPECT_TRUE(std::filesystem::is_empty(directory.path()));
}

struct creation {
  const char* path;
  bool result;
  const char* made;
};

class create_directory_paths : public testing::TestWithParam<creation> {};

// In a directory that holds the directory "there" and the file "file".
INSTANTIATE_TEST_SUITE_P(table, create_directory_paths,
                         testing::Values(creation{"there", true, nullptr},          //
                                         creation{"there/", false, nullptr},        //
                                         creation{"./there", true, nullptr},        //
                                         creation{"new", true, "new"},              //
                                         creation{"new/", true, "new"},             //
                                         creation{"there/new", true, "there/new"},  //
                                         creation{"a/b/c", true, "a/b/c"},          //
                                         creation{"a/b/c/", true, "a/b/c"},         //
                                         creation{"a//b", true, "a/b"},             //
                                         creation{"a/b//", false, "a/b"},           //
                                         creation{"there/..", true, nullptr},       //
                                         creation{"x/../y", true, "y"},             //
                                         creation{"file", false, nullptr},          //
                                         creation{"file/", false, nullptr},         //
                                         creation{"file/below", false, nullptr},    //
                                         creation{"", false, nullptr}));

TEST_P(create_directory_paths, result_and_what_is_there_afterwards) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  directory.make_directory("there");
  directory.write("file", "kept");
  EXPECT_EQ(sys::create_directory(native(GetParam().path)), GetParam().result);
  if (GetParam().made != nullptr) {
    EXPECT_TRUE(std::filesystem::is_directory(GetParam().made));
  }
  EXPECT_EQ(directory.read("file"), "kept");
}

TEST(create_directory, leading_separator_is_skipped) {
  const temporary_directory directory;
  EXPECT_TRUE(sys::create_directory(directory.file("a/b")));
  EXPECT_TRUE(std::filesystem::is_directory(directory.file("a/b")));
}

TEST(create_directory, parents_are_made_at_the_systems_own_separator_only) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  sys::create_directory(orva_test::on_windows ? "a/b" : "a\\b");
  EXPECT_FALSE(std::filesystem::exists("a"));
}

TEST(create_directory, file_in_the_place_of_a_parent_makes_nothing) {
  const temporary_directory directory;
  directory.write("a/b", "");
  EXPECT_FALSE(sys::create_directory(directory.file("a/b/c/d")));
}

TEST(create_directory, link_to_a_directory_is_there) {
  const temporary_directory directory;
  directory.make_directory("real");
  if (!orva_test::make_link("real", directory.file("link"))) GTEST_SKIP() << orva_test::no_links;
  EXPECT_TRUE(sys::create_directory(directory.file("link")));
}

TEST(create_directory, zero_unit_in_the_path_makes_nothing) {
  const temporary_directory directory;
  EXPECT_FALSE(sys::create_directory(directory.file("a/b") + "\0c"s));
  EXPECT_TRUE(std::filesystem::is_empty(directory.path()));
}

TEST(create_directory, takes_paths_of_all_widths) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  EXPECT_TRUE(sys::create_directory(native("a/b")));
  EXPECT_TRUE(sys::create_directory(native(utf16(u"c/d"))));
  EXPECT_TRUE(sys::create_directory(native(utf32(U"e/f"))));
  for (const auto* made : {"a/b", "c/d", "e/f"}) EXPECT_TRUE(std::filesystem::is_directory(made));
}

TEST(have_read_access, is_the_read_bit_of_the_owner_for_every_user) {
  const temporary_directory directory;
  const auto path = directory.write("file", "x");
  for (const unsigned mode : {0u, 0200u, 0077u, 0377u}) {
    if (!orva_test::set_mode(path, mode)) GTEST_SKIP() << orva_test::always_readable;
    EXPECT_FALSE(sys::have_read_access(path)) << std::oct << mode;
  }
  for (const unsigned mode : {0400u, 0600u, 0700u, 0444u}) {
    ASSERT_TRUE(orva_test::set_mode(path, mode));
    EXPECT_TRUE(sys::have_read_access(path)) << std::oct << mode;
  }
}

TEST(have_read_access, holds_for_directories_and_through_links_and_not_for_what_is_missing) {
  const temporary_directory directory;
  directory.write("file", "x");
  if (!orva_test::make_link("file", directory.file("link"))) GTEST_SKIP() << orva_test::no_links;
  EXPECT_TRUE(sys::have_read_access(directory.name()));
  EXPECT_TRUE(sys::have_read_access(directory.file("link")));
  EXPECT_FALSE(sys::have_read_access(directory.file("none")));
  EXPECT_FALSE(sys::have_read_access(""));
}

TEST(path, invalid_utf8_acts_on_the_path_minus_1) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  EXPECT_EQ(sys::store_file("logs/\xFF", "x"), 0);
  EXPECT_EQ(directory.read("-1"), "x");
  std::string contents;
  EXPECT_EQ(sys::load_file("\x80", contents), 0);
  EXPECT_EQ(contents, "x");
  EXPECT_TRUE(sys::have_read_access("\xC3"));
  EXPECT_TRUE(sys::io::is_file("a\xE2\x82"));
}

TEST(path, utf32_above_the_basic_plane_acts_on_another_path) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  EXPECT_EQ(sys::store_file(utf32(U"\U0001F600"), "x"), 0);
  // U+2F600, by the arithmetic of utf32_to_utf16.
  EXPECT_EQ(sys::list_directory("."), (std::vector<strings::ustring8>{native("./\xF0\xAF\x98\x80")}));
  EXPECT_TRUE(sys::io::exists(utf32(U"\U0001F600")));
  EXPECT_FALSE(sys::io::exists(utf16(u"\U0001F600")));
}

TEST(path, swapped_byte_order_marks_name_files) {
  const temporary_directory directory;
  const working_directory current(directory.path());
  const std::u16string names[] = {{u'\xFFFE'}, {u'\xFFFE', u'a'}};
  for (const auto& units : names) {
    const strings::ustring16 name = utf16(units);
    EXPECT_EQ(sys::store_file(name, "x"), 0);
    EXPECT_TRUE(sys::io::is_file(name));
    EXPECT_EQ(sys::list_directory(utf16(u".")),
              (std::vector<strings::ustring16>{native(utf16(u"./")) + name}));
    sys::io::remove_file(name);
    EXPECT_FALSE(sys::io::exists(name));
  }
}

}  // namespace
