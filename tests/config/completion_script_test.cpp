// The scripts in the shells that they are for. A shell that is missing makes a test fail.
#include "orva/config/completion_script.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>

#include "orva/exceptions/exception.hpp"
#include "tests/config/declared_programs.hpp"
#include "tests/support/child_process.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using namespace ORVA_NAMESPACE::config;
using namespace orva_test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using testing::UnorderedElementsAreArray;
using words = std::vector<std::string>;

struct shell_program {
  completion_shell shell;
  const char* name;
  std::vector<std::string> command;
};

std::vector<shell_program> shells() {
  const std::string drivers = COMPLETION_DRIVERS;
  return {{completion_shell::bash, "bash", {"bash", "--norc", "--noprofile", drivers + "/bash_driver.sh"}},
          {completion_shell::zsh, "zsh", {"zsh", "-f", drivers + "/zsh_driver.zsh"}},
          {completion_shell::fish, "fish", {"fish", "--no-config", drivers + "/fish_driver.fish"}}};
}

class completions : public testing::TestWithParam<shell_program> {
 protected:
  /// The completions of each line, without the help that is shown beside them.
  std::map<std::string, words> of(const declaration& declared, const words& lines) {
    std::map<std::string, words> found;
    std::string line;
    std::istringstream output(run(declared, lines));
    for (std::string text; std::getline(output, text);) {
      if (text.starts_with("> ")) {
        found[line = text.substr(2)];
      } else {
        found[line].push_back(text.substr(0, text.find('\t')));
      }
    }
    EXPECT_EQ(found.size(), lines.size());
    return found;
  }

  words of_line(const declaration& declared, const std::string& line) { return of(declared, {line})[line]; }

  std::string run(const declaration& declared, const words& lines) {
    return run_script(completion_script(declared, GetParam().shell), lines);
  }

  std::string run_script(const std::string& text, const words& lines) {
    const std::string script = directory_.write("script", text);
    words arguments = {"sh", "-c", "cd \"$0\" && exec \"$@\"", directory_.name()};
    arguments.insert(arguments.end(), GetParam().command.begin(), GetParam().command.end());
    arguments.push_back(script);
    arguments.insert(arguments.end(), lines.begin(), lines.end());
    const child_result result =
        run_child("/bin/sh", arguments,
                  {"PATH=" + std::string(std::getenv("PATH")), "HOME=" + directory_.name(), "TERM=dumb",
                   "TMPDIR=" + directory_.make_directory("temporary"), "LC_ALL=C.UTF-8"});
    EXPECT_EQ(result.code, 0) << GetParam().name;
    return result.output;
  }

  bool is(completion_shell shell) const { return GetParam().shell == shell; }

  const temporary_directory directory_;
};

INSTANTIATE_TEST_SUITE_P(of, completions, testing::ValuesIn(shells()),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_P(completions, of_options_are_those_of_the_command_and_around_it) {
  auto found = of(declared_tool(), {"tool -", "tool --co", "tool remote add --", "tool fetch --mo"});
  EXPECT_THAT(found["tool -"],
              UnorderedElementsAre("--config", "--quiet", "--no-quiet", "--help", "--version"));
  EXPECT_THAT(found["tool --co"], ElementsAre("--config"));
  EXPECT_THAT(found["tool remote add --"],
              UnorderedElementsAre("--mode", "--config", "--quiet", "--no-quiet", "--help", "--version"));
  EXPECT_THAT(found["tool fetch --mo"], IsEmpty());
}

TEST_P(completions, of_commands) {
  auto found = of(declared_tool(), {"tool ", "tool r", "tool -q --config x remote ", "tool remote fetch "});
  EXPECT_THAT(found["tool "], UnorderedElementsAre("remote", "fetch"));
  EXPECT_THAT(found["tool r"], ElementsAre("remote"));
  EXPECT_THAT(found["tool -q --config x remote "], UnorderedElementsAre("add", "remove"));
}

TEST_P(completions, of_choices) {
  auto found = of(declared_viewer(), {"viewer --mode ", "viewer -m s", "viewer --mode=", "viewer --mode=sm",
                                      "viewer -vm fa", "viewer --mode=fast -m 16:"});
  EXPECT_THAT(found["viewer --mode "], UnorderedElementsAre("fast", "small", "16:9"));
  EXPECT_THAT(found["viewer -m s"], ElementsAre("small"));
  EXPECT_THAT(found["viewer -vm fa"], ElementsAre("fast"));
  const std::string option = is(completion_shell::fish) ? "--mode=" : "";
  EXPECT_THAT(found["viewer --mode="],
              UnorderedElementsAre(option + "fast", option + "small", option + "16:9"));
  EXPECT_THAT(found["viewer --mode=sm"], ElementsAre(option + "small"));
  // Bash replaces what comes after the colon only.
  EXPECT_THAT(found["viewer --mode=fast -m 16:"], ElementsAre(is(completion_shell::bash) ? "9" : "16:9"));
}

TEST_P(completions, of_paths_are_files) {
  static_cast<void>(directory_.write("picture-of-a-cat", ""));
  auto found = of(declared_viewer(), {"viewer pict", "viewer a b pict", "viewer --output pict",
                                      "viewer -opict -v pict", "viewer -- pict", "viewer --output=pict"});
  const std::string file = is(completion_shell::bash) ? "<file>" : "picture-of-a-cat";
  EXPECT_THAT(found["viewer pict"], ElementsAre(file));
  EXPECT_THAT(found["viewer a b pict"], ElementsAre(file));
  EXPECT_THAT(found["viewer --output pict"], ElementsAre(file));
  EXPECT_THAT(found["viewer -opict -v pict"], ElementsAre(file));
  EXPECT_THAT(found["viewer -- pict"], ElementsAre(file));
  EXPECT_THAT(found["viewer --output=pict"],
              ElementsAre(is(completion_shell::fish) ? "--output=" + file : file));
}

TEST_P(completions, of_other_values_are_none) {
  static_cast<void>(directory_.write("picture", ""));
  auto found = of(declared_viewer(), {"viewer --threads ", "viewer --threads=p"});
  EXPECT_THAT(found["viewer --threads "], IsEmpty());
  EXPECT_THAT(found["viewer --threads=p"], IsEmpty());
}

TEST_P(completions, of_arguments_are_by_their_number) {
  static_cast<void>(directory_.write("picture", ""));
  auto found = of(declared_tool(), {"tool remote add p", "tool remote add name p", "tool remote add n p p"});
  EXPECT_THAT(found["tool remote add p"], IsEmpty());
  EXPECT_THAT(found["tool remote add name p"],
              ElementsAre(is(completion_shell::bash) ? "<file>" : "picture"));
  EXPECT_THAT(found["tool remote add n p p"], IsEmpty());
}

TEST_P(completions, do_not_offer_deprecated_options_and_know_their_values) {
  declaration tool("tool");
  tool.add(setting("old", one_of({"a", "b"})).deprecated("new")).add(setting("new", one_of({"a", "b"})));
  auto found = of(tool, {"tool --", "tool --old "});
  EXPECT_THAT(found["tool --"], UnorderedElementsAre("--new", "--help"));
  EXPECT_THAT(found["tool --old "], UnorderedElementsAre("a", "b"));
}

TEST_P(completions, leave_out_requests_that_a_setting_has) {
  declaration tool("tool");
  tool.version("1").add(setting("help", one_of({"me", "you"})));
  auto found = of(tool, {"tool --", "tool --help "});
  EXPECT_THAT(found["tool --"], UnorderedElementsAre("--help", "--version"));
  EXPECT_THAT(found["tool --help "], UnorderedElementsAre("me", "you"));
}

TEST_P(completions, know_short_options_that_are_special_in_a_shell) {
  declaration tool("tool");
  words lines;
  for (const char letter : std::string("'\"$\\[]*?:`!~;&|<>(){}%@#^+,./")) {
    const std::string key = "k" + std::to_string(lines.size());
    tool.add(setting(key, one_of({"one-" + key})).option(letter).option(key));
    lines.push_back("tool -" + std::string(1, '\\') + letter + " one");
  }
  auto found = of(tool, lines);
  // Bash hands over words as they are typed, with the backslash.
  if (is(completion_shell::bash)) return;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_THAT(found[lines[i]], ElementsAre("one-k" + std::to_string(i))) << lines[i];
  }
}

/// Texts that run something where they are not quoted, or break a quote or a format.
const words hostile = {"it's",
                       "\"q\"",
                       "$HOME",
                       "$(touch INJECTED)",
                       "`touch INJECTED`",
                       ";touch INJECTED;",
                       "'; touch INJECTED; '",
                       "\\'; touch INJECTED; \\'",
                       "(touch INJECTED)",
                       "a b",
                       "back\\slash\\",
                       "[x]",
                       "{a}",
                       "x*?",
                       "~",
                       "%s%d%n",
                       "&",
                       "!!",
                       "#x",
                       "\xE6\x97\xA5\xE6\x9C\xAC"};

TEST_P(completions, of_hostile_choices_are_these_choices) {
  declaration tool("tool");
  std::vector<ORVA_NAMESPACE::strings::ustring8> choices(hostile.begin(), hostile.end());
  choices.emplace_back("not\nvisible");
  choices.emplace_back("malformed\xFF");
  tool.add(setting("mode", one_of(choices)));
  EXPECT_THAT(of_line(tool, "tool --mode "), UnorderedElementsAreArray(hostile));
  EXPECT_FALSE(std::filesystem::exists(directory_.file("INJECTED")));
}

TEST_P(completions, are_not_harmed_by_hostile_texts) {
  declaration tool("tool");
  declaration command("");
  std::size_t number = 0;
  for (const std::string& text : hostile) {
    const std::string name = "k" + std::to_string(++number);
    tool.add(setting(name, flag()).help(text + ":\n" + text + "\x01").group(text));
    tool.add_command(name, text + "\n" + text, command);
  }
  auto found = of(tool, {"tool --k1", "tool k2"});
  EXPECT_EQ(found["tool --k1"].size(), 11u);  // k1 and k10 to k19
  EXPECT_THAT(found["tool k2"], UnorderedElementsAre("k2", "k20"));
  EXPECT_FALSE(std::filesystem::exists(directory_.file("INJECTED")));
}

TEST_P(completions, are_not_harmed_by_a_hostile_name) {
  std::string scripts;
  for (const std::string& name : hostile) {
    declaration tool(name);
    scripts += completion_script(tool.add(setting("mode", text())), GetParam().shell);
  }
  EXPECT_EQ(run_script(scripts, {}), "");
  EXPECT_FALSE(std::filesystem::exists(directory_.file("INJECTED")));
}

TEST_P(completions, show_the_help_where_the_shell_does) {
  const std::string output = run(declared_tool(), {"tool rem"});
  const char* const help = is(completion_shell::bash)  ? "> tool rem\nremote\n"
                           : is(completion_shell::zsh) ? "> tool rem\nremote\tremote  -- Knows others.\n"
                                                       : "> tool rem\nremote\tKnows others.\n";
  EXPECT_EQ(output, help);
}

TEST(completion_script, is_empty_for_a_program_without_a_name) {
  EXPECT_EQ(completion_script(declaration(""), completion_shell::bash), "");
}

TEST(completion_script, of_a_wrong_declaration_throws) {
  declaration wrong("tool");
  wrong.add(setting("a", text())).add(setting("a", text()));
  EXPECT_THROW(static_cast<void>(completion_script(wrong, completion_shell::zsh)),
               ORVA_NAMESPACE::exceptions::invalid_argument_value);
}

TEST(completion_script, is_autoloaded_by_zsh_for_the_program) {
  EXPECT_TRUE(completion_script(declared_tool(), completion_shell::zsh).starts_with("#compdef tool\n"));
}

TEST(completion_script, has_functions_of_its_own_for_each_name) {
  EXPECT_NE(completion_script(declaration("a-b"), completion_shell::bash).find("\n_a_2db_completion() {\n"),
            std::string::npos);
  EXPECT_NE(completion_script(declaration("a_b"), completion_shell::bash).find("\n_a_5fb_completion() {\n"),
            std::string::npos);
}

}  // namespace
