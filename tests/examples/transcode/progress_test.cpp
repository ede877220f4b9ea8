// The progress bar, as a terminal gets it and as a person sees it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/examples/transcode/run_transcode.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using orva_test::run;
using orva_test::temporary_directory;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

/// A pseudo-terminal that passes bytes on as they are. Holds a few kilobytes until they are read.
class terminal {
 public:
  terminal() {
    termios settings = {};
    ::cfmakeraw(&settings);
    char name[256];
    if (::openpty(&shown_, &device_, name, &settings, nullptr) != 0)
      throw std::runtime_error("no pseudo-terminal");
    name_ = name;
  }
  terminal(const terminal&) = delete;
  terminal& operator=(const terminal&) = delete;
  ~terminal() {
    close_device();
    ::close(shown_);
  }

  const std::string& name() const { return name_; }

  /// All that was written, once the programs have ended.
  std::string bytes() {
    close_device();
    return orva_test::child_process::read_all(shown_);
  }

 private:
  void close_device() {
    if (device_ >= 0) ::close(device_);
    device_ = -1;
  }

  int shown_ = -1;
  int device_ = -1;
  std::string name_;
};

/// The lines that a person sees after these bytes, without blanks at their ends.
std::vector<std::string> lines_seen(std::string_view bytes) {
  std::vector<std::string> lines(1);
  std::size_t column = 0;
  for (const char byte : bytes) {
    if (byte == '\n') lines.emplace_back();
    if (byte == '\n' || byte == '\r') {
      column = 0;
      continue;
    }
    if (lines.back().size() == column) lines.back() += ' ';
    lines.back()[column++] = byte;
  }
  for (std::string& line : lines) line.erase(line.find_last_not_of(' ') + 1);
  if (lines.back().empty()) lines.pop_back();
  return lines;
}

const std::string whole_bar = "[########################################] 100 %";

TEST(transcode_progress, bar_grows_in_its_line_and_ends_it) {
  const temporary_directory directory;
  terminal screen;
  const auto file = directory.write("from", std::string(2 << 16, 'a'));
  EXPECT_EQ(run("exec $transcode --check --progress -f utf-8 " + file + " 2>" + screen.name()).code, 0);
  EXPECT_EQ(screen.bytes(), "\r[####################....................]  50 %\r" + whole_bar + "\n");
}

TEST(transcode_progress, short_work_shows_none_on_a_terminal) {
  const temporary_directory directory;
  terminal screen;
  const auto file = directory.write("from", "text");
  EXPECT_EQ(run("exec $transcode --check -f utf-8 " + file + " 2>" + screen.name()).code, 0);
  EXPECT_EQ(screen.bytes(), "");
}

/// What a terminal gets of work whose input comes a second late.
std::string shown_of_long_work(const std::string& words) {
  const temporary_directory directory;
  terminal screen;
  const auto pipe = directory.file("pipe");
  // The shell gets on once the program has opened the pipe.
  run("mkfifo " + pipe + "; $transcode --check -f utf-8 " + words + ' ' + pipe + " 2>" + screen.name() +
      " & exec 3>" + pipe + "; sleep 1; exec 3>&-; wait");
  return screen.bytes();
}

TEST(transcode_progress, long_work_shows_it_on_a_terminal_unless_told_not_to) {
  EXPECT_EQ(shown_of_long_work(""), "\r0 MB\n");
  EXPECT_EQ(shown_of_long_work("--no-progress"), "");
}

TEST(transcode_progress, lines_of_the_report_take_the_place_of_the_bar) {
  const temporary_directory directory;
  terminal screen;
  const auto file = directory.write("from", std::string(1 << 16, 'a') + '\xFF' + std::string(1 << 16, 'a'));
  EXPECT_EQ(run("exec $transcode --check --progress -f utf-8 " + file + " 2>" + screen.name()).code,
            orva_test::something_lost);
  EXPECT_THAT(lines_seen(screen.bytes()), ElementsAre(HasSubstr(":1:65537: warning: 0xFF at byte 65536"),
                                                      whole_bar, EndsWith(": 1 loss: 1 malformed")));
}

TEST(transcode_progress, failure_takes_the_place_of_the_bar) {
  const temporary_directory directory;
  terminal screen;
  const auto pipe = directory.file("pipe");
  // A pipe holds less than two of the pieces that the program reads. Once three are written, it has drawn the
  // bar after the first one.
  const auto result =
      run("mkfifo " + pipe + "; $transcode --check --progress -f utf-8 " + pipe + " 2>" + screen.name() +
          " & exec 3>" + pipe + "; head -c 196608 /dev/zero >&3; kill -TERM $!; exec 3>&-; wait $!; echo $?");
  EXPECT_EQ(result.output, std::to_string(orva_test::interrupted) + '\n');
  const std::string bytes = screen.bytes();
  EXPECT_THAT(bytes, HasSubstr("0 MB"));
  EXPECT_THAT(lines_seen(bytes), ElementsAre("transcode: interrupted"));
}

}  // namespace
