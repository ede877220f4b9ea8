// What the words of a command line mean in both styles: a table of words, values and findings.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "orva/config/settings.hpp"
#include "orva/platform/native_path.hpp"
#include "tests/support/config_item.hpp"
#include "tests/support/declared_program.hpp"

namespace {

using namespace orva_test;
using namespace ORVA_NAMESPACE::config;

using words = std::vector<std::string>;

declaration tool() {
  declaration declared("tool");
  declared.version("1.0");
  declared.add(setting("threads", integer_between(-64, 64)).option('t'));
  declared.add(setting("verbose", flag()).option('v'));
  declared.add(setting("all", flag()).option('a'));
  declared.add(setting("name", text()).option('n'));
  declared.add(setting("out", file_path()).option('o', "output"));
  declared.add(setting("window.width", integer()));
  declared.add(setting("sizes", list_of(integer())).option('s'));
  declared.add(setting("names", list_of(text())).option('l'));
  declared.add_positional(setting("first", text()));
  declared.add_positional(setting("files", list_of(file_path())));
  return declared;
}

/// The values that the command line gives, as "threads=8 names=[a|b]", in alphabetical order, then the
/// findings as "!code name".
std::string reading_of(const program_run& run) {
  std::vector<base_config_item::value_entry> entries;
  run.settings.manager().get_config_item("command line")->get_value_pair_array("", entries, true);
  std::string result;
  std::string array = "\n";
  for (const auto& [key, node] : entries) {
    if (node.first == 0 || key.starts_with(array)) continue;
    if (!result.empty()) result += ' ';
    if (node.first == 1) result += key + '=' + node.second.as_string();
    if (node.first != 3) continue;
    array = key + '.';
    result += key + "=[";
    for (const std::string& element :
         array_of(*run.settings.manager().get_config_item("command line"), key)) {
      result += (result.back() == '[' ? "" : "|") + element;
    }
    result += ']';
  }
  for (const auto& each : run.settings.report().findings()) {
    if (!result.empty()) result += ' ';
    result += '!' + each.code.substr(each.code.find('.') + 1);
    if (!each.arguments.empty()) result += ':' + each.arguments[0].value().as_string();
  }
  if (run.settings.asks_for() == asked_for::help) result += " ?help";
  if (run.settings.asks_for() == asked_for::version) result += " ?version";
  return result;
}

struct style_row {
  words arguments;
  const char* reading;
};

// Names the row in a failure.
void PrintTo(const style_row& row, std::ostream* stream) {
  for (const std::string& word : row.arguments) *stream << word << ' ';
}

const style_row gnu_rows[] = {
    {{}, ""},
    {{"--threads", "8"}, "threads=8"},
    {{"--threads=8"}, "threads=8"},
    {{"-t", "8"}, "threads=8"},
    {{"-t8"}, "threads=8"},
    {{"-t=8"}, "threads=8"},
    {{"--threads", "-5"}, "threads=-5"},
    {{"-t-5"}, "threads=-5"},
    {{"-t", "-5"}, "threads=-5"},
    {{"--name", "-.5"}, "name=-.5"},
    {{"--name="}, "name="},
    {{"--name", ""}, "name="},
    {{"-n="}, "name="},
    {{"--name=a=b"}, "name=a=b"},
    {{"--name", "a b"}, "name=a b"},
    {{"--name", "a", "--name", "a"}, "name=a"},
    {{"--name", "a", "--name", "b"}, "name=b !repeated:--name"},
    {{"--name", "-"}, "name=-"},
    {{"--name", "--"}, "!missing_value:--name !attach_value:--name"},
    {{"--name"}, "!missing_value:--name"},
    {{"-n"}, "!missing_value:-n"},
    {{"--name", "--verbose"}, "verbose=true !missing_value:--name !attach_value:--name"},
    {{"--name", "-x"}, "!missing_value:--name !attach_value:--name !unknown_option:-x"},
    {{"--name=-x"}, "name=-x"},
    {{"--window.width", "5"}, "window.width=5"},
    {{"--output", "x"}, "out=x"},
    {{"--out", "x"}, "first=x !unknown_option:--out !nearest_name:--output"},
    {{"--Threads", "8"}, "first=8 !unknown_option:--Threads !nearest_name:--threads"},
    {{"--thread", "8"}, "first=8 !unknown_option:--thread !nearest_name:--threads"},
    {{"--thread=8"}, "!unknown_option:--thread !nearest_name:--threads"},
    {{"--xyzxyz"}, "!unknown_option:--xyzxyz"},
    {{"--t", "8"}, "first=8 !unknown_option:--t !nearest_name:-t"},
    {{"--x"}, "!unknown_option:--x"},
    // Dashes as word processors write them.
    {{"\u2013threads", "8"}, "first=8 !unknown_option:\u2013threads !nearest_name:--threads"},
    {{"\u2014threads=8"}, "!unknown_option:\u2014threads !nearest_name:--threads"},
    {{"\u2010\u2010verbose"}, "!unknown_option:\u2010\u2010verbose !nearest_name:--verbose"},
    {{"-\u2013verbose"}, "!unknown_option:-\u2013verbose !nearest_name:--verbose"},
    {{"\u2212v"}, "!unknown_option:\u2212v !nearest_name:-v"},
    {{"\u2013help"}, "!unknown_option:\u2013help !nearest_name:--help"},
    {{"\u2013x"}, "first=\u2013x"},
    {{"\u2013"}, "first=\u2013"},
    {{"\u2016v"}, "first=\u2016v"},
    {{"\xE2\x80"}, "first=\xE2\x80"},
    {{"--", "\u2013v"}, "first=\u2013v"},
    {{"--name", "\u2013v"}, "name=\u2013v"},
    // Flags.
    {{"--verbose"}, "verbose=true"},
    {{"-v"}, "verbose=true"},
    {{"--no-verbose"}, "verbose=false"},
    {{"--verbose=off"}, "verbose=off"},
    {{"-v=no"}, "verbose=no"},
    {{"--verbose=perhaps"}, "verbose=perhaps !not_a_flag:--verbose"},
    {{"--verbose="}, "verbose= !not_a_flag:--verbose"},
    {{"--no-verbose=yes"}, "!unexpected_value:--no-verbose"},
    {{"--no-name"}, "!unknown_option:--no-name"},
    {{"--no-verbos"}, "!unknown_option:--no-verbos !nearest_name:--no-verbose"},
    {{"--noverbose"}, "!unknown_option:--noverbose !nearest_name:--no-verbose"},
    {{"-no-verbose"}, "!unknown_option:-no-verbose !nearest_name:--no-verbose"},
    {{"--verbose", "a.jpg"}, "first=a.jpg verbose=true"},
    {{"--verbose", "--no-verbose"}, "verbose=false !repeated:--verbose"},
    {{"-vv"}, "verbose=true"},
    {{"-va"}, "all=true verbose=true"},
    {{"-vat8"}, "all=true threads=8 verbose=true"},
    {{"-vat", "8"}, "all=true threads=8 verbose=true"},
    {{"-vx"}, "verbose=true !unknown_option:-x"},
    {{"-vxt8"}, "verbose=true !unknown_option:-x"},
    // One dash before a long option.
    {{"-threads", "8"}, "first=8 !unknown_option:-threads !nearest_name:--threads"},
    {{"-threads=8"}, "!unknown_option:-threads !nearest_name:--threads"},
    {{"-output", "x"}, "first=x !unknown_option:-output !nearest_name:--output"},
    {{"-verbos"}, "verbose=true !unknown_option:-e"},
    {{"-wondow.width"}, "!unknown_option:-wondow.width !nearest_name:--window.width"},
    {{"-nverbose"}, "name=verbose"},
    {{"-cruder", "8"}, "first=8 !unknown_option:-cruder"},
    {{"-ugly", "8"}, "first=8 !unknown_option:-u"},
    {{"-quiet", "8"}, "first=8 !unknown_option:-q"},
    {{"-\xC3\xA4"}, "!unknown_option:-\xC3\xA4"},
    {{"-\xC3\xA4\xC3\xB6"}, "!unknown_option:-\xC3\xA4\xC3\xB6"},
    // Words.
    {{"a"}, "first=a"},
    {{"a", "b", "c"}, "files=[b|c] first=a"},
    {{"a", "b,c"}, "files=[b,c] first=a"},
    {{"a", "-v", "b"}, "files=[b] first=a verbose=true"},
    {{"-", "-"}, "files=[-] first=-"},
    {{"--", "--verbose", "-v"}, "files=[-v] first=--verbose"},
    {{"--", "--"}, "first=--"},
    {{"-5"}, "first=-5"},
    {{"-.5"}, "first=-.5"},
    {{"-5x"}, "first=-5x"},
    {{"a", "-5"}, "first=a !unknown_option:-5"},
    {{"a", "--", "-5"}, "files=[-5] first=a"},
    {{"-."}, "!unknown_option:-."},
    {{"/verbose"}, "first=/verbose"},
    {{"/?"}, "first=/?"},
    {{"", ""}, "files=[] first= !not_a_path:files"},
    // Lists.
    {{"--sizes", "1", "--sizes", "2"}, "sizes=[1|2]"},
    {{"--sizes=1,2", "-s3"}, "sizes=[1|2|3]"},
    {{"--sizes", "1, 2"}, "sizes=[1|2]"},
    {{"--sizes", "1", "2"}, "first=2 sizes=[1]"},
    {{"--sizes", "-1"}, "sizes=[-1]"},
    {{"--sizes=1,,2"}, "sizes=[1||2] !not_an_integer:--sizes"},
    {{"--sizes="}, "sizes=[] !not_an_integer:--sizes"},
    {{"--names=a,b", "-l", "c"}, "names=[a,b|c]"},
    // Requests.
    {{"--help"}, " ?help"},
    {{"-h"}, " ?help"},
    {{"-vh"}, "verbose=true ?help"},
    {{"--version"}, " ?version"},
    {{"--help", "--version"}, " ?help"},
    {{"--help=all"}, "!unexpected_value:--help"},
    {{"--version="}, "!unexpected_value:--version"},
    {{"--versoin"}, "!unknown_option:--versoin !nearest_name:--version"},
    {{"--name", "--help"}, "!missing_value:--name !attach_value:--name ?help"},
    {{"--", "--help"}, "first=--help"},
    {{"--hlep"}, "!unknown_option:--hlep !nearest_name:--help"},
};

const style_row single_dash_rows[] = {
    {{}, ""},
    {{"-threads=8"}, "threads=8"},
    {{"-threads:8"}, "threads=8"},
    {{"-threads:=8"}, "threads=8"},
    {{"-threads$8"}, "threads=8"},
    {{"-threads", "8"}, "threads=8"},
    {{"/threads=8"}, "threads=8"},
    {{"--threads=8"}, "threads=8"},
    {{"-THREADS=8"}, "threads=8"},
    {{"-Window/Width=8"}, "window.width=8"},
    {{"-t", "8"}, "threads=8"},
    {{"-t8"}, "!unknown_option:-t8"},
    {{"-output=x"}, "out=x"},
    {{"-out=x"}, "out=x"},
    {{"-threads", "-5"}, "threads=-5"},
    {{"-name", "a,b"}, "name=a,b"},
    {{"-name=a,b"}, "name=a,b"},
    {{"-name=x y"}, "name=x y"},
    {{"-name", "/x"}, "name=/x"},
    {{"-name", "/verbose"}, "verbose=true !missing_value:-name !attach_value:-name"},
    {{"-sizes=1,2,3"}, "sizes=[1|2|3]"},
    {{"-sizes", "1", "2", "-verbose"}, "sizes=[1|2] verbose=true"},
    {{"-names=a,b"}, "names=[a|b]"},
    {{"-names=a, b", "-names:=c"}, "names=[a| b|c]"},
    {{"-names$a,b"}, "names=[a,b]"},
    {{"-names", "a", "b,c"}, "names=[a|b,c]"},
    {{"-verbose"}, "verbose=true"},
    {{"/verbose"}, "verbose=true"},
    {{"-verbose=no"}, "verbose=no"},
    {{"-no-verbose"}, "verbose=false"},
    {{"-verbose", "a.jpg"}, "first=a.jpg verbose=true"},
    {{"/home/ann"}, "first=/home/ann"},
    {{"-langauge"}, "!unknown_option:-langauge"},
    {{"-thread=5"}, "!unknown_option:-thread !nearest_name:-threads"},
    {{"--", "-verbose"}, "first=-verbose"},
    {{"-5"}, "first=-5"},
    {{"a", "-5"}, "first=a !unknown_option:-5"},
    {{"\u2013threads"}, "!unknown_option:\u2013threads !nearest_name:-threads"},
    {{"-"}, "first=-"},
    {{"-help"}, " ?help"},
    {{"-h"}, " ?help"},
    {{"-?"}, " ?help"},
    {{"--help"}, " ?help"},
    {{"-help=all"}, "!unexpected_value:-help"},
    {{"-version"}, " ?version"},
    {{"-="}, "!unknown_option:-"},
};

class gnu_style : public testing::TestWithParam<style_row> {};
class single_dash_style : public testing::TestWithParam<style_row> {};

settings_options options_of(command_line_style style) {
  settings_options options;
  options.style = style;
  options.slash_asks_for_help = false;
  return options;
}

TEST_P(gnu_style, reads_words) {
  const program_run run(tool(), GetParam().arguments, {}, options_of(command_line_style::gnu));
  EXPECT_EQ(reading_of(run), GetParam().reading);
}

TEST_P(single_dash_style, reads_words) {
  const program_run run(tool(), GetParam().arguments, {}, options_of(command_line_style::single_dash));
  EXPECT_EQ(reading_of(run), GetParam().reading);
}

INSTANTIATE_TEST_SUITE_P(rows, gnu_style, testing::ValuesIn(gnu_rows));
INSTANTIATE_TEST_SUITE_P(rows, single_dash_style, testing::ValuesIn(single_dash_rows));

TEST(a_slash_and_question_mark, asks_for_help_where_it_is_on) {
  for (const auto style : {command_line_style::gnu, command_line_style::single_dash}) {
    settings_options options = options_of(style);
    options.slash_asks_for_help = true;
    EXPECT_EQ(reading_of(program_run(tool(), {"/?"}, {}, options)), " ?help");
    EXPECT_EQ(reading_of(program_run(tool(), {"--", "/?"}, {}, options)), "first=/?");
  }
  using ORVA_NAMESPACE::internal::paths::style;
  const bool is_on_windows = ORVA_NAMESPACE::platform::native_style == style::windows;
  EXPECT_EQ(reading_of(program_run(tool(), {"/?"})), is_on_windows ? " ?help" : "first=/?");
}

TEST(options_of_a_setting, win_over_requests) {
  declaration declared("tool");
  declared.add(setting("height", integer()).option('h'));
  declared.add(setting("help", text()));
  EXPECT_EQ(reading_of(program_run(declared, {"-h5", "--help", "x"})), "height=5 help=x");
  EXPECT_EQ(reading_of(program_run(declared, {"--version"})), "!unknown_option:--version");
}

TEST(a_short_option_that_is_a_digit, is_no_negative_number) {
  declaration declared("tool");
  declared.add(setting("one", flag()).option('1'));
  declared.add(setting("n", integer()));
  declared.add_positional(setting("word", text()));
  EXPECT_EQ(reading_of(program_run(declared, {"-1"})), "one=true");
  EXPECT_EQ(reading_of(program_run(declared, {"-2"})), "word=-2");
  EXPECT_EQ(reading_of(program_run(declared, {"--n", "-1"})),
            "one=true !missing_value:--n !attach_value:--n");
}

TEST(a_negative_number, is_a_word_only_where_one_may_be_expected) {
  declaration numbers("tool");
  numbers.add_positional(setting("offsets", list_of(integer())));
  EXPECT_EQ(reading_of(program_run(numbers, {"-5", "-12"})), "offsets=[-5|-12]");
  declaration paths("tool");
  paths.add_positional(setting("files", list_of(file_path())));
  EXPECT_EQ(reading_of(program_run(paths, {"-5", "a"})), "files=[a] !unknown_option:-5");
  EXPECT_EQ(reading_of(program_run(paths, {"--unknown", "-5"})), "files=[-5] !unknown_option:--unknown");
  EXPECT_EQ(reading_of(program_run(declaration("tool"), {"-5"})), "!unknown_option:-5");
}

TEST(words, that_nothing_takes_are_reported) {
  declaration declared("tool");
  declared.add(setting("one", flag()));
  EXPECT_EQ(reading_of(program_run(declared, {"a", "b"})), "!unexpected_argument:a !unexpected_argument:b");
}

TEST(words, that_may_be_meant_for_an_unknown_option_are_no_surplus) {
  declaration declared("tool");
  declared.add(setting("one", flag()));
  declared.add_positional(setting("file", text()).required());
  EXPECT_EQ(reading_of(program_run(declared, {"--two", "5", "a"})), "file=5 !unknown_option:--two");
  EXPECT_EQ(reading_of(program_run(declared, {"--two", "5", "a", "b"})),
            "file=5 !unknown_option:--two !unexpected_argument:b");
  EXPECT_EQ(reading_of(program_run(declared, {"a", "--two", "5"})), "file=a !unknown_option:--two");
  EXPECT_EQ(reading_of(program_run(declared, {"a", "--two", "5", "b"})),
            "file=a !unknown_option:--two !unexpected_argument:b");
}

declaration tool_with_commands() {
  declaration add("");
  add.add(setting("name", text()).option('n').required());
  add.add(setting("verbose", text()));
  declaration remote("");
  remote.add(setting("dry", flag()).option('d'));
  remote.add_command("add", "Adds one.", add);
  remote.command_required();
  declaration fetch("");
  fetch.add_positional(setting("files", list_of(file_path())));
  declaration declared("tool");
  declared.add(setting("verbose", flag()).option('v'));
  declared.add_command("remote", "Knows others.", remote).add_command("Fetch", "Gets files.", fetch);
  return declared;
}

std::string command_reading(words arguments) {
  const program_run run(tool_with_commands(), std::move(arguments));
  return run.settings.command() + ": " + reading_of(run);
}

TEST(commands, have_settings_of_their_own) {
  EXPECT_EQ(command_reading({}), ": ");
  EXPECT_EQ(command_reading({"-v"}), ": verbose=true");
  EXPECT_EQ(command_reading({"Fetch", "a", "b"}), "Fetch: fetch.files=[a|b]");
  EXPECT_EQ(command_reading({"Fetch", "-v", "a"}), "Fetch: fetch.files=[a] verbose=true");
  EXPECT_EQ(command_reading({"remote", "add", "-n", "x"}), "remote.add: remote.add.name=x");
  EXPECT_EQ(command_reading({"-v", "remote", "-d", "add", "-nx"}),
            "remote.add: remote.add.name=x remote.dry=true verbose=true");
  EXPECT_EQ(command_reading({"remote", "add", "-d", "-nx"}), "remote.add: remote.add.name=x remote.dry=true");
  EXPECT_EQ(command_reading({"remote", "add", "--verbose", "x", "-ny"}),
            "remote.add: remote.add.name=y remote.add.verbose=x");
}

TEST(commands, that_are_wrong_are_reported) {
  EXPECT_EQ(command_reading({"fetch"}), ": !unknown_command:fetch !nearest_name:Fetch");
  EXPECT_EQ(command_reading({"frob", "--name", "x"}), ": !unknown_command:frob");
  EXPECT_EQ(command_reading({"-n", "x"}), ": !unknown_option:-n");
  EXPECT_EQ(command_reading({"-5", "Fetch"}), "Fetch: !unknown_option:-5");
  EXPECT_EQ(command_reading({"remote"}), "remote: !missing_command:add");
  EXPECT_EQ(command_reading({"remote", "--help"}), "remote:  ?help");
  EXPECT_EQ(command_reading({"remote", "add"}), "remote.add: !required:--name");
  EXPECT_EQ(command_reading({"remote", "add", "-nx", "y"}),
            "remote.add: remote.add.name=x !unexpected_argument:y");
  EXPECT_EQ(command_reading({"--verbos", "secret", "Fetch"}),
            "Fetch: !unknown_option:--verbos !nearest_name:--verbose");
}

}  // namespace
