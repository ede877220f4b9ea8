#include "orva/internal/raise.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using namespace ORVA_NAMESPACE::exceptions;
using ORVA_NAMESPACE::internal::source_name;

TEST(source_name, is_the_path_under_the_source_root_without_the_ending) {
  struct {
    source_name name;
    const char* expected;
  } const table[] = {
      {source_name("orva/strings/code_page.cpp"), "strings/code_page"},
      {source_name("/any/where/orva/strings/code_page.cpp"), "strings/code_page"},
      {source_name("/home/orva/build/orva/system/date_time/date.cpp"), "system/date_time/date"},
      {source_name("orva/types/nil.hpp"), "types/nil"},
      {source_name("elsewhere/file.cpp"), "elsewhere/file"},
      {source_name("no_ending"), "no_ending"},
      {source_name("two.dots.cpp"), "two.dots"},
      {source_name(""), ""},
  };
  for (const auto& row : table) EXPECT_STREQ(row.name.text, row.expected);
}

constexpr unsigned int line_of_raise = __LINE__ + 2;
void raise_here(const std::string& what) {
  ORVA_RAISE(runtime_error, what + " is too much", "test::raise_here");
}

TEST(raise, throws_the_class_with_message_and_place) {
  try {
    raise_here("this");
    FAIL();
  } catch (const runtime_error& raised) {
    EXPECT_STREQ(raised.message(), "this is too much");
    EXPECT_EQ(raised.error_state().line(), line_of_raise);
    EXPECT_THAT(raised.error_state().file(), testing::EndsWith("tests/internal/raise_test"));
    EXPECT_STREQ(raised.error_state().function(), "test::raise_here");
  }
}

bool is_odd(int number) {
  if (number < 0)
    ORVA_RAISE(out_of_range, "negative", "test::is_odd");
  else
    return number % 2 == 1;
}

TEST(raise, is_one_statement) {
  EXPECT_TRUE(is_odd(3));
  EXPECT_THROW(is_odd(-3), out_of_range);
}

}  // namespace
