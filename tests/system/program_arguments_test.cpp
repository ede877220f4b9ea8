// The arguments of a program. windows_failing_calls_test has those of Windows.
#include "orva/system/program_arguments.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "orva/config/declaration.hpp"
#include "orva/config/settings.hpp"
#include "orva/platform/native_path.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using system::program_arguments;

constexpr bool is_on_windows = platform::native_style == internal::paths::style::windows;

std::vector<std::string> words_of(const program_arguments& arguments) {
  return {arguments.values(), arguments.values() + arguments.count()};
}

TEST(program_arguments, documentation_example) {
  if (is_on_windows) GTEST_SKIP() << "the arguments are those of the test program";
  config::declaration viewer("viewer");
  viewer.add_positional(config::setting("file", config::file_path()).required());
  const char* const argv[] = {"viewer", "caf\xC3\xA9.txt", nullptr};
  const program_arguments arguments(2, argv);
  const config::settings values(viewer, arguments.count(), arguments.values());
  EXPECT_EQ(values.get<std::string>("file"), "caf\xC3\xA9.txt");
}

TEST(program_arguments, are_those_of_main_whatever_bytes_they_are) {
  if (is_on_windows) GTEST_SKIP() << "the system has the command line in UTF-16";
  const char* const argv[] = {"tool", "", "\xFF", "a b", nullptr};
  const program_arguments arguments(4, argv);
  EXPECT_EQ(words_of(arguments), (std::vector<std::string>{"tool", "", "\xFF", "a b"}));
  EXPECT_EQ(arguments.values()[4], nullptr);
}

TEST(program_arguments, of_a_program_without_arguments_are_none) {
  if (is_on_windows) GTEST_SKIP() << "every program has a name";
  const char* const argv[] = {"tool", nullptr};
  for (const program_arguments& none :
       {program_arguments(0, argv), program_arguments(-1, argv), program_arguments(3, nullptr)}) {
    EXPECT_EQ(none.count(), 0);
    EXPECT_EQ(none.values()[0], nullptr);
  }
}

TEST(program_arguments, begin_with_the_program_on_windows) {
  if (!is_on_windows) GTEST_SKIP() << "the arguments are those of main";
  const program_arguments arguments(0, nullptr);
  ASSERT_GE(arguments.count(), 1);
  EXPECT_NE(words_of(arguments)[0].find("program_arguments_test"), std::string::npos);
}

}  // namespace
