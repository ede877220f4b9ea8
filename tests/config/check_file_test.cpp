#include "orva/config/check_file.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "orva/config/file_item.hpp"
#include "orva/diagnostics/place.hpp"
#include "orva/diagnostics/write.hpp"
#include "tests/config/config_files.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_config_lines.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using namespace orva_test;
using namespace std::string_view_literals;
using ORVA_NAMESPACE::config::check_file;
using ORVA_NAMESPACE::config::check_text;
using ORVA_NAMESPACE::config::file_item;
using ORVA_NAMESPACE::diagnostics::finding;
using ORVA_NAMESPACE::diagnostics::report;
using ORVA_NAMESPACE::diagnostics::severity;

report checked(std::string_view text, std::size_t max_findings = 100000) {
  report found(max_findings);
  check_text(text, "a.cfg", found);
  return found;
}

/// "2:5 warning blank_in_value; 3:1 note ..."
std::string findings_of(const report& found) {
  std::string text;
  for (const finding& each : found.findings()) {
    if (!text.empty()) text += "; ";
    text += std::to_string(each.at.line) + ':' + std::to_string(each.at.column) + ' ';
    text += std::string(name_of(each.level)) + ' ' + each.code.substr(each.code.find('.') + 1);
  }
  return text;
}

std::string findings_in(std::string_view text) { return findings_of(checked(text)); }

struct row {
  std::string_view text;
  const char* findings;
};

std::ostream& operator<<(std::ostream& out, const row& each) {
  return out << test_name(std::string(each.text));
}

class check_file_text : public testing::TestWithParam<row> {};

TEST_P(check_file_text, has_findings) { EXPECT_EQ(findings_in(GetParam().text), GetParam().findings); }

// The keys are in a section, and there is one section, so that `save` loses nothing.
const row rows_of_lines[] = {
    {"", ""},
    {"\n \t\r\n", ""},
    {"[s]\na = 1\nb=\"x y\"\n\"c c\" = v\nd[] = 1, \"a, b\",\n  3\n", ""},
    {"[s]\na\n\nb = 1\n", "2:1 error line_without_equals"},
    {"[s]\n  a\nb\n[t]\n# c\nc = 1\n", "2:3 error line_without_equals; 5:1 note save_drops_comments"},
    {"[s]\nk = 1\na\n", "3:1 error line_ignored"},
    {"[s]\nk\n= v\n", "2:1 error line_without_equals"},
    {"[s]\na: 1\nb = 2\n", "2:2 error colon_for_equals"},
    {"[s]\na : 1\nb = 2\n", "2:3 error colon_for_equals"},
    {"[s]\na b: 1\nb = 2\n", "2:1 error line_without_equals"},
    {"[s]\n= a\nb = 1\n", "2:1 error missing_key"},
    {"[s]\n\"\" = a\nb = 1\n", "2:1 error missing_key"},
    {"[s]\na == 1\nb = 2\n", "2:3 error operator_in_key"},
    {"[s]\na += b = 1\n", "2:3 error operator_in_key"},
    {"[s]\na:=1\nb-=1\nc*=1\nd/=1\ne<=1\nf>=1\n",
     "2:2 error operator_in_key; 3:2 error operator_in_key; 4:2 error operator_in_key; "
     "5:2 error operator_in_key; 6:2 error operator_in_key; 7:2 error operator_in_key"},
    {"[s]\na # b = 1\n", "2:3 warning comment_in_key; 2:3 note save_drops_comments"},
    {"[s]\na // b\nc = 1\n", "2:1 error line_without_equals; 2:3 note save_drops_comments"},
    {"[s]\n; a\n\n;b = 1\nc = 1 ; d\n", "2:1 error semicolon"},
    {"[s]\n;a = 1\n", "2:1 warning semicolon"},
    {"[s]\na = ; d\nb = x;y\nc = ;d\n", "2:5 warning semicolon"},
    {"[s] ; t\na = 1\n", "1:5 error semicolon"},
    {"[s]\n/* a */\nb = 1\n", "2:1 error block_comment"},
    {"[s]\n/* a\n b: c */ b = 1\n", "2:1 error block_comment"},
    {"[s]\n/* a\nb = 1\n", "2:1 error block_comment"},
    {"[s]\na = 1 /* b c */\nb = src/*\nd = /*\n", "2:7 warning block_comment"},
    {"[s]\na=1\rb=2\r\n\r", "2:4 error lone_carriage_return"},
};
INSTANTIATE_TEST_SUITE_P(lines, check_file_text, testing::ValuesIn(rows_of_lines));

const row rows_of_quotes[] = {
    {"# 5\" wide\n[s]\na = 1\n", "1:1 note save_drops_comments; 1:4 error quote_in_comment"},
    {"# 5\" wide\n[s]\na = \"1\"\n", "1:1 note save_drops_comments; 1:4 error quote_in_comment"},
    {"# \"a\n\n# b\" c\n// \"\"\n[s]\na = 1 # \"b\"\n", "1:1 note save_drops_comments"},
    {"# \"a\n# b\" \"c\n[s]\na = 1\n", "1:1 note save_drops_comments; 1:3 error quote_in_comment"},
    {"[s]\na = 1\n# \"", "3:1 note save_drops_comments"},
    {"[s]\na = \"1\nb = 2\n", "2:5 error unclosed_quote"},
    {"[s]\na = \"1", "2:5 error unclosed_quote"},
    {"[s]\na = \"1\nb = \"2\"\n", "2:5 error quote_takes_lines"},
    {"[s]\na = \"1\nb = 2\n\"\n", "2:5 warning quote_takes_lines; 4:1 error unclosed_quote"},
    {"[s]\na = \"1\n2 \\n b\n 3\"\n", ""},
    {"[s]\na[] = \"1\n2\", \"3\n4\"\n", ""},
    {"[s]\na[] = \"1,\n  2\n", "2:7 error unclosed_quote"},
    {"[s]\n\"a = 1\nb = 2\n", "2:1 error unclosed_quote"},
    {"[s]\n\"a\nb\" = 2\n", "2:1 warning quote_takes_lines; 3:2 error unclosed_quote"},
    {"[s]\na = \"C:\\dir\\\"\nb = 1\n", "2:12 error backslash_before_quote"},
    {"[s]\na = \"say \\\"hi\\\"\"\n", "2:10 warning backslash_kept"},
    {"[s]\na = \"C:\\\\\"\n", "2:8 warning backslash_kept"},
    {"[s]\na = \"C:\\\\dir\\n\"\n", ""},
    {"[s]\na = x\"y\"z\n", "2:6 warning quotes_inside"},
    {"[s]\na = \"x\"\"y\"\n", "2:8 warning quotes_inside"},
    {"[s]\na = \"x\"y\n", "2:8 warning quotes_inside"},
    {"[s]\na\"b\" = 1\n", "2:2 warning quotes_inside"},
    {"[s]\na = 'dark blue'\n", "2:5 warning other_quotes"},
    {"[s]\na = \xE2\x80\x9Cx\xE2\x80\x9D\n", "2:5 warning other_quotes"},
    {"[s]\na[] = 'a, b', c\n", "2:7 warning other_quotes"},
    {"[s]\na = it's\n", ""},
    {"[s]\n\"a[]\" = x, y\n", "2:1 warning quoted_brackets"},
    {"[s]\n\"a b\" [ ] = x, y\n", ""},
};
INSTANTIATE_TEST_SUITE_P(quotes, check_file_text, testing::ValuesIn(rows_of_quotes));

const row rows_of_values[] = {
    {"[s]\na = http://x\n", "2:10 warning value_cut"},
    {"[s]\na = #fff\n", "2:5 warning value_cut"},
    {"[s]\na = x#y z # w\n", "2:6 warning value_cut; 2:11 note save_drops_comments"},
    {"[s]\na[] = #fff, http://x\n", "2:7 warning value_cut; 2:18 warning value_cut"},
    {"[s]\na = x # y\nb = x // y\nc = \"x\"#y\nd[] = x, # y\n  z\n", "2:7 note save_drops_comments"},
    {"[s]\na = dark blue sky\n", "2:9 warning blank_in_value"},
    {"[s]\na = dark\tblue\n", "2:9 warning blank_in_value"},
    {"[s]\na[] = x y, \"z\" w\n", "2:8 warning blank_in_value; 2:15 warning blank_in_value"},
    {"[s]\na =\nb = 1\n", "2:3 warning empty_value"},
    {"[s]\na = \"\"\nb = 1\n", "2:5 warning empty_value"},
    {"[s]\na = # b\nb = 1\n", "2:3 warning empty_value; 2:5 note save_drops_comments"},
    {"[s]\na[] =\nb = 1\n", "2:5 warning empty_value"},
    {"[s]\na[] = \"\"\nb = 1\n", "2:7 warning empty_value"},
    {"[s]\na = x \\\nb = 1\n", "2:7 warning backslash_at_line_end"},
    {"[s]\na = C:\\\nb = 1\n", ""},
    {"[s]\na = 1\xC2\xA0"
     "2\n",
     "2:6 warning hidden_character"},
    {"[s]\nb = 1\n\x1A", "3:1 warning hidden_character"},
    {"[s]\na = \"\xC2\xA0\"\n", ""},
};
INSTANTIATE_TEST_SUITE_P(values, check_file_text, testing::ValuesIn(rows_of_values));

const row rows_of_arrays[] = {
    {"[s]\na = 1\nb[] = x,\na.b = 1\n", "3:8 warning array_takes_line; 4:1 note save_drops_key_below_value"},
    {"[s]\na[] = x,\n[t2]\nb = 1\n", "2:8 error array_takes_line"},
    {"[s]\na[] = x,\n\n# c\n", "2:8 error array_not_stored; 4:1 note save_drops_comments"},
    {"[s]\na[] = x, \"\"\nb = 1\n", "2:10 error array_not_stored"},
    {"[s]\na[] = x\n  , y\nb = 1\n", "3:3 error array_ended; 4:1 note save_drops_key_after_array"},
    {"[s]\na[] = x\ny\nb = 1\n", "3:1 error line_without_equals; 4:1 note save_drops_key_after_array"},
    {"[s]\na[] = x,,y\n", ""},
    {"[s]\na[] = x, y\na[] = z\n", "3:1 warning duplicate_array"},
    {"[s]\na[] = x, y\na = z\n", "3:1 warning array_hidden"},
    {"[s]\na[] = x, y\na.0 = z\n", "3:1 warning array_element"},
    {"[s]\na.2 = z\na[] = x, y\n", "2:1 warning array_element"},
    {"[s]\na[0] = x\n", "2:2 warning index_in_key"},
};
INSTANTIATE_TEST_SUITE_P(arrays, check_file_text, testing::ValuesIn(rows_of_arrays));

const row rows_of_names[] = {
    {"[s]\ndark blue = 1\n", "2:5 warning blank_in_name"},
    {"[my section]\na = 1\n", "1:4 warning blank_in_name"},
    {"[ s ]\na = 1\n", ""},
    {"[\"my section\"]\na = 1\n", ""},
    {"[s\nb = 1\n", "1:1 error unclosed_section"},
    {"[s] b = 1\n", "1:5 warning text_after_section"},
    {"[s]]\nb = 1\n", "1:4 error text_after_section"},
    {"[s] # b\nb = 1\n", "1:5 note save_drops_comments"},
    {"[s]\na..b = 1\n", "2:3 warning empty_name"},
    {"[s]\n.a = 1\n", "2:1 warning empty_name"},
    {"[s]\na. = 1\n", "2:2 warning empty_name"},
    {"[s.]\na = 1\n", "1:3 warning empty_name"},
    {"[s]\na = 1\nb = 2\na = 3\n", "4:1 warning duplicate_key"},
    {"[s]\na = 1\nA = 3\n", "3:1 warning key_spelled_otherwise; 3:1 note save_lower_case"},
    {"[s]\na.b = 1\na/b = 3\n", "3:1 warning key_spelled_otherwise"},
    {"[s]\na = 1\n[s]\na = 2\n", "3:1 note section_again; 4:1 warning duplicate_key"},
    {"[s]\na = 1\n[S]\nb = 2\n", "3:1 warning section_spelled_otherwise; 3:1 note save_lower_case"},
    {"[s]\n[s]\na = 1\n[s]\n", "1:1 note section_without_keys; 4:1 note section_without_keys"},
};
INSTANTIATE_TEST_SUITE_P(names, check_file_text, testing::ValuesIn(rows_of_names));

const row rows_of_bytes[] = {
    {"\xEF\xBB\xBF[s]\na = 1\n", "1:1 error byte_order_mark"},
    {"\xFF\xFE[\0s\0]\0\n\0"sv, "1:1 error other_encoding"},
    {"\xFF\xFE\0\0[\0\0\0"sv, "1:1 error other_encoding"},
    {"[s]\na = \"x\xE9\xE9\"\n", "2:7 warning malformed_utf8"},
    {"[s]\na = 1\0"
     "2\0\n"sv,
     "2:6 warning zero_byte"},
};
INSTANTIATE_TEST_SUITE_P(bytes, check_file_text, testing::ValuesIn(rows_of_bytes));

const row rows_of_losses[] = {
    {"a = 1\nb = 2\n[s]\nc = 1\n", "1:1 note save_drops_keys_at_top"},
    {"[s]\na = 1 # x\n# y\n", "2:7 note save_drops_comments"},
    {"[s]\na[] = x\nb = 1\nc = 1\n", "3:1 note save_drops_key_after_array"},
    {"[s]\nb = 1\na[] = x\n", "2:1 note save_drops_key_after_array"},
    {"[s]\nb = 1\nb.c = x\n", "3:1 note save_drops_key_below_value"},
    {"[s]\na = \"http://x\"\n", "2:5 note save_changes_value"},
    {"[s]\na = \"http://x y\"\n", ""},
    {"[s]\na = =x\n", "2:5 note save_changes_value"},
    {"[s]\na[] = \"x,y\"\n", "2:7 note save_changes_value"},
    {"[s]\n\"a=b\" = 1\n", "2:1 note save_changes_name"},
    {"[s]\na+ = 1\n", "2:1 note save_changes_name"},
    {"[\"s]\"]\na = 1\n", "1:1 note save_changes_name"},
    {"[s]\na[] = x\n[s.a.1z]\nb = 1\n", "3:1 note save_changes_name"},
    {"[s]\na[] = x\n[s.a.0]\nb = 1\n", "3:1 note save_changes_name"},
    {"[s]\na[] = x\n[s.a.z]\nb = 1\n", ""},
    {"[s]\nA = 1\n", "2:1 note save_lower_case"},
    {"[s]\na = 1\n[t]\nb = 1\n", "3:1 note save_mixes_sections"},
    {"[s]\nab[] = 1\n[wxyz]\nc = 1\n", "3:1 note save_mixes_sections"},
    {"[s]\na[] = 0,1,2,3,4,5,6,7,8,9\n", ""},
    {"[s]\na[] = 0,1,2,3,4,5,6,7,8,9,10\n", "2:1 note save_sorts_elements"},
    {"[empty]\n[s]\na = 1\n", "1:1 note section_without_keys"},
};
INSTANTIATE_TEST_SUITE_P(losses, check_file_text, testing::ValuesIn(rows_of_losses));

/// Each code of the page has a row above: the codes of files and of other parts of the library excepted.
TEST(check_file, each_code_has_a_mistake_that_gives_it_alone) {
  std::set<std::string> alone;
  for (const auto& rows : {std::span<const row>(rows_of_lines), std::span<const row>(rows_of_quotes),
                           std::span<const row>(rows_of_values), std::span<const row>(rows_of_arrays),
                           std::span<const row>(rows_of_names), std::span<const row>(rows_of_bytes),
                           std::span<const row>(rows_of_losses)}) {
    for (const row& each : rows) {
      const report found = checked(each.text);
      for (const finding& one : found.findings()) alone.insert(one.code);
    }
  }
  EXPECT_EQ(alone.size(), 51U);
  for (const std::string& code : alone) {
    finding found;
    found.code = code;
    EXPECT_NE(sentence(found), code) << "no sentence";
  }
}

TEST(check_file, arguments_name_first_places_and_what_is_read) {
  const auto sentences = [](std::string_view text) {
    std::string all;
    const report found = checked(text);
    for (const finding& each : found.findings()) {
      if (each.level != severity::note) all += sentence(each) + '\n';
    }
    return all;
  };
  EXPECT_EQ(sentences("[s]\na = 1\n\nA = 2\n"),
            "A is the same key as a in line 2, and replaces its value.\n");
  EXPECT_EQ(sentences("[s]\na = dark \"blue sky\" x\n"),
            "Blanks outside quotes are dropped: the value reads darkblue skyx.\n");
  EXPECT_EQ(sentences("a\n\n[s]\nb = 1\n"), "The line has no =: it becomes part of the key in line 4.\n");
  EXPECT_EQ(sentences("# \"\na = 1\n\n# \"\n"),
            "The quote continues the comment over line ends, up to line 4.\n");
  EXPECT_EQ(sentences("a = " + std::string(70, 'x') + " y\n"),
            "Blanks outside quotes are dropped: the value reads " + std::string(60, 'x') + "\xE2\x80\xA6.\n");
}

TEST(check_file, reads_a_file) {
  const temporary_directory directory;
  const std::string path = directory.write("a.cfg", "[s]\na = x y\n");
  report found;
  check_file(path, found);
  ASSERT_EQ(findings_of(found), "2:6 warning blank_in_value");
  EXPECT_EQ(found.findings()[0].file, path);
}

TEST(check_file, file_that_cannot_be_read_is_an_error) {
  const temporary_directory directory;
  report found;
  check_file(directory.file("none.cfg"), found);
  check_file(directory.name(), found);
  EXPECT_EQ(findings_of(found), "0:0 error file_missing; 0:0 error file_not_a_file");
}

TEST(check_file, documentation_example) {
  report found;
  check_text("[viewer]\nsize = 5\nhome = http://example.org\n", "viewer.cfg", found);
  std::ostringstream out;
  for (const finding& each : found.findings()) out << each << '\n';
  EXPECT_EQ(
      out.str(),
      "viewer.cfg:3:13: warning: The value ends before //, which begins a comment. [config.value_cut]\n");
}

TEST(check_file, keeps_as_many_findings_as_the_report_and_counts_the_others) {
  std::string text;
  for (int i = 0; i < 500; ++i) text += "a" + std::to_string(i) + " = x y\n";
  const report few = checked(text, 3);
  EXPECT_EQ(findings_of(few),
            "1:1 note save_drops_keys_at_top; 1:7 warning blank_in_value; 2:7 warning blank_in_value");
  EXPECT_EQ(few.count(severity::warning), 500U);
  EXPECT_EQ(few.count(severity::note), 1U);
  EXPECT_EQ(checked(text, 0).count(), 501U);
  report full(1);
  check_text("a\n", "", full);
  check_text("b\n", "", full);
  EXPECT_EQ(full.count(), 2U);
  EXPECT_EQ(full.findings().size(), 1U);
}

/// Texts with lines of all kinds, and some bytes changed.
class random_texts {
 public:
  std::string next() {
    std::string text = random_() % 4 == 0 ? "[s]\n" : "";
    for (auto count = random_() % 6; count > 0; --count) text += line();
    for (auto count = random_() % 3; count > 0; --count) mutate(text);
    return text;
  }

 private:
  template <std::size_t Count>
  std::string one_of(const char* const (&choices)[Count]) {
    return choices[random_() % Count];
  }

  std::string name() {
    return one_of({"a", "b", "cc", "a.b", "a/b", "dd.e", "\"k k\"", "A", "x-y", "\"q\"", "a+", "0", "1"});
  }
  std::string value() {
    return one_of({"1",         "x",         "\"x y\"", "\"\"",  "",      "a/b",     "x=y",
                   "\"1\n 2\"", "\"a # b\"", "*",       "it's",  "a,b",   "\"a,b\"", "x;y",
                   "-1",        "\"\\\\\"",  "[z]",     "\"=\"", "C:\\d", "\xC3\xA4"});
  }
  std::string end() {
    return one_of({"\n", "\n", "\n", "\r\n", " # c\n", " // \"c\"\n", "\t\n", "\n\n", " #c\n", ""});
  }
  std::string line() {
    switch (random_() % 8) {
      case 0:
        return "[" + name() + "]" + end();
      case 1:
        return one_of({"# c", "// \"c\"", " # 'c", ""}) + end();
      case 2: {
        std::string array = name() + "[] = " + value();
        for (auto count = random_() % 3; count > 0; --count) {
          array += one_of({",", ", ", ",\n", ",\n  ", ", # c\n"}) + value();
        }
        return array + end();
      }
      default:
        return name() + one_of({"=", " = ", " =", "\t= "}) + value() + end();
    }
  }
  void mutate(std::string& text) {
    const std::string piece =
        one_of({"\"", "#", "//", "=", "\n", "[",  "]", ",",        " ", "\\",           ";",    "/*",  "*/",
                ":",  "a", "\r", "/", "\t", "[]", "'", "\xC2\xA0", ".", "\xEF\xBB\xBF", "\"\"", "\\\""});
    const std::size_t at = random_() % (text.size() + 1);
    text.replace(at, random_() % 2, piece);
  }

  random_engine random_;
};

bool is_clean(const report& found) { return !found.has_errors() && found.count(severity::warning) == 0; }

TEST(check_file, text_without_errors_and_warnings_reads_as_it_looks) {
  random_texts texts;
  int clean = 0;
  for (int i = 0; i < 5000; ++i) {
    const std::string text = texts.next();
    if (!is_clean(checked(text))) continue;
    ++clean;
    ASSERT_EQ(listing_of(*load_text(text)), reference_line_reader(text).tree.listing()) << text;
  }
  EXPECT_GT(clean, 300);
}

TEST(check_file, text_without_findings_comes_back_after_a_save) {
  const temporary_directory directory;
  file_item saved(directory.file("saved.cfg"));
  random_texts texts;
  int clean = 0;
  for (int i = 0; i < 6000; ++i) {
    const std::string text = texts.next();
    if (!checked(text).empty()) continue;
    ++clean;
    const auto original = load_text(text);
    static_cast<ORVA_NAMESPACE::config::base_config_item&>(saved) = *original;
    saved.save();
    saved.unload();
    saved.load();
    ASSERT_EQ(listing_of(saved), listing_of(*original)) << text;
  }
  EXPECT_GT(clean, 100);
}

TEST(check_file, places_are_those_of_the_text_and_in_order) {
  random_texts texts;
  for (int i = 0; i < 2000; ++i) {
    const std::string text = texts.next();
    const report found = checked(text);
    std::set<std::pair<std::size_t, std::size_t>> places;
    for (std::size_t at = 0; at <= text.size(); ++at) {
      const auto place = ORVA_NAMESPACE::diagnostics::place_of(text, at);
      places.emplace(place.line, place.column);
    }
    std::pair<std::size_t, std::size_t> last;
    for (const finding& each : found.findings()) {
      const std::pair at(each.at.line, each.at.column);
      ASSERT_TRUE(places.contains(at)) << text;
      ASSERT_LE(last, at) << text;
      last = at;
    }
  }
}

/// A search that was repeated for each line would take minutes.
TEST(check_file, hostile_texts_take_time_in_proportion_to_their_size) {
  const auto repeated = [](std::string_view piece) {
    std::string text;
    while (text.size() < 60000) text += piece;
    return text;
  };
  for (const char* const piece :
       {"\\\"y,\n",      "# \\\"\n", "a = \"x\n",    "\"",          "/* a\n",   "x /*", "a[]=",
        "a=b c,",        "[",        "a.",           "a\n",         "\n",       "=\n",  "#\"\n\n",
        "a = \" \\\"\n", ",",        "a[] = \"x\n,", "a = http://", "\xC2\xA0", ";\n",  "\r"}) {
    for (const char* const end : {"", "\nb = \"\n"}) {
      for (const char* const begin : {"", "a[] = x,\n", "# \""}) {
        checked(begin + repeated(piece) + end, 1000);
      }
    }
  }
}

}  // namespace
