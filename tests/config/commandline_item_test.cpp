#include "orva/config/commandline_item.hpp"

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/config_item.hpp"
#include "tests/support/random_engine.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::config::base_config_item;
using ORVA_NAMESPACE::config::commandline_item;
using ORVA_NAMESPACE::config::item_list;
using ORVA_NAMESPACE::memory::pointers::rc_pointer;

/// Arguments that live as long as the object, and the item that reads them.
class command_line {
 public:
  explicit command_line(std::vector<std::string> words, const char* program = "tool.exe")
      : words_(std::move(words)), item(0, nullptr) {
    words_.insert(words_.begin(), program);
    for (const std::string& word : words_) pointers_.push_back(word.c_str());
    pointers_.push_back(nullptr);
    item = commandline_item(static_cast<unsigned int>(words_.size()), pointers_.data());
  }

  /// Loads, and returns the text that loading writes to standard output.
  std::string load() {
    std::ostringstream captured;
    auto* const before = std::cout.rdbuf(captured.rdbuf());
    EXPECT_TRUE(item.load());
    std::cout.rdbuf(before);
    return captured.str();
  }

 private:
  std::vector<std::string> words_;
  std::vector<const char*> pointers_;

 public:
  commandline_item item;
};

/// The nodes that the words give, without those of the program's name, each as "name=value", or "name[]" for
/// the header of an array.
std::string keys_of(const std::vector<std::string>& words) {
  command_line line(words);
  EXPECT_EQ(line.load(), "");
  std::vector<base_config_item::value_entry> entries;
  line.item.get_value_pair_array("", entries, true);
  std::string result;
  for (const auto& [name, node] : entries) {
    if (name.starts_with("application")) continue;
    if (node.first == 0) continue;
    EXPECT_TRUE(node.first == 1 || node.first == 3);
    if (!result.empty()) result += ' ';
    result += name + (node.first == 3 ? "[]" : "=" + node.second.as_string());
  }
  return result;
}

struct option_row {
  std::vector<std::string> words;
  const char* keys;
};

std::ostream& operator<<(std::ostream& out, const option_row& row) {
  for (const auto& word : row.words) out << test_name(word) << ' ';
  return out;
}

class commandline_item_option : public testing::TestWithParam<option_row> {};

TEST_P(commandline_item_option, reads_as) { EXPECT_EQ(keys_of(GetParam().words), GetParam().keys); }

INSTANTIATE_TEST_SUITE_P(
    documented, commandline_item_option,
    testing::Values(option_row{{"-key"}, "key="}, option_row{{"/key"}, "key="},
                    option_row{{"-key=value"}, "key=value"}, option_row{{"-key:value"}, "key=value"},
                    option_row{{"-key:=value"}, "key=value"},
                    option_row{{"-key=a,b,c"}, "key[] key.0=a key.1=b key.2=c"},
                    option_row{{"-key$a,b"}, "key=a,b"}, option_row{{"-key", "value"}, "key=value"},
                    option_row{{"-key", "a", "b", "c"}, "key[] key.0=a key.1=b key.2=c"}));
INSTANTIATE_TEST_SUITE_P(options_in_a_row, commandline_item_option,
                         testing::Values(option_row{{"-a", "-b"}, "a= b="},
                                         option_row{{"-a", "x", "-b"}, "a=x b="},
                                         option_row{{"-a", "x", "/y"}, "a[] a.0=x a.1=/y"},
                                         option_row{{"-a", "/y"}, "a= y="},
                                         option_row{{"-a", "x", "y", "-b", "z"}, "a[] a.0=x a.1=y b=z"},
                                         option_row{{"-a=1", "-a=2"}, "a=2"}, option_row{{"-a", ""}, "a="},
                                         option_row{{"-a", "", ""}, "a[] a.0= a.1="},
                                         option_row{{"-a", "x", ""}, "a[] a.0=x a.1="}));
INSTANTIATE_TEST_SUITE_P(keys, commandline_item_option,
                         testing::Values(option_row{{"--key"}, "-key="},
                                         option_row{{"-A.B=Value"}, "a.b=Value"},
                                         option_row{{"-a/b=c"}, "a.b=c"}, option_row{{"-"}, "="},
                                         option_row{{"/"}, "="}, option_row{{"-=x"}, "=x"},
                                         option_row{{"-a=b"}, "a=b"}, option_row{{"-a1_b-c=d"}, "a1_b-c=d"},
                                         option_row{{"-\"k e\"y=v"}, "k ey=v"},
                                         option_row{{"-\xC3\xA4=\xC3\xB6"}, "\xC3\xA4=\xC3\xB6"}));
INSTANTIATE_TEST_SUITE_P(separators, commandline_item_option,
                         testing::Values(option_row{{"-a="}, "a="}, option_row{{"-a>=b"}, "a>=b"},
                                         option_row{{"-a<=b"}, "a<=b"}, option_row{{"-a+=b"}, "a+=b"},
                                         option_row{{"-a-=b"}, "a-=b"}, option_row{{"-a*=b"}, "a*=b"},
                                         option_row{{"-a<b"}, "a<b="}, option_row{{"-a=b=c"}, "a=b=c"},
                                         option_row{{"-a:=b:c"}, "a=b:c"},
                                         option_row{{"-a$b$c=d"}, "a=b$c=d"}, option_row{{"-a$"}, "a="},
                                         option_row{{"-a=$b,c"}, "a[] a.0=$b a.1=c"}));
INSTANTIATE_TEST_SUITE_P(
    values, commandline_item_option,
    testing::Values(option_row{{"-a=,"}, "a[] a.0= a.1="}, option_row{{"-a=x,"}, "a[] a.0=x a.1="},
                    option_row{{"-a=\"x,y\",z"}, "a[] a.0=x,y a.1=z"}, option_row{{"-a", "x,y"}, "a=x,y"},
                    option_row{{"-a", "\"x y\""}, "a=x y"}, option_row{{"-a=\"x\\\"y\""}, "a=x\\\"y"},
                    option_row{{"-a=C:\\dir"}, "a=C:\\dir"}, option_row{{"-a=/usr/bin"}, "a=/usr/bin"},
                    option_row{{"-a=//x#y"}, "a=//x#y"}));

TEST(commandline_item, separator_pair_gives_its_first_character_to_the_key) {
  command_line line({"-a/=b", "-c+=d"});
  line.load();
  EXPECT_EQ(value_of(line.item, "a"), "b") << "the slash at the end of a key is dropped by the tree";
  EXPECT_EQ(value_of(line.item, "c+"), "d");
}

TEST(commandline_item, double_equals_belongs_to_the_key) {
  command_line line({"-a==b"});
  line.load();
  EXPECT_EQ(value_of(line.item, "a==b"), "");
  EXPECT_EQ(flags_of(line.item, "a==b"), 1);
}

TEST(commandline_item, blank_repeats_the_text_before_it) {
  EXPECT_EQ(keys_of({"-a b"}), "aab=");
  EXPECT_EQ(keys_of({"-a=x y"}), "a=xxy");
  EXPECT_EQ(keys_of({"-a$x y"}), "a=xxy");
  EXPECT_EQ(keys_of({"-a", "x y"}), "a=xxy");
  EXPECT_EQ(keys_of({"-a", "x y", "z"}), "a[] a.0=xxy a.1=z");
  EXPECT_EQ(keys_of({"-a=x, y"}), "a[] a.0=x a.1=,y") << "the comma's own text, too";
}

TEST(commandline_item, blank_at_the_beginning_repeats_the_end_of_the_word_before) {
  EXPECT_EQ(keys_of({"- a"}), "a=") << "nothing before it";
  EXPECT_EQ(keys_of({"-key", " x"}), "key=keyx");
  EXPECT_EQ(keys_of({"-a=b", "- c"}), "a=b bc=");
}

TEST(commandline_item, quoted_dollar_at_the_end_of_a_key_asks_for_a_raw_value) {
  command_line line({"-a\"$\"", "x"});
  EXPECT_EQ(line.load(), "Warning! unknown key:x\nIgnoring key and continuing\n");
  EXPECT_EQ(value_of(line.item, "a$"), "");
}

TEST(commandline_item, flag_is_read_once_more_as_an_expression) {
  command_line line({"-\"a = b\""});
  line.load();
  EXPECT_EQ(value_of(line.item, "a"), "b");
}

TEST(commandline_item, values_are_byte_strings_and_flags_are_not) {
  command_line line({"-a=x", "-b", "y", "-c=1,2", "-d"});
  line.load();
  EXPECT_EQ(line.item.get_value("a")->second.type(), typeid(std::string));
  EXPECT_EQ(line.item.get_value("b")->second.type(), typeid(std::string));
  EXPECT_EQ(line.item.get_value("c.1")->second.type(), typeid(std::string));
  EXPECT_EQ(line.item.get_value("d")->second.type(), typeid(ORVA_NAMESPACE::strings::ustring8));
  EXPECT_EQ(line.item.get_value("application.name")->second.type(), typeid(std::string));
}

TEST(commandline_item, word_that_belongs_to_no_option_is_warned_of) {
  command_line line({"one", "-a=b", "two three", "", "-c"});
  EXPECT_EQ(line.load(),
            "Warning! unknown key:one\nIgnoring key and continuing\n"
            "Warning! unknown key:two three\nIgnoring key and continuing\n"
            "Warning! unknown key:\nIgnoring key and continuing\n");
  EXPECT_EQ(value_of(line.item, "a"), "b");
  EXPECT_EQ(flags_of(line.item, "c"), 1);
}

TEST(commandline_item, warning_does_not_depend_on_the_format_of_the_stream) {
  command_line line({"x"});
  const auto width = std::cout.width(30);
  const char fill = std::cout.fill('*');
  const std::string warning = line.load();
  std::cout.width(width);
  std::cout.fill(fill);
  EXPECT_EQ(warning, "Warning! unknown key:x\nIgnoring key and continuing\n");
}

struct name_row {
  const char* program;
  const char* name;
  const char* raw;
  const char* extention;
};

TEST(commandline_item, program_name_gives_three_keys) {
  for (const name_row& row :
       {name_row{"C:\\tools\\app.exe", "app.exe", "app", "exe"},
        name_row{"C:\\tools\\a.b.exe", "a.b.exe", "ab", "exe"},
        name_row{"tool.exe", "tool.exe", "tool", "exe"},
        name_row{"/usr/bin/app", "/usr/bin/app", "", "(none)"}, name_row{"app", "app", "", "(none)"},
        name_row{"./app.bin", "./app.bin", "/app", "bin"}, name_row{"", "", "", "(none)"},
        name_row{"\\", "", "", "(none)"}, name_row{"dir\\", "dir", "", "(none)"},
        name_row{"app.", "app.", "", "(none)"}, name_row{".app", ".app", "", "app"},
        name_row{"a/b\\c.d", "c.d", "c", "d"}}) {
    command_line line({}, row.program);
    EXPECT_EQ(line.load(), "");
    EXPECT_EQ(value_of(line.item, "application.name"), row.name) << row.program;
    EXPECT_EQ(value_of(line.item, "application.name.raw"), row.raw) << row.program;
    EXPECT_EQ(value_of(line.item, "application.name.extention"), row.extention) << row.program;
    EXPECT_EQ(flags_of(line.item, "application.name"), 1) << row.program;
  }
}

TEST(commandline_item, without_arguments_there_are_only_the_keys_of_the_program) {
  const char* const argv[] = {"app.exe", nullptr};
  for (const unsigned int argc : {0u, 1u}) {
    commandline_item item(argc, argv);
    item.load();
    EXPECT_EQ(
        listing_of(item),
        (std::vector<std::string>{"application | 0 | 1", "application.name | 1 | app.exe",
                                  "application.name.extention | 1 | exe", "application.name.raw | 1 | app"}));
  }
}

TEST(commandline_item, null_arguments_give_nothing) {
  commandline_item item(0, nullptr);
  EXPECT_TRUE(item.load());
  EXPECT_EQ(listing_of(item), std::vector<std::string>{});
  const char* const empty[] = {nullptr};
  commandline_item nameless(0, empty);
  EXPECT_TRUE(nameless.load());
  EXPECT_EQ(listing_of(nameless), std::vector<std::string>{});
}

TEST(commandline_item, arguments_end_at_a_null_entry) {
  const char* const argv[] = {"app.exe", "-a=1", nullptr, "-b=2"};
  commandline_item item(4, argv);
  item.load();
  EXPECT_EQ(value_of(item, "a"), "1");
  EXPECT_EQ(value_of(item, "b"), "(none)");
}

TEST(commandline_item, constructor_reads_nothing) {
  const char* const argv[] = {"app.exe", "-a", nullptr};
  const commandline_item item(2, argv);
  EXPECT_EQ(listing_of(item), std::vector<std::string>{});
  EXPECT_EQ(item.get_argc(), 2);
  EXPECT_EQ(item.get_argv(), argv);
  EXPECT_EQ(item.get_id(), "command line");
}

TEST(commandline_item, copies_and_clones_keep_arguments_values_and_id) {
  command_line line({"-a=1"});
  line.load();
  const commandline_item copy(line.item);
  EXPECT_EQ(copy.get_id(), "command line");
  EXPECT_EQ(value_of(copy, "a"), "1");
  EXPECT_EQ(copy.get_argv(), line.item.get_argv());
  const rc_pointer<base_config_item> cloned(line.item.clone());
  line.item.unload();
  EXPECT_EQ(cloned->get_id(), "command line");
  EXPECT_EQ(value_of(*cloned, "a"), "1");
  cloned->unload();
  EXPECT_TRUE(cloned->load());
  EXPECT_EQ(value_of(*cloned, "a"), "1");
}

TEST(commandline_item, loads_again_after_unload_and_by_the_list) {
  command_line line({"-a=1"});
  EXPECT_TRUE(line.item.load(item_list()));
  line.item.set("a = 2", 0);
  line.item.set("b = 3", 0);
  line.load();
  EXPECT_EQ(value_of(line.item, "a"), "1");
  EXPECT_EQ(value_of(line.item, "b"), "3");
  line.item.unload();
  EXPECT_EQ(listing_of(line.item), std::vector<std::string>{});
}

TEST(commandline_item, agrees_with_the_plain_reading_on_random_words) {
  random_engine random;
  const std::string letters = "--//==:=,$\"\\ +ab.<>*1\t\n";
  for (int run = 0; run < 3000; ++run) {
    std::vector<std::string> words(random() % 6);
    for (std::string& word : words) {
      if (random() % 2 == 0) word.push_back('-');
      for (auto length = random() % 7; length > 0; --length) word += letters[random() % letters.size()];
    }
    command_line line(words, "");
    reference_command_line reference(words);
    EXPECT_EQ(line.load(), reference.warnings);
    reference.tree.set("application.name", "", 0);
    reference.tree.set("application.name.raw", "", 0);
    std::string shown;
    for (const std::string& word : words) shown += "[" + word + "] ";
    ASSERT_EQ(listing_of(line.item), reference.tree.listing()) << shown;
  }
}

TEST(commandline_item, deep_keys_and_many_words_take_no_stack) {
  std::string deep = "-a";
  for (int i = 0; i < 100000; ++i) deep += ".a";
  std::vector<std::string> words{deep + "=x", "-list"};
  for (int i = 0; i < 20000; ++i) words.push_back("word");
  command_line line(words);
  line.load();
  EXPECT_EQ(value_of(line.item, deep.substr(1)), "x");
  EXPECT_EQ(array_of(line.item, "list").size(), 20000u);
}

}  // namespace
