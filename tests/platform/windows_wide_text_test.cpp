// Where wchar_t has 16 bits, std::wstring and wide literals serve wherever a ustring16 does, and the other
// way.
#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <type_traits>
#include <vector>

#include "orva/orva.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/support/working_directory.hpp"

namespace {

using orva::strings::ustring16;

static_assert(std::is_same_v<orva::strings::wide_string, std::wstring>);
static_assert(std::is_base_of_v<std::wstring, ustring16> && sizeof(ustring16) == sizeof(std::wstring));
static_assert(std::is_same_v<orva::strings::code_unit32, unsigned long>);
static_assert(std::is_same_v<orva::types::int32, long>);

TEST(wide_text, crosses_between_both_classes_as_it_is) {
  const ustring16 text = L"\u00E4\U0001F600";
  const std::wstring standard = text;
  const ustring16 back = standard;
  EXPECT_EQ(back, text);
  EXPECT_EQ(text + L"!", standard + L"!");
  EXPECT_EQ(orva::strings::utf16_to_utf8(standard), "\xC3\xA4\xF0\x9F\x98\x80");
  EXPECT_EQ(orva::strings::from_wchar(standard), text);
  EXPECT_EQ(orva::strings::to_wchar(text), standard);
}

TEST(wide_text, serves_as_a_value_and_an_argument) {
  EXPECT_EQ(orva::types::variant(L"12").as_int(), 12);
  EXPECT_EQ(orva::types::variant(std::wstring(L"12")).as_ustring(), L"12");
  EXPECT_EQ(orva::strings::split_string(std::wstring(L"a,b"), L",", 0),
            (std::vector<std::wstring>{L"a", L"b"}));
  const orva::generic::varg_list args(orva::generic::argument("n", L"\u00E4"));
  EXPECT_EQ(args["n"].value().as_utf8(), "\xC3\xA4");
}

TEST(wide_text, serves_as_a_path) {
  const orva_test::temporary_directory directory;
  const orva_test::working_directory current(directory.path());
  EXPECT_TRUE(orva::system::create_directory(L"\u00E4\\b"));
  EXPECT_EQ(orva::system::store_file(std::wstring(L"\u00E4\\b\\c.txt"), "text"), 0);
  EXPECT_EQ(orva::system::list_directory(L"\u00E4\\b"), (std::vector<ustring16>{L"\u00E4\\b\\c.txt"}));
  orva::strings::ustring8 contents;
  EXPECT_EQ(orva::system::load_file(L"\u00E4\\b\\c.txt", contents), 0);
  EXPECT_EQ(contents, "text");
}

// Their failures stay in the variable of the runtime.
TEST(io_mkdir, leaves_the_reason_of_a_failure_in_errno) {
  const orva_test::temporary_directory directory;
  errno = 0;
  orva::system::io::mkdir(directory.name());
  EXPECT_EQ(errno, EEXIST);
}

}  // namespace
