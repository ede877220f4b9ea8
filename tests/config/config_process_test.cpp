// What only a process of its own shows: a real command line and environment, and the end of the process.
#include <gtest/gtest.h>

#include "tests/support/child_process.hpp"

namespace {

using orva_test::child_result;
using orva_test::run_child;

const char children_line[] = "|---------------\\\n";

TEST(config_process, command_line_of_a_child_is_read_with_a_warning_of_stray_words_on_its_standard_output) {
  const child_result child = run_child(
      CONFIG_PROBE,
      {"C:\\bin\\probe.exe", "stray", "-probe=\"command line\"", "-Path", "a,b", "c d", "-x:=1,2"}, {});
  EXPECT_EQ(child.code, 0);
  EXPECT_EQ(child.output, std::string("Warning! unknown key:stray\nIgnoring key and continuing\n"
                                      "object : command line\n") +
                              children_line +
                              "|\t\tapplication : true\n"
                              "|\t\t|---------------\\\n"
                              "|\t\t|\t\tname : 1 probe.exe\n"
                              "|\t\t|\t\t|---------------\\\n"
                              "|\t\t|\t\t|\t\textention : 1 exe\n"
                              "|\t\t|\t\t|\t\t|\n"
                              "|\t\t|\t\t|\t\traw : 1 probe\n"
                              "|\t\t|\t\t|\t\t|\n"
                              "|\t\t|\t\t|\t\tend\n"
                              "|\t\t|\t\tend\n"
                              "|\t\tpath : 3 \n"
                              "|\t\t|---------------\\\n"
                              "|\t\t|\t\t0 : 1 a,b\n"
                              "|\t\t|\t\t|\n"
                              "|\t\t|\t\t1 : 1 ccd\n"
                              "|\t\t|\t\t|\n"
                              "|\t\t|\t\tend\n"
                              "|\t\tprobe : 1 command line\n"
                              "|\t\t|\n"
                              "|\t\tx : 3 \n"
                              "|\t\t|---------------\\\n"
                              "|\t\t|\t\t0 : 1 1\n"
                              "|\t\t|\t\t|\n"
                              "|\t\t|\t\t1 : 1 2\n"
                              "|\t\t|\t\t|\n"
                              "|\t\t|\t\tend\n"
                              "|\t\tend\n"
                              "end\n");
}

TEST(config_process, environment_of_a_child_is_read) {
  const child_result child =
      run_child(CONFIG_PROBE, {"probe", "-probe=enviroment"},
                {"Home=/home/ann", "P=C:\\Program Files", "EMPTY=", "\xC3\xA4=\xC3\xB6", "A.B=\"x y\""});
  EXPECT_EQ(child.code, 0);
  EXPECT_EQ(child.output, std::string("object : enviroment\n") + children_line +
                              "|\t\ta : true\n"
                              "|\t\t|---------------\\\n"
                              "|\t\t|\t\tb : 1 x y\n"
                              "|\t\t|\t\t|\n"
                              "|\t\t|\t\tend\n"
                              "|\t\tempty : 1 \n"
                              "|\t\t|\n"
                              "|\t\thome : 1 /home/ann\n"
                              "|\t\t|\n"
                              "|\t\tp : 1 C:\\ProgramFiles\n"
                              "|\t\t|\n"
                              "|\t\t\xC3\xA4 : 1 \xC3\xB6\n"
                              "|\t\t|\n"
                              "|\t\tend\n"
                              "end\n");
}

TEST(config_process, tree_works_while_the_statics_of_the_process_are_destroyed) {
  const child_result child = run_child(TREE_AT_EXIT_PROBE, {"probe"}, {});
  EXPECT_EQ(child.code, 0);
  EXPECT_EQ(child.output, "1 1\n");
}

}  // namespace
