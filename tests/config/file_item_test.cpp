#include "orva/config/file_item.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "orva/config/user_item.hpp"
#include "orva/strings/unicode.hpp"
#include "tests/config/config_files.hpp"
#include "tests/support/entries.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::config::base_config_item;
using ORVA_NAMESPACE::config::file_item;
using ORVA_NAMESPACE::memory::pointers::rc_pointer;
using lines = std::vector<std::string>;

struct file_row {
  const char* text;
  const char* keys;
};

std::ostream& operator<<(std::ostream& out, const file_row& row) { return out << test_name(row.text); }

class file_item_text : public testing::TestWithParam<file_row> {};

TEST_P(file_item_text, reads_as) { EXPECT_EQ(keys_of_text(GetParam().text), GetParam().keys); }

INSTANTIATE_TEST_SUITE_P(
    shown_in_the_guide, file_item_text,
    testing::Values(
        file_row{"a\n\nb = 1", "ab=1"}, file_row{"a # b = 1", "a#b=1"}, file_row{"a == 1\nb = 2", "a==1b=2"},
        file_row{"a := 1\nb = 2", "a:=1b=2"}, file_row{"a += 1\nb = 2", "a+=1b=2"},
        file_row{"= a\nb = 1", "ab=1"}, file_row{"; a = 1", ";a=1"}, file_row{"a =", ""},
        file_row{"a = \"\"", ""}, file_row{"a[] = 1,,2", "a[] a.0=1 a.1= a.2=2"},
        file_row{"a[] = 1,\nb = 2", "a[] a.0=1 a.1=b=2"},
        file_row{"a[] = 1,\"\"\nb[] = 2", "b[] b.0=1 b.1=2"}, file_row{"a = http://x", "a=http:"},
        file_row{"a = \"http://x\"", "a=http://x"}, file_row{"a = Free \"disk space\"", "a=Freedisk space"},
        file_row{"a = \"1\nb = 2", "a=1\nb = 2"}, file_row{"# it\"s\na = 1", ""},
        file_row{"[a # b]\nc = 1", "a#b.c=1"}, file_row{"[window.main]\nc = 1", "window.main.c=1"}));
INSTANTIATE_TEST_SUITE_P(
    comments, file_item_text,
    testing::Values(file_row{"", ""}, file_row{"\n\r\n \t\n", ""}, file_row{"# a\n// b = c\n", ""},
                    file_row{"# a=b", ""}, file_row{"//", ""}, file_row{"#", ""}, file_row{"#\"a\"=b", ""},
                    file_row{"k=v # note\n", "k=v"}, file_row{"k=v # note", "k=v"}, file_row{"k=v #", "k=v"},
                    file_row{"k=v // note\n", "k=v"}, file_row{"k=\"v # note\"\n", "k=v # note"},
                    file_row{"k=v#1\n", "k=v"}, file_row{"k=http://x\n", "k=http:"},
                    file_row{"k=/* v */\n", "k=/*v*/"}, file_row{"/* c */ k=v\n", "*c*.k=v"},
                    file_row{"# \"a\nb=1\n\" c=2\nd=3\n", "d=3"}, file_row{"k#x=v\n", "k#x=v"},
                    file_row{"k = # note\nj=1\n", "j=1"}, file_row{"; a=b\n", ";a=b"}));
INSTANTIATE_TEST_SUITE_P(
    sections, file_item_text,
    testing::Values(file_row{"[s]\nk=v\n", "s.k=v"}, file_row{"[s]\n[t]\nk=v\n", "t.k=v"},
                    file_row{"[s]\nk=v\n[]\nj=w\n", "j=w s.k=v"}, file_row{"[s] k=v\n", "s.k=v"},
                    file_row{"[ a b ]\nk=v\n", "ab.k=v"}, file_row{"[\"a b\"]\nk=v\n", "a b.k=v"},
                    file_row{"[a.b]\nc.d=v\n", "a.b.c.d=v"}, file_row{"[a/b\\c]\nk=v\n", "a.b.c.k=v"},
                    file_row{"[a\nb]\nk=v\n", "ab.k=v"}, file_row{"[s", ""}, file_row{"[s\nk=v\n", ""},
                    file_row{"[s]\nk=v\n[s]\nj=w\n", "s.j=w s.k=v"}, file_row{"[s#x]\nk=v\n", "s#x.k=v"},
                    file_row{"[S]\nK=V\n", "s.k=V"}, file_row{"[a.]\nk=v\n", "a..k=v"},
                    file_row{"[[s]\nk=v\n", "[s.k=v"}, file_row{"[s]]\nk=v\n", "s.]k=v"}));
INSTANTIATE_TEST_SUITE_P(
    scalars, file_item_text,
    testing::Values(
        file_row{"a b = c d\n", "ab=cd"}, file_row{"k=\n", ""}, file_row{"k=\"\"\n", ""},
        file_row{"k=v", "k=v"}, file_row{"k=v\r\nj=w\r\n", "j=w k=v"}, file_row{"a\nb=1\n", "ab=1"},
        file_row{"k\n=v\n", "k=v"}, file_row{"k=a=b\n", "k=a=b"}, file_row{"k==v\nj=1\n", "k==vj=1"},
        file_row{"=v\nk=w\n", "vk=w"}, file_row{"k=\nv\n", ""}, file_row{"k", ""}, file_row{"k\n", ""},
        file_row{"k=\"a\nb\"\n", "k=a\nb"}, file_row{"k=\"a b\" \"c d\"\n", "k=a bc d"},
        file_row{"k=x\"a b\"y\n", "k=xa by"}, file_row{"k=\"a\\\"b\"\n", "k=a\\\"b"},
        file_row{"k=\"open\nj=1\n", "k=open\nj=1\n"}, file_row{"\"k k\"=v\n", "k k=v"},
        file_row{"k=a,b\n", "k=a,b"}, file_row{"k=[a]\n", "k=[a]"}, file_row{"k=v\rj=w\n", "k=v\rj=w"},
        file_row{"k=1\nk=2\n", "k=2"}, file_row{"\xC3\xA4=\xC3\xB6\n", "\xC3\xA4=\xC3\xB6"},
        file_row{"a.b=1\na=2\n", "a=2 a.b=1"}, file_row{"a.=1\n", "a=1"}, file_row{".a=1\n", "a=1"}));
INSTANTIATE_TEST_SUITE_P(
    arrays, file_item_text,
    testing::Values(
        file_row{"k[]=a,b\n", "k[] k.0=a k.1=b"}, file_row{"k[]=a,\nb\n", "k[] k.0=a k.1=b"},
        file_row{"k[]=a,\n\n\t b\n", "k[] k.0=a k.1=b"}, file_row{"k[]=\n", ""}, file_row{"k[]=", ""},
        file_row{"k[]=a,", ""}, file_row{"k[]=a", "k[] k.0=a"}, file_row{"k[] = a , b \n", "k[] k.0=a k.1=b"},
        file_row{"k [ ] = a\n", "k[] k.0=a"}, file_row{"k[]=a, # note\nb\n", "k[] k.0=a k.1=b"},
        file_row{"k[]=a # note\nb=1\n", "b=1 k[] k.0=a"}, file_row{"k[]= # note\nb=1\n", "b=1"},
        file_row{"k[]=a,,b\n", "k[] k.0=a k.1= k.2=b"}, file_row{"k[]=,a\n", "k[] k.0= k.1=a"},
        file_row{"k[]=\"a,b\",c\n", "k[] k.0=a,b k.1=c"}, file_row{"k[]=\"a\nb\",c\n", "k[] k.0=a\nb k.1=c"},
        file_row{"k[]=a,\nj=1\nl=2\n", "k[] k.0=a k.1=j=1 l=2"},
        file_row{"[s]\nk[]=a,b\n", "s.k[] s.k.0=a s.k.1=b"}, file_row{"\"k[]\"=a,b\n", "k[] k.0=a k.1=b"},
        file_row{"k[]=a\r\nj=b\r\n", "j=b k[] k.0=a"}, file_row{"k[]x=a,b\n", "k[]x=a,b"},
        file_row{"k[0]=a\n", "k[0]=a"}, file_row{"k[]=a b,c\n", "k[] k.0=ab k.1=c"}));
INSTANTIATE_TEST_SUITE_P(arrays_without_their_last_element, file_item_text,
                         testing::Values(file_row{"k[]=a,\"\"\nj[]=b\n", "j[] j.0=a j.1=b"},
                                         file_row{"k[]=a,b,\"\"\nj=1\nl[]=c,d\n",
                                                  "j=1 l[] l.0=a l.1=b l.2=c l.3=d"},
                                         file_row{"k[]=\"\"\nj[]=b\n", "j[] j.0=b"}));
INSTANTIATE_TEST_SUITE_P(arrays_without_a_name, file_item_text,
                         testing::Values(file_row{"[s]\n\"[]\"=a,b\n", "s[] s..0=a s..1=b"},
                                         file_row{"\"[]\"=a\n", "[] 0=a"},
                                         file_row{"[s]\n.[]=a\n", "s.[] s...0=a"},
                                         file_row{"[s]\nk.[]=a\n", "s.k[] s.k..0=a"}));

TEST(file_item, values_are_strings_of_the_library) {
  const temporary_directory directory;
  file_item item(directory.write("a.cfg", "k=v\nl[]=a,b\n"));
  EXPECT_TRUE(item.load());
  EXPECT_EQ(item.get_value("k")->second.type(), typeid(ORVA_NAMESPACE::strings::ustring8));
  EXPECT_EQ(item.get_value("l.0")->second.type(), typeid(ORVA_NAMESPACE::strings::ustring8));
  EXPECT_EQ(flags_of(item, "l"), 3);
}

TEST(file_item, byte_order_mark_belongs_to_the_first_key) {
  EXPECT_EQ(keys_of_text("\xEF\xBB\xBFk=v\n"), "\xEF\xBB\xBFk=v");
  EXPECT_EQ(keys_of_text("\xEF\xBB\xBF[s]\nk=v\n"), "\xEF\xBB\xBF[s]k=v");
}

TEST(file_item, zero_bytes_are_text) {
  const temporary_directory directory;
  file_item item(directory.write("a.cfg", std::string("k=a\0b\n", 6)));
  item.load();
  EXPECT_EQ(item.get_value("k")->second.as_string(), std::string("a\0b", 3));
}

TEST(file_item, section_without_keys_leaves_no_trace) {
  EXPECT_EQ(listing_of(*load_text("[s]\n")), lines{});
  EXPECT_EQ(listing_of(*load_text("[s]\nk=\n")), lines{});
}

TEST(file_item, unexpected_keys_are_documented_by_their_examples) {
  EXPECT_EQ(keys_of_text("a\nb = 1\n"), "ab=1");
  EXPECT_EQ(keys_of_text("= a\nb = 1\n"), "ab=1");
  EXPECT_EQ(keys_of_text("a =\nb = \"\"\n"), "");
  EXPECT_EQ(keys_of_text("a[] = x,\n\n y\n"), "a[] a.0=x a.1=y");
  EXPECT_EQ(keys_of_text("home = http://x\n"), "home=http:");
}

TEST(file_item, documentation_example) {
  EXPECT_EQ(keys_of_text("# a comment, to the end of the line; so is text after //\n"
                         "colour = dark blue\n"
                         "title  = \"dark blue\" # theme\n"
                         "[window.main]\n"
                         "size[] = 640, 480\n"
                         "names[] = a,\n"
                         "          b\n"
                         "[]\n"
                         "last = 1\n"),
            "colour=darkblue last=1 title=dark blue window.main.names[] window.main.names.0=a "
            "window.main.names.1=b "
            "window.main.size[] window.main.size.0=640 window.main.size.1=480");
}

TEST(file_item, has_one_id) {
  const file_item item("x");
  EXPECT_EQ(item.get_id(), "standard file");
  EXPECT_EQ(file_item(item).get_id(), "standard file");
  const rc_pointer<file_item> cloned(item.clone());
  EXPECT_EQ(cloned->get_id(), "standard file");
  EXPECT_EQ(cloned->get_filename(), "x");
  file_item assigned("y");
  assigned = item;
  EXPECT_EQ(assigned.get_filename(), "x");
}

TEST(file_item, constructor_reads_nothing_and_load_adds) {
  const temporary_directory directory;
  file_item item(directory.write("a.cfg", "a=1\nb=2\n"));
  EXPECT_EQ(listing_of(item), lines{});
  item.set("b = x", 0);
  item.set("c = y", 0);
  EXPECT_TRUE(item.load());
  EXPECT_EQ(listing_of(item), (lines{"a | 1 | 1", "b | 1 | 2", "c | 1 | y"}));
  item.unload();
  EXPECT_EQ(listing_of(item), lines{});
  EXPECT_TRUE(item.load());
  EXPECT_EQ(value_of(item, "a"), "1");
}

TEST(file_item, file_that_cannot_be_read_is_no_error_and_changes_nothing) {
  const temporary_directory directory;
  std::string link = directory.file("link.cfg");
  directory.write("real.cfg", "a=1\n");
  if (!orva_test::make_link("real.cfg", link)) link.clear();
  for (const std::string& name :
       {std::string(), directory.file("missing.cfg"), directory.name(), link, std::string("\xFF\xFF"),
        directory.file("real.cfg/x"), std::string(5000, 'x')}) {
    file_item item(name);
    item.set("k = v", 0);
    EXPECT_TRUE(item.load()) << name;
    EXPECT_EQ(listing_of(item), lines{"k | 1 | v"}) << name;
  }
}

TEST(file_item, file_too_large_for_a_string_is_as_good_as_none) {
  const temporary_directory directory;
  const std::string name = directory.write("large.cfg", "a=1\n");
  std::error_code refused;
  std::filesystem::resize_file(name, std::uintmax_t{0x80000000}, refused);
  if (refused) GTEST_SKIP() << "no room for a file with a hole";
  file_item item(name);
  EXPECT_TRUE(item.load());
  EXPECT_EQ(listing_of(item), lines{});
}

class comment_reader : public file_item {
 public:
  comment_reader() : file_item("") {}
  unsigned int end_of_comment(std::string_view text, unsigned int position) const {
    parse_comment(text, position);
    return position;
  }
};

TEST(file_item, comment_ends_before_its_line_end) {
  const comment_reader reader;
  EXPECT_EQ(reader.end_of_comment("# a b\nc", 1), 5u);
  EXPECT_EQ(reader.end_of_comment("# a\r\nc", 1), 3u);
  EXPECT_EQ(reader.end_of_comment("#\n", 1), 1u);
  EXPECT_EQ(reader.end_of_comment("# a b", 1), 5u);
  EXPECT_EQ(reader.end_of_comment("", 0), 0u);
  EXPECT_EQ(reader.end_of_comment("# \"a\nb\" c\nd", 1), 9u);
  EXPECT_EQ(reader.end_of_comment("# \"a", 1), 5u);
}

TEST(file_item, long_names_in_deep_sections_take_time_in_proportion) {
  std::string section = "a";
  for (int i = 1; i < 100000; ++i) section += ".a";
  std::string text;
  text.append("[").append(section).append("]\n");
  for (int i = 0; i < 5000; ++i) text.append(std::to_string(i)).append("=v\n\"[]\"=x,y\n");
  const auto item = load_text(text);
  EXPECT_EQ(value_of(*item, section + ".4999"), "v");
  EXPECT_EQ(value_of(*item, section + "..1"), "y");
}

TEST(file_item, takes_its_name_as_a_path_and_as_a_view_of_each_width) {
  const temporary_directory directory;
  const std::filesystem::path path = directory.path() / u8"\u00E4.cfg";
  const std::string name = directory.write("\xC3\xA4.cfg", "a = 1");
  const auto wide = ORVA_NAMESPACE::strings::utf8_to_utf16(name);
  for (file_item item : {file_item(path), file_item(std::string_view(name)), file_item(wide)}) {
    EXPECT_EQ(item.get_filename(), name);
    EXPECT_TRUE(item.load());
    ASSERT_NE(item.get_value("a"), nullptr);
    EXPECT_EQ(item.get_value("a")->second.as_utf8(), "1");
  }
}

}  // namespace
