// The files that `save` writes. It is not the inverse of `load`.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "orva/types/nil.hpp"
#include "tests/config/config_files.hpp"
#include "tests/support/entries.hpp"
#include "tests/support/wide_text.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::config::file_item;
using ORVA_NAMESPACE::config::item_list;
using ORVA_NAMESPACE::generic::argument;
using ORVA_NAMESPACE::generic::varg_list;
using ORVA_NAMESPACE::types::nil;

class file_item_save : public testing::Test {
 protected:
  temporary_directory directory_;
  file_item item_{directory_.file("out.cfg")};

  std::string saved() {
    EXPECT_TRUE(item_.save());
    return directory_.read("out.cfg");
  }
};

TEST_F(file_item_save, empty_tree_writes_an_empty_file) { EXPECT_EQ(saved(), ""); }

TEST_F(file_item_save, keys_at_the_top_are_lost) {
  item_.set("a = 1", 0);
  item_.set_array("b", varg_list(argument(1)), {});
  EXPECT_EQ(saved(), "");
}

TEST_F(file_item_save, section_has_its_header_its_keys_and_a_blank_line) {
  item_.set("s.a = 1", 0);
  item_.set("s.b = 2", 0);
  EXPECT_EQ(saved(), "[s]\r\na=1\r\nb=2\r\n\r\n");
}

TEST_F(file_item_save, node_with_a_value_is_no_section) {
  item_.set("s.a = 1", 0);
  item_.set("s = x", 0);
  EXPECT_EQ(saved(), "");
}

TEST_F(file_item_save, sections_of_sections_have_their_whole_names) {
  item_.set("s.tt.a = 1", 0);
  item_.set("s.b = 2", 0);
  EXPECT_EQ(saved(), "[s]\r\nb=2\r\n\r\n[s.tt]\r\na=1\r\n\r\n");
}

TEST_F(file_item_save, keys_are_written_under_every_section_whose_name_is_as_long) {
  item_.set("aa.x = 1", 0);
  item_.set("bb.y = 2", 0);
  item_.set("ccc.z = 3", 0);
  EXPECT_EQ(saved(), "[aa]\r\nx=1\r\ny=2\r\n\r\n[bb]\r\nx=1\r\ny=2\r\n\r\n[ccc]\r\nz=3\r\n\r\n");
}

TEST_F(file_item_save, length_of_a_path_counts_whatever_its_parts) {
  item_.set("a.b.x = 1", 0);
  item_.set("ccc.y = 2", 0);
  EXPECT_EQ(saved(), "[a]\r\n\r\n[a.b]\r\nx=1\r\ny=2\r\n\r\n[ccc]\r\nx=1\r\ny=2\r\n\r\n");
}

TEST_F(file_item_save, array_is_written_in_one_line_and_the_next_key_is_lost) {
  item_.set_array("s.a", varg_list(argument("x"), argument("y"), argument("z")), {});
  item_.set("s.b = lost", 0);
  item_.set("s.c = kept", 0);
  EXPECT_EQ(saved(), "[s]\r\na[]=x,y,z\r\nc=kept\r\n\r\n");
}

TEST_F(file_item_save, array_at_the_end_of_the_tree_ends_the_file) {
  item_.set_array("s.a", varg_list(argument("x"), argument("y")), {});
  EXPECT_EQ(saved(), "[s]\r\na[]=x,y\r\n\r\n");
}

TEST_F(file_item_save, array_of_one_element_at_the_end_ends_the_file) {
  item_.set_array("s.a", varg_list(argument("x")), {});
  EXPECT_EQ(saved(), "[s]\r\na[]=x\r\n\r\n");
}

TEST_F(file_item_save, header_without_elements_at_the_end_ends_the_file) {
  item_.set("s.a", nil, 2);
  EXPECT_EQ(saved(), "[s]\r\na[]=\r\n\r\n");
}

TEST_F(file_item_save, header_without_elements_loses_the_key_after_it) {
  item_.set("s.a", nil, 2);
  item_.set("s.b = lost", 0);
  item_.set("s.c = kept", 0);
  EXPECT_EQ(saved(), "[s]\r\na[]=\r\nc=kept\r\n\r\n");
}

TEST_F(file_item_save, array_that_lacks_its_first_element_is_written_empty) {
  item_.set("s.a", nil, 2);
  item_.set("s.a.1 = lost", 0);
  item_.set("s.b = kept", 0);
  EXPECT_EQ(saved(), "[s]\r\na[]=\r\nb=kept\r\n\r\n");
}

TEST_F(file_item_save, elements_come_in_order_of_their_names) {
  varg_list values;
  for (int i = 0; i < 12; ++i) values.push_back(argument(i));
  item_.set_array("s.a", values, {});
  EXPECT_EQ(saved(), "[s]\r\na[]=0,1,10,11,2,3,4,5,6,7,8,9\r\n\r\n");
}

TEST_F(file_item_save, names_that_begin_with_a_number_go_on_with_the_array) {
  item_.set_array("s.a", varg_list(argument("x")), {});
  item_.set("s.a.0x1f = y", 0);
  item_.set("s.a.2nd = z", 0);
  item_.set("s.a.b = lost", 0);
  item_.set("s.c = kept", 0);
  EXPECT_EQ(saved(), "[s]\r\na[]=x,y,z\r\nc=kept\r\n\r\n");
}

TEST_F(file_item_save, run_of_an_array_continues_into_the_next_key_that_is_a_number) {
  item_.set_array("s.a", varg_list(argument("x")), {});
  item_.set("t.5 = five", 0);
  EXPECT_EQ(saved(), "[s]\r\na[]=x\r\n5=five\r\n\r\n[t]\r\na[]=x\r\n5=five\r\n\r\n")
      << "the section t ends the run";
}

TEST_F(file_item_save, flags_beside_those_of_an_array_make_a_scalar) {
  item_.set("s.a", "x", 4);
  item_.set("s.b", "y", 2 | 8);
  EXPECT_EQ(saved(), "[s]\r\na=x\r\nb=y\r\n\r\n");
}

TEST_F(file_item_save, text_with_blanks_and_line_ends_is_quoted_and_nothing_is_escaped) {
  item_.set("\"a b\".\"c\td\"", "x y", 0);
  item_.set("s.e", "a\r\nb", 0);
  item_.set("s.f", "a\tb", 0);
  item_.set("s.g", "a\"b", 0);
  item_.set("s.h", "a#b=c,d", 0);
  item_.set("s.i", "", 0);
  item_.set("s.j", "say \"hi\"", 0);
  EXPECT_EQ(saved(),
            "[\"\"a b\"\"]\r\n\"\"c\td\"\"=\"x y\"\r\n\r\n"
            "[s]\r\ne=\"a\r\nb\"\r\nf=\"a\tb\"\r\ng=a\"b\r\nh=a#b=c,d\r\ni=\r\nj=\"say \"hi\"\"\r\n\r\n");
}

TEST_F(file_item_save, values_of_all_types_are_written_as_text) {
  item_.set("s.a", 5, 0);
  item_.set("s.b", true, 0);
  item_.set("s.c", 1.5, 0);
  item_.set("s.d", orva_test::utf16(u"\u00E4"), 0);
  item_.set("s.e", nil, 0);
  EXPECT_EQ(saved(), "[s]\r\na=5\r\nb=1\r\nc=1.5\r\nd=\xC3\xA4\r\ne=\r\n\r\n");
}

TEST_F(file_item_save, empty_names_belong_to_no_section) {
  item_.set("s..a", 1, 0);
  item_.set(".b", 2, 0);
  EXPECT_EQ(saved(), "[]\r\n\r\n[s]\r\n\r\n[s.]\r\na=1\r\n\r\n");
}

TEST_F(file_item_save, what_was_written_loads_again) {
  item_.set("s.a = 1", 0);
  item_.set("s.b", "two words", 0);
  item_.set_array("s.c", varg_list(argument("x y"), argument("z")), {});
  item_.set("long.section.d", "line\nend", 0);
  item_.save();
  file_item again(item_.get_filename());
  again.load();
  EXPECT_EQ(listing_of(again), listing_of(item_));
}

TEST_F(file_item_save, comments_and_formatting_are_gone) {
  directory_.write("out.cfg", "# note\n[s]   # note\n\n  a   =   1\n\n");
  item_.load();
  EXPECT_EQ(saved(), "[s]\r\na=1\r\n\r\n");
}

TEST_F(file_item_save, with_a_list_writes_nothing_and_says_true) {
  item_.set("s.a = 1", 0);
  EXPECT_TRUE(item_.save(item_list()));
  EXPECT_FALSE(std::filesystem::exists(orva_test::path_of(item_.get_filename())));
}

TEST(file_item_save_nowhere, is_true_whatever_becomes_of_the_file) {
  const temporary_directory directory;
  std::string link = directory.file("link.cfg");
  directory.write("real.cfg", "old");
  if (!orva_test::make_link("real.cfg", link)) link.clear();
  for (const std::string& name : {std::string(), directory.name(), directory.file("missing/a.cfg"), link,
                                  directory.file("real.cfg/x"), std::string(5000, 'x')}) {
    file_item item(name);
    item.set("s.a = 1", 0);
    EXPECT_TRUE(item.save()) << name;
  }
  EXPECT_EQ(directory.read("real.cfg"), "old");
}

TEST(file_item_save_large, tree_of_many_sections_takes_time_in_proportion_to_what_is_written) {
  const temporary_directory directory;
  file_item item(directory.file("out.cfg"));
  std::string section = "s";
  std::size_t expected = 0;
  for (int i = 0; i < 1500; ++i) {
    section += 'x';
    item.set(section + ".k", "v", 0);
    expected += section.size() + 4 + 5 + 2;
  }
  EXPECT_TRUE(item.save());
  EXPECT_EQ(directory.read("out.cfg").size(), expected);
}

}  // namespace
