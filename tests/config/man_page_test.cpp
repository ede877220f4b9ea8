// The page as man shows it, without a warning.
#include "orva/config/man_page.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "orva/exceptions/exception.hpp"
#include "tests/config/declared_programs.hpp"
#include "tests/support/child_process.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using namespace ORVA_NAMESPACE::config;
using namespace orva_test;
using ORVA_NAMESPACE::strings::ustring8;

std::string run_man(const std::string& page, const std::string& arguments) {
  const temporary_directory directory;
  const std::string file = directory.write("page.1", page);
  const child_result result =
      run_child("/bin/sh", {"sh", "-c", "exec man --warnings -E UTF-8 " + arguments + " -l \"$0\"", file},
                {"PATH=" + std::string(std::getenv("PATH")), "HOME=" + directory.name(), "LC_ALL=C.UTF-8",
                 "MANWIDTH=80", "MANPAGER=cat", "MAN_KEEP_FORMATTING="});
  EXPECT_EQ(result.code, 0) << page;
  return result.output;
}

/// What groff says about the page.
std::string warnings_of(const std::string& page) { return run_man(page, "-Tutf8 -Z 2>&1 >/dev/null"); }

std::string shown(const std::string& page) { return run_man(page, "2>&1"); }

TEST(man_page, shows_what_is_declared) {
  const std::string page = man_page(declared_viewer(), {.date = "2026-11-22", .files = {"/etc/viewer.cfg"}});
  EXPECT_EQ(warnings_of(page), "");
  EXPECT_EQ(shown(page), R"(viewer(1)                                                            viewer(1)

NAME
       viewer - Shows pictures, one after the other, in a window or on the
       whole screen.

SYNOPSIS
       viewer [OPTION]... FILES...

DESCRIPTION
       Shows pictures, one after the other, in a window or on the whole
       screen.

       Pictures may be files or folders.

OPTIONS
       FILES...
              Pictures to show. [required]

       -v, --[no-]verbose
              Shows more. [key: verbose]

       -m, --mode WORD
              How to scale. [one of: fast, small, 16:9] [default: fast] [key:
              mode]

       --width NUMBER
              Width of the window. [default: 640] [key: window.width]

       --delay DURATION
              Time for each. [default: 1s500ms] [key: delay]

       -z, --zoom NUMBER
              Scale. [0.1 to 10] [key: zoom]

       -x, --exclude TEXT
              Names that are not shown. [key: exclude] [may be repeated]

       -o, --output FILE
              Folder for copies. [required] [key: output]

       -j, --jobs NUMBER
              As threads. [1 to 64] [key: jobs] [deprecated, use --threads]

       -h, --help
              Shows this help.

       --version
              Shows the version.

   Speed:
       -t, --threads COUNT
              Number of threads that read pictures ahead. [1 to 64] [default:
              4] [environment: VIEWER_THREADS] [key: threads]

       --cache SIZE
              Memory for pictures. [default: 10 MiB] [key: cache]

   Settings without an option:
       window.title = TEXT
              Title of the window. [default: dark blue]

       password = TEXT
              For pictures behind a login. [environment: VIEWER_PASSWORD]

ENVIRONMENT
       VIEWER_THREADS
              Sets --threads.

       VIEWER_PASSWORD
              Sets password.

CONFIGURATION FILE
       A configuration file has settings under their keys: key = value.

       /etc/viewer.cfg

EXAMPLES
       viewer -t 8 holiday
              Shows a folder.

viewer 2.1                        2026-11-22                         viewer(1)
)");
}

TEST(man_page, has_each_command) {
  const std::string page = man_page(declared_tool(), {.section = "8"});
  EXPECT_EQ(warnings_of(page), "");
  const std::string text = shown(page);
  EXPECT_NE(text.find(R"(
COMMANDS
   tool remote
       tool remote [OPTION]... [COMMAND [ARGUMENT]...]

       Knows others.
)"),
            text.npos)
      << text;
  EXPECT_NE(text.find(R"(
   tool remote add
       tool remote add [OPTION]... NAME [PLACE]

       Adds a place.

       NAME   Its name. [required]

       PLACE  Where it is.

       -m, --mode WORD
              What may be done. [one of: read, write] [key: remote.add.mode]
)"),
            text.npos)
      << text;
  EXPECT_TRUE(text.starts_with("tool(8) ")) << text;
}

TEST(man_page, of_a_program_that_reads_no_file_says_nothing_about_files) {
  const std::string page = man_page(declared_viewer());
  EXPECT_EQ(page.find("CONFIGURATION"), page.npos);
  EXPECT_EQ(page.find("[key: verbose]"), page.npos);
  declaration named = declared_viewer();
  named.add(setting("cfg_file", file_path()));
  const std::string page_of_named = man_page(named);
  EXPECT_NE(page_of_named.find(".SH \"CONFIGURATION FILE\"\n"), page.npos) << page_of_named;
  EXPECT_NE(page_of_named.find("[key: verbose]"), page.npos);
}

TEST(man_page, of_a_program_without_anything_has_no_warning) {
  EXPECT_EQ(warnings_of(man_page(declaration(""))), "");
  EXPECT_EQ(warnings_of(man_page(declaration("tool"))), "");
}

TEST(man_page, shows_japanese) {
  declaration tool("tool");
  std::string long_text;
  for (int i = 0; i < 50; ++i) long_text += "日本語の説明。";
  tool.description(long_text).add(setting("k", text()).value_name("値").help(long_text).group("速さ"));
  const std::string page = man_page(tool);
  EXPECT_EQ(warnings_of(page), "");
  EXPECT_EQ(page.find_first_not_of("\n !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`"
                                   "abcdefghijklmnopqrstuvwxyz{|}~"),
            page.npos);
  EXPECT_NE(shown(page).find("--k 値 日本語の説明。日本語の説明。"), std::string::npos) << shown(page);
}

std::string without_blanks(std::string_view text) {
  std::string result;
  for (const char unit : text) {
    if (unit != ' ' && unit != '\n') result += unit;
  }
  return result;
}

/// Requests, escapes, arguments and characters that groff would show as others.
const std::vector<std::string> hostile = {".TH x",
                                          "'br",
                                          ".\\\" gone",
                                          "\\fBbold\\fR",
                                          "\\*[x] \\n[x] \\$1",
                                          "\"quoted\" \"\"",
                                          "a\\",
                                          "\\",
                                          ".",
                                          "'",
                                          "...",
                                          "-x --long `back' ^ ~",
                                          ".so /etc/passwd",
                                          ".sy touch x",
                                          "\\X'x'",
                                          "\\[u0041]",
                                          "\xC3\xA9\xEA\xB0\x80 \xF0\x9F\x98\x80",
                                          std::string(200, 'w'),
                                          "%s {a}"};

std::size_t count_of(const std::string& searched, const std::string& text) {
  std::size_t count = 0;
  for (std::size_t at = text.find(searched); at != text.npos;
       at = text.find(searched, at + searched.size())) {
    ++count;
  }
  return count;
}

TEST(man_page, shows_hostile_texts_as_they_are) {
  declaration tool("tool");
  std::string description;
  for (const std::string& text : hostile) {
    description += text + '\n';
    tool.example(text, text)
        .add(setting("k" + std::to_string(tool.settings().size()), flag()).help(text).group(text));
  }
  const std::string page = man_page(tool.description(description));
  EXPECT_EQ(warnings_of(page), "");
  const std::string text = shown(page);
  for (const std::string& each : hostile) {
    EXPECT_GE(count_of(without_blanks(each), without_blanks(text)), 5u) << each << '\n' << text;
  }
}

TEST(man_page, takes_hostile_names_and_headings) {
  for (const std::string& text : hostile) {
    declaration tool(text);
    tool.version(text).add(setting("k", integer()).value_name(text).environment(text));
    EXPECT_EQ(warnings_of(man_page(
                  tool, {.section = ustring8(text), .date = ustring8(text), .files = {ustring8(text)}})),
              "")
        << text;
  }
}

TEST(man_page, has_only_its_own_requests) {
  static const std::set<std::string> requests = {".TH", ".nh", ".ad", ".SH", ".SS", ".PP", ".TP"};
  orva_test::random_engine random;
  for (int i = 0; i < 200; ++i) {
    std::string text;
    for (std::size_t count = random() % 20; count > 0; --count)
      text += "\\.'\"\n\r x-\x80\xE6"[random() % 12];
    declaration tool(text);
    tool.description(text).version(text).example(text, text);
    tool.add(setting("k", flag()).help(text).group(text).value_name(text));
    const std::string page = man_page(tool, {.date = ustring8(text), .files = {ustring8(text)}});
    for (std::string_view rest = page; !rest.empty(); rest.remove_prefix(rest.find('\n') + 1)) {
      const std::string_view line = rest.substr(0, rest.find('\n'));
      ASSERT_FALSE(line.empty()) << page;
      ASSERT_TRUE(line[0] != '.' || requests.contains(std::string(line.substr(0, 3)))) << line;
      ASSERT_NE(line[0], '\'') << page;
    }
  }
}

TEST(man_page, of_a_wrong_declaration_throws) {
  declaration wrong("tool");
  wrong.add(setting("a", text())).add(setting("a", text()));
  EXPECT_THROW(static_cast<void>(man_page(wrong)), ORVA_NAMESPACE::exceptions::invalid_argument_value);
}

}  // namespace
