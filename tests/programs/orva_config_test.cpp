// The program as its users run it, by a shell.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/child_process.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct run_result {
  int code;
  std::string output;
  std::string error;
};

/// A file with a comment after `gap`, and with an array over two lines, the second of them after
/// `indentation`.
std::string viewer_file(const std::string& gap, const std::string& indentation) {
  return "# Size on screen\n"
         "[window]\n"
         "width = 640" +
         gap +
         "# pixels\n"
         "title = \"Free space\"\n"
         "\n"
         "[]\n"
         "paths[] = /home, \"a b\",\n" +
         indentation + "/srv\n";
}

/// A directory with configuration files, in which the program runs.
class orva_config : public testing::Test {
 protected:
  orva_config() { directory_.write("viewer.cfg", viewer_file("   ", "          ")); }

  /// Runs a line of the shell, in which $p is the program.
  run_result run_line(const std::string& line) const {
    std::vector<std::string> environment{"p=" + program_, std::string("PATH=") + std::getenv("PATH"),
                                         "PYTHONUTF8=1", "COLUMNS=80"};
    environment.insert(environment.end(), locale_.begin(), locale_.end());
    const auto child = orva_test::run_child(
        "/bin/sh", {"sh", "-c", "cd '" + directory_.name() + "'; exec 2>stderr; " + line}, environment);
    return {child.code, child.output, directory_.read("stderr")};
  }

  /// Runs the program with these words, as the shell reads them.
  run_result run(const std::string& words) const { return run_line("exec \"$p\" " + words); }

  void expect_output(const std::string& words, const std::string& output) const {
    const run_result result = run(words);
    EXPECT_EQ(result.output, output) << words;
    EXPECT_EQ(result.error, "") << words;
    EXPECT_EQ(result.code, 0) << words;
  }

  /// The program ends with the code, writes nothing to standard output, and `error` is a part of what it
  /// writes to standard error.
  void expect_failure(const std::string& words, int code, const std::string& error) const {
    const run_result result = run(words);
    EXPECT_EQ(result.output, "") << words;
    EXPECT_THAT(result.error, HasSubstr(error)) << words;
    EXPECT_EQ(result.code, code) << words;
  }

  /// The same, and the file stays as it is, with its time.
  void expect_refused(const std::string& words, const std::string& error) const {
    const auto path = directory_.path() / "viewer.cfg";
    const std::string before = directory_.read("viewer.cfg");
    const auto time = std::filesystem::last_write_time(path);
    expect_failure(words, 1, error);
    EXPECT_EQ(directory_.read("viewer.cfg"), before) << words;
    EXPECT_EQ(std::filesystem::last_write_time(path), time) << words;
  }

  orva_test::temporary_directory directory_;
  std::string program_ = ORVA_CONFIG;
  std::vector<std::string> locale_;
};

/// What python3 reads from lines of JSON, in Python's own notation.
std::string through_python(const std::string& command) {
  return command + " | python3 -c 'import json, sys\nfor line in sys.stdin: print(json.loads(line))'";
}

TEST_F(orva_config, get_prints_a_value_and_the_elements_of_an_array) {
  expect_output("get viewer.cfg window.width", "640\n");
  expect_output("get viewer.cfg Window/Title", "Free space\n");
  expect_output("get viewer.cfg paths", "/home\na b\n/srv\n");
  expect_output("get viewer.cfg 'paths[]'", "/home\na b\n/srv\n");
  expect_output("get viewer.cfg paths.1", "a b\n");
}

TEST_F(orva_config, get_of_a_key_that_is_not_there_ends_with_1) {
  expect_refused("get viewer.cfg window.height",
                 "viewer.cfg: error: The file has no line for window.height. [config.edit_no_such_key]\n");
  expect_refused("get viewer.cfg window", "[config.edit_no_such_key]");
}

TEST_F(orva_config, set_changes_the_line_of_the_key_and_nothing_else) {
  expect_output("set viewer.cfg window.width 800", "");
  expect_output("set viewer.cfg window.height -5", "");
  expect_output("set viewer.cfg theme 'dark # blue'", "");
  EXPECT_EQ(directory_.read("viewer.cfg"),
            "# Size on screen\n"
            "[window]\n"
            "width = 800   # pixels\n"
            "title = \"Free space\"\n"
            "height = -5\n"
            "\n"
            "[]\n"
            "paths[] = /home, \"a b\",\n"
            "          /srv\n"
            "theme = \"dark # blue\"\n");
  expect_output("get viewer.cfg theme", "dark # blue\n");
}

TEST_F(orva_config, set_of_an_array_takes_all_values_as_they_are) {
  expect_output("set viewer.cfg 'paths[]' /home 'c,d' ' e'", "");
  expect_output("get viewer.cfg paths", "/home\nc,d\n e\n");
  expect_output("set viewer.cfg 'window.width[]' 1", "");
  expect_output("get viewer.cfg window.width", "1\n");
}

TEST_F(orva_config, two_dashes_end_the_options) {
  expect_output("set viewer.cfg window.title -- --json", "");
  expect_output("get -- viewer.cfg window.title", "--json\n");
  directory_.write("-x.cfg", "a = 1\n");
  expect_output("get -- -x.cfg a", "1\n");
}

TEST_F(orva_config, what_the_format_cannot_hold_is_refused) {
  expect_refused("set viewer.cfg window.title 'a\"b'", "[config.edit_bad_value]");
  expect_refused("set viewer.cfg window.title ''", "[config.edit_empty_value]");
  expect_refused("set viewer.cfg 'a\"b' 1", "[config.edit_bad_key]");
  expect_refused("set viewer.cfg 'paths[]' a ''", "[config.edit_empty_value]");
  expect_refused(
      "set viewer.cfg paths /home",
      "viewer.cfg: error: paths is an array. To set its elements, write paths[]; or unset it first. "
      "[orva_config.is_array]\n");
  expect_refused("unset viewer.cfg window.height", "[config.edit_no_such_key]");
  expect_refused("unset viewer.cfg paths.1", "[config.edit_array_element]");
}

TEST_F(orva_config, unset_removes_the_lines_of_the_key) {
  expect_output("unset viewer.cfg window.title", "");
  expect_output("unset viewer.cfg 'paths[]'", "");
  EXPECT_EQ(directory_.read("viewer.cfg"), "# Size on screen\n[window]\nwidth = 640   # pixels\n\n[]\n");
}

TEST_F(orva_config, list_is_a_configuration_file_that_reads_the_same) {
  directory_.write("odd.cfg",
                   "a = old\n[\"x] y\"]\nk[] = 1, \"\", \"z, \"\nv = \"# w\"\n[]\na = 2\n\"b]\" = http:x\n");
  expect_output("list odd.cfg",
                "\"x] y\".k[] = 1, \"\", \"z, \"\n\"x] y\".v = \"# w\"\na = 2\n\"b]\" = http:x\n");
  directory_.write("again.cfg", run("list odd.cfg").output);
  expect_output("list again.cfg", run("list odd.cfg").output);
  expect_output("list viewer.cfg",
                "window.width = 640\nwindow.title = \"Free space\"\npaths[] = /home, \"a b\", /srv\n");
}

TEST_F(orva_config, list_reports_a_key_that_no_line_can_spell) {
  directory_.write("odd.cfg", "[a..b]\nc = 1\nd\"\\\"\" = 2\n[]\ne = 3\n");
  const run_result result = run("list odd.cfg");
  EXPECT_EQ(result.output, "e = 3\n");
  EXPECT_THAT(result.error, HasSubstr("[config.edit_bad_key]"));
  EXPECT_EQ(result.code, 1);
}

TEST_F(orva_config, explain_shows_the_files_that_have_a_key_in_their_order) {
  directory_.write("user.cfg", "cfg_file = other.cfg\n[window]\nwidth = 1024\n");
  const run_result result = run("explain user.cfg viewer.cfg window.width");
  EXPECT_THAT(result.output, HasSubstr("user.cfg:3:9    1024   used\n"));
  EXPECT_THAT(result.output, HasSubstr("viewer.cfg:3:9  640    hidden\n"));
  EXPECT_EQ(result.error, "");
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(run("explain user.cfg viewer.cfg window.title").output, HasSubstr("viewer.cfg:4:9"));
  expect_failure("explain user.cfg viewer.cfg height", 1, "[config.edit_no_such_key]");
  expect_failure("explain viewer.cfg", 2, "The command needs a file and a key. [orva_config.no_key]");
}

TEST_F(orva_config, format_writes_the_layout_and_leaves_a_file_that_has_it) {
  expect_output("format viewer.cfg", "");
  EXPECT_EQ(directory_.read("viewer.cfg"), viewer_file("  ", "    "));
  const auto path = directory_.path() / "viewer.cfg";
  const auto time = std::filesystem::last_write_time(path);
  expect_output("format --json viewer.cfg", "{\"file\":\"viewer.cfg\",\"changed\":false}\n");
  EXPECT_EQ(std::filesystem::last_write_time(path), time);
}

TEST_F(orva_config, check_of_a_good_file_is_silent) {
  directory_.write("good.cfg", "[window]\nwidth = 640\n");
  expect_output("check --werror good.cfg", "");
}

TEST_F(orva_config, check_has_a_line_for_each_finding_and_ends_with_1_for_errors) {
  directory_.write("cut.cfg", "[a]\nhome = http://x\n");
  const std::string warning =
      "cut.cfg:2:13: warning: The value ends before //, which begins a comment. [config.value_cut]\n";
  expect_output("check cut.cfg", warning);
  run_result result = run("check --werror viewer.cfg cut.cfg");
  EXPECT_THAT(result.output, StartsWith("viewer.cfg:1:1: note: A save would drop the comments."));
  EXPECT_THAT(result.output, HasSubstr("\n" + warning));
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(run("check viewer.cfg cut.cfg").code, 0);
  EXPECT_EQ(run("check --werror viewer.cfg").code, 0);

  directory_.write("broken.cfg", "[a]\nb = \"x\n");
  result = run("check broken.cfg cut.cfg missing.cfg .");
  EXPECT_THAT(result.output, StartsWith("broken.cfg:2:5: error: "));
  EXPECT_THAT(result.output, HasSubstr(warning));
  EXPECT_THAT(result.output,
              HasSubstr("\nmissing.cfg: error: The file does not exist. [config.file_missing]\n"));
  EXPECT_THAT(result.output, HasSubstr("\n.: error: "));
  EXPECT_EQ(result.code, 1);
}

TEST_F(orva_config, missing_and_unreadable_files_are_errors) {
  for (const char* const words : {"get missing.cfg a", "set missing.cfg a 1", "unset missing.cfg a",
                                  "list missing.cfg", "format missing.cfg", "explain missing.cfg a"}) {
    expect_failure(words, 1, "missing.cfg: error: The file does not exist. [config.file_missing]\n");
  }
  expect_failure(
      "get . a", 1,
      ".: error: This is a directory, a pipe or a socket, and no file. [config.file_not_a_file]\n");
  expect_failure("format .", 1, "[config.file_not_a_file]");
  EXPECT_FALSE(std::filesystem::exists(directory_.path() / "missing.cfg"));
}

TEST_F(orva_config, symbolic_links_are_followed_and_stay) {
  std::filesystem::create_symlink("viewer.cfg", directory_.path() / "link.cfg");
  expect_output("set link.cfg window.width 1", "");
  expect_output("get viewer.cfg window.width", "1\n");
  EXPECT_THAT(run("list link.cfg").output, HasSubstr("window.width = 1\n"));
  EXPECT_EQ(run("explain link.cfg window.width").code, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(directory_.path() / "link.cfg"));
  EXPECT_THAT(run("check link.cfg").output, StartsWith("link.cfg: warning: "));
}

TEST_F(orva_config, json_is_read_by_python) {
  directory_.write("cut.cfg", "a = http://x\n\"\xC3\xA9\" = \"\\\"\x01\xFF\"\n");
  const auto python = [&](const std::string& words) {
    return run_line(through_python("\"$p\" --json " + words)).output;
  };
  EXPECT_EQ(python("get viewer.cfg window.title"), "{'key': 'window.title', 'value': 'Free space'}\n");
  EXPECT_EQ(python("get viewer.cfg paths"), "{'key': 'paths', 'elements': ['/home', 'a b', '/srv']}\n");
  EXPECT_EQ(python("list cut.cfg"),
            "{'key': 'a', 'line': 1, 'value': 'http:'}\n"
            "{'key': 'é', 'line': 2, 'value': '\\\\\"\\x01\xEF\xBF\xBD'}\n");
  EXPECT_EQ(python("set viewer.cfg a 1"), "{'file': 'viewer.cfg', 'changed': True}\n");
  EXPECT_EQ(python("unset viewer.cfg a"), "{'file': 'viewer.cfg', 'changed': True}\n");
  EXPECT_EQ(python("format viewer.cfg"), "{'file': 'viewer.cfg', 'changed': True}\n");
  EXPECT_THAT(python("explain viewer.cfg window.width"), HasSubstr("'line': 3, 'column': 9"));
  EXPECT_THAT(python("check cut.cfg"), HasSubstr("'code': 'config.value_cut'"));
  EXPECT_THAT(python("get viewer.cfg none 2>&1"), HasSubstr("'code': 'config.edit_no_such_key'"));
  EXPECT_THAT(python("frobnicate 2>&1"), HasSubstr("'code': 'config.unknown_command'"));
}

TEST_F(orva_config, wrong_usage_ends_with_2_and_names_the_help) {
  const std::string help = "Try orva-config --help for more.\n";
  expect_failure("", 2, help);
  expect_failure("chek viewer.cfg", 2, "command line:1: note: Did you mean check? [config.nearest_name]\n");
  expect_failure("check", 2, help);
  expect_failure("check --werorr viewer.cfg", 2, "--werror");
  expect_failure("get viewer.cfg", 2, help);
  expect_failure("get viewer.cfg a b", 2, help);
  expect_failure("set viewer.cfg a", 2, help);
  expect_failure("set viewer.cfg a 1 2", 2,
                 "error: a takes one value. a[] takes several. [orva_config.one_value]\n");
}

TEST_F(orva_config, output_that_cannot_be_written_ends_with_1) {
  const std::string error = "error: Standard output could not be written. [orva_config.output_failed]\n";
  expect_failure("list viewer.cfg >/dev/full", 1, error);
  expect_failure("--help >/dev/full", 1, error);
  // The reader is gone before the program writes.
  const run_result piped = run_line("{ sleep 0.3; \"$p\" list viewer.cfg; echo $? >code; } | true; cat code");
  EXPECT_EQ(piped.output, "1\n");
  EXPECT_THAT(piped.error, HasSubstr(error));
}

TEST_F(orva_config, file_that_cannot_be_replaced_is_reported) {
  expect_failure("set /proc/self/comm a 1", 1,
                 "/proc/self/comm: error: A new file could not be created in the directory: ");
}

TEST_F(orva_config, help_of_the_program_and_of_each_command_has_its_texts) {
  EXPECT_THAT(run("--help").output, StartsWith("Usage: orva-config [OPTION]... COMMAND"));
  for (const char* const command : {"check", "get", "set", "unset", "list", "explain", "format"}) {
    const run_result result = run(std::string(command) + " --help");
    EXPECT_THAT(result.output, StartsWith("Usage: orva-config " + std::string(command)));
    EXPECT_EQ(result.code, 0);
  }
  EXPECT_THAT(run("explain --help").output, HasSubstr("FILE... KEY\n"));
  EXPECT_THAT(run("--version").output, StartsWith("orva-config 2."));
}

TEST_F(orva_config, texts_are_in_the_language_of_the_option_or_of_the_environment) {
  EXPECT_THAT(run("--language de --help").output, HasSubstr("Prüft, liest und ändert Konfigurationsdateien"));
  EXPECT_THAT(run("get --help --language fr_CA").output, HasSubstr("Affiche la valeur d’une clé"));
  EXPECT_THAT(run("--help --language ja").output, HasSubstr("設定ファイルの検査、読み取り、編集を行います"));
  EXPECT_THAT(run("--language de set viewer.cfg paths 1").error, HasSubstr("paths ist ein Array."));
  EXPECT_THAT(run("--language fr get viewer.cfg none").error, testing::Not(HasSubstr("The file")));
  EXPECT_THAT(run("--language ja").error, HasSubstr("詳しくは orva-config --help を実行してください。"));

  locale_ = {"LANG=de_DE.UTF-8"};
  EXPECT_THAT(run("--help").output, HasSubstr("Konfigurationsdateien"));
  locale_ = {"LANG=de_DE.UTF-8", "LC_MESSAGES=fr_FR.UTF-8", "LC_ALL="};
  EXPECT_THAT(run("--help").output, HasSubstr("fichiers de configuration"));
  locale_ = {"LANG=de_DE.UTF-8", "LC_ALL=C"};
  EXPECT_THAT(run("--help").output, HasSubstr("configuration files"));
  locale_ = {"LANG=pt_BR.UTF-8"};
  EXPECT_EQ(run("--help").error, "");
}

TEST_F(orva_config, language_without_texts_is_a_warning) {
  const run_result result = run("--language xx get viewer.cfg window.width");
  EXPECT_EQ(result.output, "640\n");
  EXPECT_EQ(result.error, "warning: There are no texts in the language xx. [orva_config.unknown_language]\n");
  EXPECT_EQ(result.code, 0);
}

TEST_F(orva_config, catalogs_in_english_say_what_is_built_in) {
  std::vector<std::string> with_catalogs;
  const std::vector<std::string> lines{"--help",           "check --help",          "get --help",
                                       "set --help",       "unset --help",          "list --help",
                                       "explain --help",   "format --help",         "frobnicate",
                                       "explain a",        "set a b c d",           "set viewer.cfg paths 1",
                                       "get viewer.cfg x", "list --help >/dev/full"};
  const auto texts = [&](const std::string& line) {
    const run_result result = run(line);
    return result.output + result.error;
  };
  for (const std::string& line : lines) with_catalogs.push_back(texts(line));
  program_ = directory_.file("alone");
  std::filesystem::copy_file(ORVA_CONFIG, program_);
  for (std::size_t i = 0; i < lines.size(); ++i) EXPECT_EQ(texts(lines[i]), with_catalogs[i]) << lines[i];
}

TEST_F(orva_config, without_catalogs_the_texts_are_english) {
  program_ = directory_.file("alone");
  std::filesystem::copy_file(ORVA_CONFIG, program_);
  locale_ = {"LANG=de_DE.UTF-8"};
  EXPECT_THAT(run("--help").output, HasSubstr("Checks, reads and edits configuration files"));
  EXPECT_EQ(run("--help").error, "");
  EXPECT_THAT(run("--help --language de").error, HasSubstr("[orva_config.unknown_language]"));
  expect_failure("get viewer.cfg x", 1, "The file has no line for x.");
}

}  // namespace
