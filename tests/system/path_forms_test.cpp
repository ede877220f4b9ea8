/// Every file operation with paths as `std::filesystem::path` and as views of each width.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "orva/parser/xml_stream_parser.hpp"
#include "orva/strings/text_argument.hpp"
#include "orva/system/file_utility.hpp"
#include "orva/system/io.hpp"
#include "tests/support/native_path.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/support/wide_text.hpp"
#include "tests/support/working_directory.hpp"

namespace {

using orva_test::temporary_directory;
using orva_test::utf16;
using orva_test::utf32;
using orva_test::working_directory;
using std::filesystem::path;
namespace strings = ORVA_NAMESPACE::strings;
namespace sys = ORVA_NAMESPACE::system;
namespace io = ORVA_NAMESPACE::system::io;
using strings::text_argument;
using sys::path_argument;
using namespace std::string_view_literals;

struct derived_path : path {};
struct text_with_native {
  using value_type = char;
  const std::string& native() const;
};
static_assert(strings::file_path<path> && !strings::file_path<const path&> &&
              !strings::file_path<derived_path>);
static_assert(!strings::file_path<std::string> && !strings::file_path<text_with_native>);
static_assert(strings::other_text<path> && strings::other_text<std::string_view> &&
              strings::other_text<strings::ustring16>);
static_assert(!strings::other_text<strings::ustring8> && !strings::other_text<std::string>);
static_assert(!strings::other_text<const char*> && !strings::other_text<char[3]> &&
              !strings::other_text<int>);

const path umlaut(u8"\u00E4/b");

/// Not well-formed in the native width: a byte that is no text, or half of a pair.
path malformed(const path& directory, std::string_view stem) {
  path::string_type name(stem.begin(), stem.end());
  name.push_back(static_cast<path::value_type>(0xDC80));
  return directory / name;
}
constexpr bool paths_are_bytes = sizeof(path::value_type) == 1;

TEST(path_forms, text_of_a_path_is_its_native_text) {
  EXPECT_EQ(text_argument(umlaut).view(), "\xC3\xA4/b");
  EXPECT_EQ(text_argument(umlaut).get(), "\xC3\xA4/b");
  EXPECT_EQ(path_argument(umlaut).get(), utf16(u"\u00E4/b"));
  EXPECT_EQ(path_argument(path()).get(), utf16(u""));
  EXPECT_EQ(path_argument(path("-1")).get(), utf16(u"-1"));
  EXPECT_EQ(path_argument(path(u8"\U0001F600")).get(), utf16(u"\U0001F600"));
}

TEST(path_forms, native_text_is_borrowed_where_the_width_is_the_same) {
  using same_width = strings::basic_text_argument<path::value_type>;
  EXPECT_EQ(same_width(umlaut).view().data(), umlaut.native().data());
}

TEST(path_forms, path_that_is_not_well_formed_names_nothing) {
  const temporary_directory directory;
  const working_directory inside(directory.path());
  directory.write("-1", "kept");
  const path bad = malformed("", "a");
  EXPECT_EQ(text_argument(bad).get(), std::string(1, '\0'));
  if (!paths_are_bytes) GTEST_SKIP() << "16-bit paths are used as they are";
  EXPECT_EQ(path_argument(bad).get(), strings::ustring16(1, 0));
  strings::ustring8 contents = "before";
  EXPECT_FALSE(io::exists(bad));
  EXPECT_EQ(sys::load_file(bad, contents), 1);
  EXPECT_EQ(contents, "before");
  EXPECT_EQ(sys::store_file(bad, "x"), 1);
  EXPECT_FALSE(sys::create_directory(bad));
  io::remove_file(bad);
  io::move(bad, "-1");
  io::move("moved", bad);
  io::mkdir(bad);
  EXPECT_TRUE(sys::list_directory(bad).empty());
  EXPECT_EQ(directory.read("-1"), "kept");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory.path()), {}), 1);
  // An overlong slash would otherwise name a file in the directory.
  directory.write("d/f", "kept");
  EXPECT_FALSE(
      io::exists(path("d\xC0\xAF"
                      "f")));
}

/// The same path in each of the forms; the operation is tried with all.
template <typename Operation>
void with_each_form(const path& name, Operation operation) {
  const std::string utf8 = orva_test::text_of(name);
  const strings::ustring16 wide = utf16(name.u16string());
  const strings::ustring32 wider = utf32(name.u32string());
  operation(name);
  operation(std::string_view(utf8));
  operation(strings::ustring16::view(wide));
  operation(strings::ustring32::view(wider));
}

TEST(path_forms, single_operations_take_each_form) {
  const temporary_directory directory;
  with_each_form(directory.path() / u8"\u00E4", [&](const auto& name) {
    EXPECT_FALSE(io::exists(name));
    io::mkdir(name);
    EXPECT_TRUE(io::is_directory(name));
    EXPECT_TRUE(sys::create_directory(name));
    EXPECT_TRUE(sys::have_read_access(name));
    io::remove_dir(name);
    EXPECT_EQ(sys::store_file(name, "text"), 0);
    EXPECT_TRUE(io::is_file(name));
    strings::ustring8 contents;
    EXPECT_EQ(sys::load_file(name, contents), 0);
    EXPECT_EQ(contents, "text");
    const path other = directory.path() / "other";
    io::move(other, name);
    EXPECT_FALSE(io::exists(name));
    io::move(name, other);
    EXPECT_TRUE(io::exists(name));
    io::remove_file(name);
    EXPECT_FALSE(io::exists(name));
  });
}

TEST(path_forms, stream_parser_takes_each_form) {
  using ORVA_NAMESPACE::parser::xml_stream_parser;
  const temporary_directory directory;
  directory.write("f.xml", "<?xml?><r><a x=\"1\"><b>t</b></a><a/></r>            ");
  with_each_form(directory.path() / "f.xml", [](const auto& name) {
    xml_stream_parser parser(name, 1);
    EXPECT_EQ(parser.parse(), xml_stream_parser::end_of_document);
  });
}

TEST(path_forms, listing_of_a_view_has_strings_of_its_width) {
  const temporary_directory directory;
  const working_directory inside(directory.path());
  directory.write("d/a", "");
  EXPECT_EQ(sys::list_directory("d"sv), sys::list_directory("d"));
  EXPECT_EQ(sys::list_directory("xdx"sv.substr(1, 1)), sys::list_directory("d"));
  const strings::ustring16 wide = utf16(u"d");
  EXPECT_EQ(sys::list_directory(strings::ustring16::view(wide)), sys::list_directory(wide));
  const strings::ustring32 wider = utf32(U"d");
  EXPECT_EQ(sys::list_directory(strings::ustring32::view(wider)), sys::list_directory(wider));
  EXPECT_EQ(sys::list_directory("d").size(), 1u);

  std::vector<strings::ustring8> of_text;
  std::vector<strings::ustring8> of_view;
  sys::get_directory_files("d", of_text);
  sys::get_directory_files("d"sv, of_view);
  EXPECT_EQ(of_view, of_text);
  EXPECT_EQ(of_view.size(), 1u);
}

TEST(path_forms, listing_of_a_path_has_paths) {
  const temporary_directory directory;
  directory.write("d/a", "");
  directory.write("d/\xC3\xA4", "");
  directory.write("d/e/f", "");
  const path listed = directory.path() / "d";
  std::vector<path> entries = sys::list_directory(listed);
  std::sort(entries.begin(), entries.end());
  EXPECT_EQ(entries, (std::vector<path>{listed / "a", listed / "e", listed / u8"\u00E4"}));

  std::vector<path> files = {"first"};
  sys::get_directory_files(listed, files);
  std::sort(files.begin(), files.end());
  std::vector<path> expected = {"first", listed / "a", listed / "e" / "f", listed / u8"\u00E4"};
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(files, expected);

  EXPECT_TRUE(sys::list_directory(directory.path() / "missing").empty());
}

}  // namespace
