// Whether an output shows colours, for each answer of the system and each value of TERM, and how wide it is.
#include "orva/platform/terminal.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <iostream>
#include <sstream>
#include <string>

#include "tests/platform/scripted_system_calls.hpp"
#include "tests/support/environment_variable.hpp"

namespace {

using ORVA_NAMESPACE::platform::output_of;
using ORVA_NAMESPACE::platform::process_output;
using ORVA_NAMESPACE::platform::shows_colour;
using ORVA_NAMESPACE::platform::terminal_columns;
using orva_test::environment_variable;
using orva_test::scripted_calls;

struct shows_colour_test : testing::Test {
  shows_colour_test() {
    calls->isatty = [](int file) {
      if (file == STDOUT_FILENO) return 1;
      errno = ENOTTY;
      return 0;
    };
  }

  const scripted_calls calls;
};

TEST_F(shows_colour_test, asks_for_the_output_that_is_meant) {
  const environment_variable name("TERM", "xterm");
  EXPECT_TRUE(shows_colour(process_output::standard));
  EXPECT_FALSE(shows_colour(process_output::error));
}

TEST_F(shows_colour_test, is_false_for_a_dumb_terminal) {
  const environment_variable name("TERM", "dumb");
  EXPECT_FALSE(shows_colour(process_output::standard));
}

TEST_F(shows_colour_test, is_false_without_a_name_of_the_terminal) {
  const environment_variable name("TERM", nullptr);
  EXPECT_FALSE(shows_colour(process_output::standard));
}

TEST_F(shows_colour_test, leaves_errno_as_it_was) {
  const environment_variable name("TERM", "xterm");
  errno = EDOM;
  EXPECT_FALSE(shows_colour(process_output::error));
  EXPECT_EQ(errno, EDOM);
}

TEST(terminal_columns, are_those_of_the_output_that_is_meant) {
  const scripted_calls calls;
  calls->get_window_size = [](int file, winsize* size) {
    size->ws_col = file == STDOUT_FILENO ? 132 : 40;
    return 0;
  };
  EXPECT_EQ(terminal_columns(process_output::standard), 132u);
  EXPECT_EQ(terminal_columns(process_output::error), 40u);
}

TEST(terminal_columns, are_0_where_there_is_no_terminal) {
  const scripted_calls calls;
  calls->get_window_size = [](int, winsize* size) {
    size->ws_col = 7;
    errno = ENOTTY;
    return -1;
  };
  errno = EDOM;
  EXPECT_EQ(terminal_columns(process_output::standard), 0u);
  EXPECT_EQ(errno, EDOM);
}

TEST(output_of, knows_the_streams_of_the_process) {
  EXPECT_EQ(output_of(std::cout), process_output::standard);
  EXPECT_EQ(output_of(std::cerr), process_output::error);
  EXPECT_EQ(output_of(std::clog), process_output::error);
  EXPECT_EQ(output_of(std::ostringstream()), std::nullopt);
  EXPECT_EQ(output_of(std::ostream(nullptr)), std::nullopt);
}

}  // namespace
