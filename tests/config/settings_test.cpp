#include "orva/config/settings.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <fstream>
#include <limits>
#include <sstream>

#include "orva/diagnostics/write.hpp"
#include "orva/exceptions/exception.hpp"
#include "orva/platform/native_path.hpp"
#include "tests/support/config_item.hpp"
#include "tests/support/declared_program.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using namespace orva_test;
using namespace ORVA_NAMESPACE::config;
using namespace std::chrono_literals;
using ORVA_NAMESPACE::exceptions::invalid_argument_value;

using texts = std::vector<std::string>;

constexpr bool is_on_windows =
    ORVA_NAMESPACE::platform::native_style == ORVA_NAMESPACE::internal::paths::style::windows;

declaration with(const std::vector<setting>& declared_settings) {
  declaration declared("tool");
  for (const setting& each : declared_settings) declared.add(each);
  return declared;
}

TEST(settings_of_a_program, documentation_example) {
  declaration viewer("viewer");
  viewer.version("2.1").description("Shows pictures.");
  viewer.add(setting("threads", integer_between(1, 64))
                 .by_default(4)
                 .option('t')
                 .environment("VIEWER_THREADS")
                 .group("Speed")
                 .help("Number of threads."));
  viewer.add(setting("verbose", flag()).option('v').help("Shows more."));
  viewer.add_positional(setting("files", list_of(file_path())).required().help("Pictures to show."));

  const program_run run(viewer, {"-t8", "a.jpg", "b.jpg"}, {"VIEWER_THREADS=2"});
  EXPECT_TRUE(run.settings.report().empty());
  EXPECT_EQ(run.settings.asks_for(), asked_for::nothing);
  EXPECT_EQ(run.settings.get<int>("threads"), 8);
  EXPECT_FALSE(run.settings.get<bool>("verbose"));
  EXPECT_EQ(run.settings.get_list<std::string>("files"), (texts{"a.jpg", "b.jpg"}));

  EXPECT_EQ(program_run(viewer, {"a.jpg"}, {"VIEWER_THREADS=2"}).settings.get<int>("threads"), 2);
  EXPECT_EQ(program_run(viewer, {"a.jpg"}).settings.get<int>("threads"), 4);

  std::ostringstream messages;
  ORVA_NAMESPACE::diagnostics::write_text(messages,
                                          program_run(viewer, {"a", "--thread=5"}).settings.report());
  EXPECT_EQ(messages.str(),
            "command line:2: error: There is no option --thread. [config.unknown_option]\n"
            "command line:2: note: Did you mean --threads? [config.nearest_name]\n");
}

TEST(settings_of_a_program, take_the_value_of_the_first_source_that_has_one) {
  const temporary_directory directory;
  const std::string file = directory.file("tool.cfg");
  const std::string second = directory.file("second.cfg");
  std::ofstream(file) << "a = 1\nb = 1\n";
  std::ofstream(second) << "a = 2\nb = 2\nc = 2\n";
  const setting a = setting("a", integer()).environment("A").by_default(0);
  const setting b = setting("b", integer()).environment("B").by_default(0);
  const setting c = setting("c", integer()).environment("C").by_default(0);
  const setting d = setting("d", integer()).environment("D").by_default(0);
  const setting e = setting("e", integer()).environment("E").by_default(0);
  settings_options options;
  options.files = {file, second};
  const program_run run(with({a, b, c, d, e}), {"--a=9"}, {"A=8", "B=8", "C=8", "D=8", "X=7"}, options);
  EXPECT_EQ(run.codes(), texts());
  EXPECT_EQ(run.settings.get<int>("a"), 9);
  EXPECT_EQ(run.settings.get<int>("b"), 1);
  EXPECT_EQ(run.settings.get<int>("c"), 2);
  EXPECT_EQ(run.settings.get<int>("d"), 8);
  EXPECT_EQ(run.settings.get<int>("e"), 0);
  EXPECT_TRUE(run.settings.is_set("d"));
  EXPECT_FALSE(run.settings.is_set("e"));
  for (const char* const key : {"a", "b", "c", "d", "e"}) {
    EXPECT_EQ(run.settings.manager().get_value(key).as_int(), run.settings.get<int>(key)) << key;
  }
}

TEST(settings_of_a_program, are_read_as_their_types) {
  const declaration declared = with({
      setting("flag", flag()),
      setting("small", integer_between(-5, 5)),
      setting("large", integer<std::int64_t>()),
      setting("number", number()),
      setting("text", text()),
      setting("mode", one_of({"fast", "small"})),
      setting("path", file_path()),
      setting("size", byte_size()),
      setting("time", duration()),
      setting("list", list_of(integer())),
      setting("names", list_of(text())),
      setting("times", list_of(duration())),
  });
  const program_run run(declared, {"--flag", "--small=-5", "--large=-9223372036854775808", "--number=2.5",
                                   "--text=x", "--mode=fast", "--path=/", "--size=16383 PiB", "--time=1h30m",
                                   "--list=1,0x10,010", "--names=a,b", "--times=1s,2s"});
  EXPECT_EQ(run.sentences(), texts());
  EXPECT_TRUE(run.settings.get<bool>("flag"));
  EXPECT_EQ(run.settings.get<signed char>("small"), -5);
  EXPECT_EQ(run.settings.get<long long>("small"), -5);
  EXPECT_EQ(run.settings.get<std::int64_t>("large"), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(run.settings.get<double>("number"), 2.5);
  EXPECT_EQ(run.settings.get<std::string>("text"), "x");
  EXPECT_EQ(run.settings.get<ORVA_NAMESPACE::strings::ustring8>("mode"), "fast");
  EXPECT_EQ(run.settings.get<std::string>("path"), "/");
  EXPECT_EQ(run.settings.get<std::uint64_t>("size"), 16383ull << 50);
  EXPECT_EQ(run.settings.get<std::chrono::nanoseconds>("time"), 5400s);
  EXPECT_EQ(run.settings.get<std::chrono::duration<double>>("time").count(), 5400);
  EXPECT_EQ((run.settings.get<std::chrono::duration<double, std::ratio<3600>>>("time").count()), 1.5);
  EXPECT_EQ(run.settings.get<double>("time"), 5400);
  EXPECT_EQ(run.settings.get_list<int>("list"), (std::vector<int>{1, 16, 10}));
  EXPECT_EQ(run.settings.get_list<std::string>("names"), (texts{"a,b"}));
  EXPECT_EQ(run.settings.get_list<double>("times"), (std::vector<double>{1, 2}));
  EXPECT_EQ(run.settings.get<long long>("SMALL"), -5) << "keys have no case";
}

TEST(settings_of_a_program, have_keys_without_case_and_options_with_case) {
  const declaration declared = with({setting("Threads", integer()).option('t')});
  EXPECT_EQ(program_run(declared, {"--Threads=8"}).settings.get<int>("THREADS"), 8);
  for (const char* const word : {"--threads=8", "-T8"}) {
    EXPECT_EQ(program_run(declared, {word}).codes().at(0), "command line:1 error config.unknown_option");
  }
}

TEST(a_flag, is_read_from_each_of_its_words_in_any_case) {
  const declaration declared = with({setting("f", flag()).environment("F")});
  for (const char* const word : {"true", "yes", "on", "1", "TRUE", "Yes", "oN"}) {
    const program_run run(declared, {}, {"F=" + std::string(word)});
    EXPECT_EQ(run.codes(), texts()) << word;
    EXPECT_TRUE(run.settings.get<bool>("f")) << word;
  }
  for (const char* const word : {"false", "no", "off", "0", "FALSE", "No", "oFF"}) {
    const program_run run(declared, {}, {"F=" + std::string(word)});
    EXPECT_EQ(run.codes(), texts()) << word;
    EXPECT_FALSE(run.settings.get<bool>("f")) << word;
    EXPECT_TRUE(run.settings.is_set("f")) << word;
  }
  for (const char* const word : {"2", "y", "-1", " yes", "00"}) {
    EXPECT_EQ(program_run(declared, {}, {"F=" + std::string(word)}).codes(),
              texts{"F error config.not_a_flag"})
        << word;
  }
}

TEST(settings_of_a_program, have_no_value_without_a_source_and_a_default) {
  const program_run run(with({setting("n", integer()), setting("f", flag()), setting("l", list_of(text())),
                              setting("d", list_of(integer())).by_default(1, 2)}));
  EXPECT_EQ(run.settings.find<int>("n"), std::nullopt);
  EXPECT_THROW(static_cast<void>(run.settings.get<int>("n")), invalid_argument_value);
  EXPECT_FALSE(run.settings.get<bool>("f"));
  EXPECT_TRUE(run.settings.get_list<std::string>("l").empty());
  EXPECT_EQ(run.settings.get_list<int>("d"), (std::vector<int>{1, 2}));
}

TEST(a_wrong_use, of_the_settings_throws) {
  const program_run run(
      with({setting("n", integer_between(0, 300)).by_default(5), setting("s", byte_size()),
            setting("l", list_of(integer())), setting("t", text()), setting("d", number())}));
  const settings& values = run.settings;
  EXPECT_THROW(static_cast<void>(values.get<int>("m")), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(values.get<signed char>("n")), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(values.get<unsigned char>("n")), invalid_argument_value);
  EXPECT_NO_THROW(static_cast<void>(values.get<unsigned short>("n")));
  EXPECT_THROW(static_cast<void>(values.get<double>("n")), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(values.get<bool>("n")), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(values.get<std::string>("n")), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(values.get_list<int>("n")), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(values.get<int>("l")), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(values.find<std::int64_t>("s")), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(values.find<std::uint32_t>("s")), invalid_argument_value);
  EXPECT_NO_THROW(static_cast<void>(values.find<std::uint64_t>("s")));
  EXPECT_THROW(static_cast<void>(values.find<std::chrono::nanoseconds>("d")), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(values.find<int>("t")), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(values.is_set("m")), invalid_argument_value);
  EXPECT_THROW(program_run(with({setting("a", text()), setting("a", text())})), invalid_argument_value);
}

struct wrong_row {
  setting described;
  const char* argument;
  const char* sentence;
};

TEST(a_wrong_value, is_an_error_and_no_value) {
  const wrong_row rows[] = {
      {{"k", flag()}, "--k=2", "--k is neither yes nor no: \"2\"."},
      {{"k", integer()}, "--k=4x", "--k is no integer: \"4x\"."},
      {{"k", integer()}, "--k=4.0", "--k is no integer: \"4.0\"."},
      {{"k", integer()}, "--k=", "--k is no integer: \"\"."},
      {{"k", integer()}, "--k= 4", "--k is no integer: \" 4\"."},
      {{"k", integer()}, "--k=0x", "--k is no integer: \"0x\"."},
      {{"k", integer_between(1, 64)}, "--k=80", "--k is not between 1 and 64: \"80\"."},
      {{"k", integer_between(1, 64)}, "--k=0", "--k is not between 1 and 64: \"0\"."},
      {{"k", integer()},
       "--k=99999999999999999999",
       "--k is not between -2147483648 and 2147483647: \"99999999999999999999\"."},
      {{"k", number_between(0, 0.5)}, "--k=0.75", "--k is not between 0 and 0.5: \"0.75\"."},
      {{"k", number()}, "--k=1,5", "--k is no number: \"1,5\"."},
      {{"k", number()}, "--k=nan", "--k is no number: \"nan\"."},
      {{"k", one_of({"fast", "small"})}, "--k=big", "--k takes one of fast, small, not \"big\"."},
      {{"k", file_path()}, "--k=", "--k is empty."},
      {{"k", byte_size()}, "--k=10 apples", "--k is no size such as 4096 or 10 MiB: \"10 apples\"."},
      {{"k", duration()}, "--k=90", "--k is no duration such as 1h30m or 250ms: \"90\"."},
  };
  for (const wrong_row& row : rows) {
    const program_run run(with({row.described}), {row.argument});
    EXPECT_EQ(run.sentences(), texts{row.sentence});
    EXPECT_TRUE(run.settings.report().has_errors());
    EXPECT_TRUE(run.settings.is_set("k"));
  }
  const program_run run(with({setting("n", integer()).by_default(4).environment("N")}), {"--n=x"}, {"N=5"});
  EXPECT_EQ(run.settings.find<int>("n"), std::nullopt);
}

TEST(a_wrong_value, in_a_range_of_numbers_that_text_overflows_is_out_of_range) {
  const program_run run(with({setting("k", number())}), {"--k=1e999"});
  EXPECT_EQ(run.codes(), texts{"command line:1 error config.out_of_range"});
}

TEST(a_wrong_value, that_another_source_overrides_is_a_warning) {
  const program_run run(with({setting("n", integer()).environment("N")}), {"--n=1"}, {"N=x"});
  EXPECT_EQ(run.codes(), texts{"N warning config.not_an_integer"});
  EXPECT_EQ(run.sentences(), texts{"N is no integer: \"x\"."});
  EXPECT_EQ(run.settings.get<int>("n"), 1);
}

TEST(a_wrong_word, gets_the_nearest_choice) {
  const program_run run(with({setting("mode", one_of({"fast", "small"}))}), {"--mode=fats"});
  EXPECT_EQ(run.sentences(), (texts{"--mode takes one of fast, small, not \"fats\".", "Did you mean fast?"}));
}

TEST(each_wrong_element, stops_its_list) {
  const program_run run(with({setting("l", list_of(integer()))}), {"--l=1", "--l", "x"});
  EXPECT_EQ(run.codes(), texts{"command line:3 error config.not_an_integer"});
  EXPECT_THROW(static_cast<void>(run.settings.get_list<int>("l")), invalid_argument_value);
}

// The environment.

TEST(variables, are_read_by_their_declared_names) {
  const declaration declared = with({setting("n", integer()).environment("TOOL_N"), setting("m", integer())});
  const program_run run(declared, {}, {"TOOL_N=5", "m=7", "n=8", "TOOL_N=9", "broken", "=x"});
  EXPECT_EQ(run.codes(), texts());
  EXPECT_EQ(run.settings.get<int>("n"), 5);
  EXPECT_EQ(run.settings.find<int>("m"), std::nullopt);
}

TEST(variables, keep_their_text) {
  const program_run run(with({setting("t", text()).environment("T")}), {}, {"T= a \"b\" # = c "});
  EXPECT_EQ(run.settings.get<std::string>("t"), " a \"b\" # = c ");
}

TEST(variables, that_are_empty_are_not_set) {
  const program_run run(with({setting("n", integer()).environment("N").by_default(3)}), {}, {"N="});
  EXPECT_EQ(run.codes(), texts());
  EXPECT_EQ(run.settings.get<int>("n"), 3);
  EXPECT_FALSE(run.settings.is_set("n"));
}

TEST(variables, hold_lists) {
  const declaration declared =
      with({setting("n", list_of(integer())).environment("N"), setting("t", list_of(text())).environment("T"),
            setting("p", list_of(file_path())).environment("P")});
  const char* const paths = is_on_windows ? "P=a;b,c" : "P=a:b,c";
  const program_run run(declared, {}, {"N=1, 2", "T=a, b", paths});
  EXPECT_EQ(run.settings.get_list<int>("n"), (std::vector<int>{1, 2}));
  EXPECT_EQ(run.settings.get_list<std::string>("t"), (texts{"a", " b"}));
  EXPECT_EQ(run.settings.get_list<std::string>("p"), (texts{"a", "b,c"}));
}

// Files.

/// A file that ends with the object.
class settings_file {
 public:
  explicit settings_file(const std::string& text) : path_(directory_.file("tool.cfg")) {
    std::ofstream(path_, std::ios::binary) << text;
  }
  const std::string& path() const { return path_; }
  settings_options options() const {
    settings_options result;
    result.files = {path_};
    return result;
  }

 private:
  temporary_directory directory_;
  std::string path_;
};

texts without_file(texts lines, const std::string& file) {
  for (std::string& line : lines) {
    if (line.starts_with(file)) line.replace(0, file.size(), "FILE");
  }
  return lines;
}

TEST(a_file, gives_values_and_lists) {
  const settings_file file(
      "n = 5\n[window]\nwidth = 0x10\n[times]\nout = 1h 30m\n[lists]\na[] = 1, 2\nb = 1,2\nc = \"x,y\"\n");
  const declaration declared =
      with({setting("n", integer()), setting("window.width", integer()), setting("times.out", duration()),
            setting("lists.a", list_of(integer())), setting("lists.b", list_of(integer())),
            setting("lists.c", list_of(text()))});
  const program_run run(declared, {}, {}, file.options());
  EXPECT_EQ(run.codes(), texts());
  EXPECT_EQ(run.settings.get<int>("n"), 5);
  EXPECT_EQ(run.settings.get<int>("window.width"), 16);
  EXPECT_EQ(run.settings.get<double>("times.out"), 5400);
  EXPECT_EQ(run.settings.get_list<int>("lists.a"), (std::vector<int>{1, 2}));
  EXPECT_EQ(run.settings.get_list<int>("lists.b"), (std::vector<int>{1, 2}));
  EXPECT_EQ(run.settings.get_list<std::string>("lists.c"), texts{"x,y"});
}

TEST(a_file, with_unknown_keys_is_warned_about) {
  const settings_file file(
      "thread = 4\nn = 1\nn.x = 1\n[window]\nwidht = 1\n[widnow]\ny = 1\nz = 1\n  [z]\na[] = 1,2,3\n");
  const program_run run(
      with({setting("threads", integer()), setting("n", integer()), setting("window.width", integer())}), {},
      {}, file.options());
  const auto codes = without_file(run.codes(), file.path());
  EXPECT_EQ(codes, (texts{"FILE:1:1 warning config.unknown_key", "FILE:1:1 note config.nearest_name",
                          "FILE:7:1 warning config.unknown_section", "FILE:7:1 note config.nearest_name",
                          "FILE:10:1 warning config.unknown_section", "FILE:5:1 warning config.unknown_key",
                          "FILE:5:1 note config.nearest_name", "FILE:3:1 warning config.unknown_key"}));
  EXPECT_EQ(run.sentences(),
            (texts{"There is no setting thread.", "Did you mean threads?", "There is no section widnow.",
                   "Did you mean window?", "There is no section z.", "There is no setting window.widht.",
                   "Did you mean window.width?", "There is no setting n.x."}));
  EXPECT_FALSE(run.settings.report().has_errors());
}

TEST(a_file, with_wrong_values_is_reported_with_their_places) {
  const settings_file file("n = 4x\n[a]\nl[] = 1,\n      two,\n      3\nm[] = 1, 2\n");
  const program_run run(
      with({setting("n", integer()), setting("a.l", list_of(integer())), setting("a.m", integer())}), {}, {},
      file.options());
  EXPECT_EQ(without_file(run.codes(), file.path()),
            (texts{"FILE:1:5 error config.not_an_integer", "FILE:4:7 error config.not_an_integer",
                   "FILE:6:1 error config.no_list"}));
}

TEST(a_file, may_have_keys_in_allowed_sections) {
  const settings_file file(
      "[aliases]\na = 1\n[aliases.more]\nb[] = 1,2\n[aliasesx]\nc = 1\n[x.free]\na = 1\n[x]\nb = 1\n");
  declaration declared("tool");
  declared.allow_section("Aliases").allow_section("x.free");
  declared.add(setting("aliases.a", integer()));
  const program_run run(declared, {}, {}, file.options());
  EXPECT_EQ(run.sentences(),
            (texts{"There is no section aliasesx.", "Did you mean aliases?", "There is no setting x.b."}));
  EXPECT_EQ(run.settings.get<int>("aliases.a"), 1);
}

TEST(a_file, with_names_that_are_longer_than_its_text_is_read_in_time) {
  std::string text = "[";
  for (int i = 0; i < 100000; ++i) text += "a.";
  text += "b]\n";
  for (int i = 0; i < 20000; ++i) text += "k" + std::to_string(i) + "=1\n";
  text += "[]\nn = x\n";
  const settings_file file(text);
  const program_run run(with({setting("n", integer())}), {}, {}, file.options());
  EXPECT_EQ(run.sentences(), (texts{"There is no section a.", "n is no integer: \"x\"."}));
}

TEST(a_file, with_a_list_for_one_value_is_wrong) {
  const settings_file file("n[] = 1, 2\n");
  const program_run run(with({setting("n", integer())}), {}, {}, file.options());
  EXPECT_EQ(run.sentences(), texts{"n takes one value, not a list."});
}

TEST(a_file, is_named_by_the_command_line_or_the_environment_or_the_default) {
  const settings_file one("n = 1\n");
  const settings_file two("n = 2\n");
  const settings_file three("n = 3\nm = 3\n");
  const auto declared = with({setting("n", integer()), setting("m", integer()).by_default(0),
                              setting("cfg_file", file_path())
                                  .option('c', "config")
                                  .environment("CONFIG")
                                  .by_default(three.path())});
  EXPECT_EQ(program_run(declared).settings.get<int>("n"), 3);
  EXPECT_EQ(program_run(declared, {}, {"CONFIG=" + two.path()}).settings.get<int>("n"), 2);
  const program_run run(declared, {"-c", one.path()}, {"CONFIG=" + two.path()}, three.options());
  EXPECT_EQ(run.settings.get<int>("n"), 1);
  EXPECT_EQ(run.settings.get<int>("m"), 3) << "the file of the options is read, too";
}

TEST(a_file, that_the_user_names_and_that_is_not_read_is_an_error) {
  const temporary_directory directory;
  const auto declared =
      with({setting("cfg_file", file_path()).option("config").environment("CONFIG").by_default("none.cfg")});
  EXPECT_EQ(program_run(declared).codes(), texts()) << "the default may be missing";
  EXPECT_EQ(program_run(declared, {"--config=gone.cfg"}).codes(),
            texts{"gone.cfg error config.file_missing"});
  EXPECT_EQ(program_run(declared, {}, {"CONFIG=gone.cfg"}).codes(),
            texts{"gone.cfg error config.file_missing"});
  EXPECT_EQ(without_file(program_run(declared, {"--config=" + directory.name()}).codes(), directory.name()),
            texts{"FILE error config.file_not_a_file"});
}

TEST(a_file, that_is_missing_leaves_the_next_that_is_named) {
  const settings_file other("n = 2\n");
  const auto declared = with(
      {setting("n", integer()), setting("cfg_file", file_path()).option("config").environment("CONFIG")});
  const program_run run(declared, {"--config=gone.cfg"}, {"CONFIG=" + other.path()});
  EXPECT_EQ(run.codes(), texts{"gone.cfg error config.file_missing"});
  EXPECT_EQ(run.settings.get<int>("n"), 2);
}

TEST(a_file, that_is_there_and_not_read_is_a_warning) {
  const temporary_directory directory;
  const auto declared = with({setting("cfg_file", file_path()).by_default(directory.name())});
  EXPECT_EQ(without_file(program_run(declared).codes(), directory.name()),
            texts{"FILE warning config.file_not_a_file"});
  settings_options options;
  options.files = {directory.name(), directory.file("none.cfg")};
  EXPECT_EQ(without_file(program_run(with({}), {}, {}, options).codes(), directory.name()),
            texts{"FILE warning config.file_not_a_file"});
}

// Required, deprecated, secret.

TEST(a_required_setting, is_missed) {
  declaration declared =
      with({setting("a", text()).required(), setting("b", text()).option('b').no_option().required(),
            setting("c", text()).required().by_default("x")});
  declared.add_positional(setting("file", file_path()).required().value_name("FILE"));
  EXPECT_EQ(program_run(declared).sentences(),
            (texts{"--a is required.", "b is required.", "FILE is required."}));
  EXPECT_TRUE(program_run(declared, {"--help"}).settings.report().empty());
  EXPECT_TRUE(program_run(declared, {"-h"}).settings.report().empty());
}

TEST(a_required_setting, whose_value_is_wrong_is_reported_once) {
  const declaration declared = with({setting("a", integer()).required()});
  EXPECT_EQ(program_run(declared, {"--a=x"}).codes(), texts{"command line:1 error config.not_an_integer"});
  EXPECT_EQ(program_run(declared, {"--a"}).codes(), texts{"command line:1 error config.missing_value"});
}

TEST(a_required_list, has_at_least_one_value) {
  const declaration declared = with({setting("l", list_of(text())).required()});
  EXPECT_EQ(program_run(declared).sentences(), texts{"--l is required."});
  EXPECT_EQ(program_run(declared, {"--l=a"}).sentences(), texts());
}

TEST(a_deprecated_setting, sets_its_successor) {
  const settings_file file("old = 3\n");
  const declaration declared = with({setting("old", integer()).deprecated("new").environment("OLD"),
                                     setting("new", integer()).by_default(1)});
  const program_run line(declared, {"--old=2"}, {}, file.options());
  EXPECT_EQ(line.settings.get<int>("new"), 2);
  EXPECT_EQ(line.settings.get<int>("old"), 2);
  EXPECT_EQ(line.settings.manager().get_value("new").as_int(), 2);
  EXPECT_EQ(line.sentences(), (texts{"--old is deprecated; use --new.", "old is deprecated; use new."}));
  EXPECT_EQ(without_file(line.codes(), file.path()),
            (texts{"command line:1 warning config.deprecated", "FILE:1:1 warning config.deprecated"}));
  EXPECT_EQ(program_run(declared, {}, {"OLD=5"}, file.options()).settings.get<int>("new"), 3);
  EXPECT_EQ(program_run(declared, {}, {"OLD=5"}).settings.get<int>("new"), 5);
  EXPECT_EQ(program_run(declared, {"--new=9"}, {}, file.options()).settings.get<int>("new"), 9);
}

TEST(a_deprecated_setting, whose_successor_has_another_value_does_not_count) {
  const declaration declared = with({setting("old", integer()).deprecated("new"), setting("new", integer())});
  const program_run run(declared, {"--old=2", "--new=3"});
  EXPECT_EQ(run.settings.get<int>("new"), 3);
  EXPECT_EQ(run.codes(), (texts{"command line:1 warning config.deprecated",
                                "command line:1 note config.different_successor"}));
  EXPECT_EQ(program_run(declared, {"--old=2", "--new=2"}).codes(),
            texts{"command line:1 warning config.deprecated"});
}

TEST(a_deprecated_setting, with_a_wrong_value_is_reported_once) {
  const declaration declared = with({setting("old", integer()).deprecated("new"), setting("new", integer())});
  EXPECT_EQ(program_run(declared, {"--old=x"}).sentences(),
            (texts{"--old is deprecated; use --new.", "--old is no integer: \"x\"."}));
}

TEST(a_secret, is_in_no_message) {
  const settings_file file("pin = hunter2\npinn = 5\n");
  declaration declared = with(
      {setting("pin", integer()).secret().environment("PIN"), setting("mode", one_of({"hunter3"})).secret()});
  declared.add_positional(setting("count", integer()));
  for (const texts& words :
       {texts{"--pin", "hunter2"}, texts{"--pin=hunter2", "--pin=hunter2x"}, texts{"--pni=hunter2"},
        texts{"--pni", "hunter2"}, texts{"-pin=hunter2"}, texts{"-phunter2"}, texts{"-xhunter2"},
        texts{"--no-pin=hunter2"}, texts{"--mode=hunter2"}, texts{"5", "--pni", "hunter2"}}) {
    const program_run run(declared, words, {"PIN=hunter2"}, file.options());
    EXPECT_TRUE(run.settings.report().has_errors());
    for (const std::string& sentence : run.sentences())
      EXPECT_EQ(sentence.find("hunter2"), sentence.npos) << sentence;
    for (const auto& finding : run.settings.report().findings()) {
      for (const auto& argument : finding.arguments) {
        EXPECT_EQ(argument.value().as_string().find("hunter2"), std::string::npos);
      }
    }
  }
  EXPECT_EQ(program_run(declared, {"--pin=hunter2"}).sentences(), texts{"--pin is no integer: \"***\"."});
}

// Shared and repeated reading.

TEST(settings_of_a_program, need_no_arguments_and_no_environment) {
  const declaration declared = with({setting("n", integer()).by_default(1).environment("N")});
  EXPECT_EQ(settings(declared, 0, nullptr).get<int>("n"), 1);
  EXPECT_EQ(settings(declared, -1, nullptr, nullptr).get<int>("n"), 1);
  const char* const words[] = {nullptr};
  EXPECT_EQ(settings(declared, 5, words, words).get<int>("n"), 1);
}

TEST(settings_of_a_program, do_not_change_with_their_manager) {
  const program_run run(with({setting("n", integer())}), {"--n=5"});
  const settings copy = run.settings;
  config_manager manager = copy.manager();
  manager.unload();
  EXPECT_EQ(copy.get<int>("n"), 5);
  EXPECT_FALSE(manager.value_exist("n"));
  manager.load();
  EXPECT_EQ(manager.get_value("n").as_int(), 5);
}

TEST(a_report, keeps_its_limit) {
  const program_run run(with({}), texts(5000, "--unknown"));
  EXPECT_EQ(run.settings.report().count(), 5000u);
  EXPECT_EQ(run.settings.report().findings().size(),
            ORVA_NAMESPACE::diagnostics::report::default_max_findings);
}

}  // namespace
