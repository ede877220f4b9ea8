#include "orva/config/format_document.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "orva/config/config_document.hpp"
#include "orva/config/file_item.hpp"
#include "tests/support/document_edits.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using namespace ORVA_NAMESPACE::config;
using namespace std::string_literals;

struct row {
  std::string_view text;
  std::string_view formatted;
};

void expect_rows(std::initializer_list<row> rows) {
  for (const row& each : rows) {
    EXPECT_EQ(format_document(each.text), each.formatted) << each.text;
    EXPECT_EQ(format_document(each.formatted), each.formatted) << each.text;
  }
}

TEST(format_document, documentation_example) {
  EXPECT_EQ(format_document("theme=dark  # of the user\n\n\n[ window ]\n  size[]=640 ,\n 480"),
            "theme = dark  # of the user\n"
            "\n"
            "[window]\n"
            "size[] = 640,\n"
            "    480\n");
}

TEST(format_document, blanks_around_parts_are_one_layout) {
  expect_rows({{"", ""},
               {" \n\t\r\n", ""},
               {"a=1", "a = 1\n"},
               {"\t a\t=\t1 \t\n", "a = 1\n"},
               {"a =\n", "a =\n"},
               {"a = \"\" \n", "a = \"\"\n"},
               {"[]\na=1\n", "[]\na = 1\n"},
               {"[\ta.b ] \n", "[a.b]\n"},
               {"[a] b = 1\n", "[a]\nb = 1\n"},
               {"a[ ]=1\n", "a[ ] = 1\n"},
               {"a[] = 1,2 , 3\n", "a[] = 1, 2, 3\n"},
               {"a[]=,,x,\"\" ,y\n", "a[] = , , x, \"\", y\n"},
               {"a[] =\n", "a[] =\n"}});
}

TEST(format_document, names_and_values_keep_their_spelling) {
  expect_rows({{"Dark Blue=dark  blue\n", "Dark Blue = dark  blue\n"},
               {"\"a=b\"=\" x \"y\n", "\"a=b\" = \" x \"y\n"},
               {"a=\"two\r\n  lines\"\n", "a = \"two\r\n  lines\"\r\n"},
               {"a = =b\n", "a = =b\n"},
               {"a b\n  c = 1\n", "a b\n  c = 1\n"},
               {"[\"a b\"c]\n", "[\"a b\"c]\n"},
               {"\xEF\xBB\xBF"
                "a=1\n",
                "\xEF\xBB\xBF"
                "a = 1\n"},
               {"\xFF=\xFE\n", "\xFF = \xFE\n"}});
}

TEST(format_document, comments_stay_with_their_lines) {
  expect_rows({{"  #  note \t\n", "#  note\n"},
               {"//note\n", "//note\n"},
               {"a=1 # one\n", "a = 1  # one\n"},
               {"a= # none\n", "a =  # none\n"},
               {"[a] # section\n", "[a]  # section\n"},
               {"[a]# section\n", "[a]# section\n"},
               {"# say \"two\nlines\" \na=1\n", "# say \"two\nlines\"\na = 1\n"}});
}

TEST(format_document, mark_without_a_blank_before_it_stays_as_it_is) {
  expect_rows({{"home=http://x\n", "home = http://x\n"}, {"colour =#fff\n", "colour =#fff\n"}});
}

TEST(format_document, line_ends_and_comments_in_arrays_stay) {
  expect_rows(
      {{"a[]=1,\n\n\n2, 3\n", "a[] = 1,\n    2, 3\n"},
       {"a[] = 1, # one\n# two\n\n2 # end\nb=1\n", "a[] = 1,  # one\n    # two\n    2  # end\nb = 1\n"},
       {"a[] = 1,\n,\n  2\n", "a[] = 1,\n    ,\n    2\n"},
       {"a[] = x,\n# never ends\n", "a[] = x,\n    # never ends\n"}});
}

TEST(format_document, empty_lines_separate_sections) {
  expect_rows({{"\n\na = 1\n\n\n\nb = 2\n\n", "a = 1\n\nb = 2\n"},
               {"a = 1\n[s]\n[t]\n", "a = 1\n\n[s]\n\n[t]\n"},
               {"a = 1\n# of s\n// too\n[s]\n", "a = 1\n\n# of s\n// too\n[s]\n"},
               {"a = 1\n# of a\n\n\n[s]\n", "a = 1\n# of a\n\n[s]\n"},
               {"# of s\n[s]\n\na = 1\n", "# of s\n[s]\n\na = 1\n"}});
}

TEST(format_document, line_ends_are_as_the_first_one) {
  expect_rows({{"a=1\r\nb=2\n[s]", "a = 1\r\nb = 2\r\n\r\n[s]\r\n"},
               {"a=1\nb=2\r\n", "a = 1\nb = 2\n"},
               {"\r\na=1\nb=2\r\n", "a = 1\nb = 2\n"},
               {"a=\"1\n2\"\r\nb=2\r\n", "a = \"1\n2\"\nb = 2\n"},
               {"a[]=1,\r\n2", "a[] = 1,\r\n    2\r\n"},
               {"a\r\n=\"1\n2\"", "a = \"1\n2\"\n"},
               {"a\r\nb\n=1", "a\r\nb = 1\r\n"},
               {"[a\r\n] # \"1\n2\"", "[a]  # \"1\n2\"\n"},
               {"[a\r\n]\n", "[a]\n"},
               {"a=1\r", "a = 1\r \n"},
               {"#\r \n", "#\r \n"}});
}

TEST(format_document, what_no_reader_stores_stays) {
  expect_rows({{"= a\n= 1\n", "=\na = 1\n"},
               {"=  # no key\n", "=  # no key\n"},
               {"a = 1\nno value", "a = 1\nno value\n"},
               {"a = 1\n[open", "a = 1\n\n[open\n"}});
}

TEST(format_document, open_quote_at_the_end_stays_without_a_line_end) {
  expect_rows({{"a=1\nb =   \"x ", "a = 1\nb =   \"x "},
               {"[a]  # \"x \n", "[a]  # \"x \n"},
               {"# \"x\n\n", "# \"x\n\n"},
               {"a[] = 1,  # \"", "a[] = 1,  # \""}});
}

std::string without_blanks(std::string text) {
  std::erase_if(text, [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; });
  return text;
}

orva_test::stored_nodes read_text(const orva_test::temporary_directory& directory, const std::string& text) {
  file_item item(directory.write("text.cfg", text));
  EXPECT_TRUE(item.load());
  return orva_test::stored_nodes_of(item);
}

TEST(format_document, random_texts_read_the_same_and_have_one_layout) {
  const std::string_view pieces[] = {
      "a",  "B",       "c.d",  "[",  "]",        "[]",    "=",       " = ",
      " ",  "\t",      "\n",   "\n", "\n\n",     "\r\n",  "\r",      "#",
      "//", "\"",      "\"",   "\\", ",",        ", ",    ":",       "/",
      "*",  "é",       "\xFF", "\0", "# note\n", "[s]\n", "k = v\n", "l[] = x, y\n",
      ":=", "\"q w\"", "1"};
  orva_test::random_engine random;
  const orva_test::temporary_directory directory;
  for (int run = 0; run < 1500; ++run) {
    std::string text;
    for (auto length = random() % 24; length > 0; --length) text += pieces[random() % std::size(pieces)];
    const std::string formatted = format_document(text);
    ASSERT_EQ(format_document(formatted), formatted) << text;
    ASSERT_EQ(without_blanks(formatted), without_blanks(text)) << text;
    ASSERT_EQ(read_text(directory, formatted), read_text(directory, text)) << text;
    const auto entries = config_document(text).entries();
    const auto formatted_entries = config_document(formatted).entries();
    ASSERT_TRUE(std::ranges::equal(entries, formatted_entries, {}, &config_document::entry::key,
                                   &config_document::entry::key))
        << text;
  }
}

TEST(format_document, time_is_in_proportion_to_the_text) {
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += "# c\nkey" + std::to_string(i) + "[]=1,\n2\n[s]";
  EXPECT_GT(format_document(text).size(), text.size());
}

}  // namespace
