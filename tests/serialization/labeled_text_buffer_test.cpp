#include "orva/serialization/labeled_text_buffer.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

#include "orva/types/nil.hpp"
#include "tests/support/shown_separators.hpp"
#include "tests/support/wide_text.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::serialization;
using types::nil;
using types::variant;
using buffer = labeled_text_buffer;
using orva_test::bytes;
using orva_test::shown;

template <typename Action>
void expect_invalid_position(Action action) {
  try {
    action();
    FAIL() << "nothing was thrown";
  } catch (const std::out_of_range& failure) {
    EXPECT_STREQ(failure.what(), "invalid string position");
  }
}

std::string text_at(buffer& labeled, const std::string& label) {
  return labeled.retrieve_value(label).as_string();
}

TEST(labeled_text_buffer, documentation_example) {
  buffer labeled;
  labeled.add_value("a", 1);
  labeled.create_group("g")->add_value("x", 2);
  EXPECT_EQ(shown(labeled.as_str()), "1~a~1~1~2~g ~8~1~x~1~2~~");
  buffer read(labeled.as_str());
  EXPECT_EQ(read.retrieve_value("a").as_int32(), 1);
  EXPECT_EQ(read.retrieve_group("g")->retrieve_value("x").as_int32(), 2);
}

TEST(labeled_text_buffer, add_value_trims_the_label_and_lookups_do_not) {
  buffer labeled;
  labeled.add_value("  key \n", 1);
  labeled.create_group("\t\r group with blanks \r\n ");
  EXPECT_TRUE(labeled.has_label("key"));
  EXPECT_FALSE(labeled.has_label(" key"));
  EXPECT_FALSE(labeled.has_value("key "));
  EXPECT_TRUE(labeled.retrieve_value("  key \n") == nil);
  EXPECT_TRUE(labeled.has_label("group with blanks"));
  EXPECT_EQ(labeled.retrieve_group(" group with blanks"), nullptr);
}

TEST(labeled_text_buffer, other_white_space_belongs_to_a_label) {
  buffer labeled;
  labeled.add_value("\v\fa\v\f", 1);
  EXPECT_TRUE(labeled.has_label("\v\fa\v\f"));
}

TEST(labeled_text_buffer, add_value_returns_whether_a_value_was_replaced) {
  buffer labeled;
  EXPECT_EQ(labeled.add_value("a", 1), buffer::label_set);
  EXPECT_EQ(labeled.add_value("a", 2), buffer::label_replaced);
  EXPECT_EQ(labeled.retrieve_value("a").as_int32(), 2);
  EXPECT_EQ(labeled.add_value("b", variant(nil)), buffer::label_set);
  EXPECT_EQ(labeled.add_value("b", 3), buffer::label_set) << "the old value was nil";
  EXPECT_EQ(labeled.add_value("b", variant(nil)), buffer::label_replaced);
  labeled.create_group("g");
  EXPECT_EQ(labeled.add_value("g", 1), buffer::label_set);
}

TEST(labeled_text_buffer, new_group_is_empty_and_there) {
  buffer labeled;
  buffer* group = labeled.create_group("g");
  EXPECT_TRUE(labeled.has_label("g"));
  EXPECT_FALSE(labeled.has_group("g"));
  EXPECT_FALSE(labeled.has_value("g"));
  EXPECT_EQ(labeled.retrieve_group("g"), group);
  EXPECT_FALSE(labeled.is_empty());
}

TEST(labeled_text_buffer, group_created_again_is_emptied_and_pointers_to_it_see_it) {
  buffer labeled;
  labeled.add_value("g", 5);
  buffer* group = labeled.create_group("g");
  group->add_value("x", 1);
  EXPECT_TRUE(labeled.has_group("g"));
  EXPECT_EQ(labeled.create_group("g"), group);
  EXPECT_TRUE(group->is_empty());
  EXPECT_FALSE(labeled.has_group("g"));
  EXPECT_EQ(labeled.retrieve_value("g").as_int32(), 5) << "the value stays";
}

TEST(labeled_text_buffer, group_stays_when_a_value_is_added) {
  buffer labeled;
  labeled.create_group("g")->add_value("x", 1);
  labeled.add_value("g", 5);
  labeled.add_value("g", 6);
  EXPECT_TRUE(labeled.has_group("g"));
}

TEST(labeled_text_buffer, group_that_holds_an_empty_group_is_not_empty) {
  buffer labeled;
  labeled.create_group("g")->create_group("h");
  EXPECT_TRUE(labeled.has_group("g"));
  EXPECT_EQ(shown(labeled.as_str()), "2~g ~7~1~h~0~~~");
}

TEST(labeled_text_buffer, label_with_a_value_has_an_empty_group_to_retrieve) {
  buffer labeled;
  labeled.add_value("a", 1);
  ASSERT_NE(labeled.retrieve_group("a"), nullptr);
  EXPECT_TRUE(labeled.retrieve_group("a")->is_empty());
  labeled.retrieve_group("a")->add_value("x", 2);
  EXPECT_TRUE(labeled.has_group("a"));
}

TEST(labeled_text_buffer, absent_label_gives_nil_null_and_false) {
  buffer labeled;
  labeled.add_value("a", 1);
  EXPECT_TRUE(labeled.retrieve_value("absent") == nil);
  EXPECT_EQ(labeled.retrieve_group("absent"), nullptr);
  EXPECT_EQ(std::as_const(labeled).retrieve_group("absent"), nullptr);
  EXPECT_FALSE(labeled.has_label("absent"));
  EXPECT_FALSE(labeled.has_value("absent"));
  EXPECT_FALSE(labeled.has_group("absent"));
}

TEST(labeled_text_buffer, empty_buffer_is_empty_text) {
  buffer labeled;
  EXPECT_TRUE(labeled.is_empty());
  EXPECT_EQ(labeled.as_str(), "");
  EXPECT_FALSE(labeled.has_label(""));
  EXPECT_TRUE(labeled.retrieve_value("") == nil);
  labeled.assign("");
  EXPECT_TRUE(labeled.is_empty());
  EXPECT_EQ(labeled.as_str(), "");
}

TEST(labeled_text_buffer, pass_through_text_keeps_labels_and_groups_and_makes_byte_strings) {
  buffer labeled;
  labeled.add_value("number", 5);
  labeled.add_value("nothing", variant(nil));
  labeled.add_value("wide", orva_test::utf16(u"\u00E4"));
  labeled.create_group("g")->add_value("x", 1.5);
  buffer read(labeled.as_str());
  EXPECT_TRUE(read.retrieve_value("number").type() == typeid(std::string));
  EXPECT_EQ(read.retrieve_value("number").as_int32(), 5);
  EXPECT_FALSE(labeled.has_value("nothing"));
  EXPECT_TRUE(read.has_value("nothing")) << "nil has become the empty text";
  EXPECT_EQ(text_at(read, "nothing"), "");
  EXPECT_EQ(text_at(read, "wide"), "\xC3\xA4");
  EXPECT_EQ(read.retrieve_group("g")->retrieve_value("x").as_double(), 1.5);
  EXPECT_EQ(read.as_str(), labeled.as_str());
}

TEST(labeled_text_buffer, value_comes_before_the_group_of_its_label) {
  buffer labeled;
  labeled.create_group("g")->add_value("x", 2);
  labeled.add_value("g", 5);
  EXPECT_EQ(shown(labeled.as_str()), "1~g~1~5~2~g ~8~1~x~1~2~~");
  buffer read(labeled.as_str());
  EXPECT_EQ(text_at(read, "g"), "5");
  EXPECT_TRUE(read.has_group("g"));
}

TEST(labeled_text_buffer, entry_with_an_empty_group_writes_no_group_mark) {
  buffer labeled;
  labeled.add_value("a", 1);
  labeled.create_group("a");
  labeled.create_group("b");
  EXPECT_EQ(shown(labeled.as_str()), "1~a~1~1~1~b~0~~");
}

TEST(labeled_text_buffer, labels_sort_by_bytes) {
  buffer labeled;
  for (const char* label : {"a", "B", "\xC3\xA4", "1", "aa"}) labeled.add_value(label, "");
  EXPECT_EQ(shown(labeled.as_str()), "1~1~0~~1~B~0~~1~a~0~~2~aa~0~~2~\xC3\xA4~0~~");
}

TEST(labeled_text_buffer, values_and_labels_of_any_bytes_survive) {
  std::string every_byte;
  for (int byte = 0; byte < 256; ++byte) every_byte += static_cast<char>(byte);
  buffer labeled;
  labeled.add_value(every_byte, every_byte);
  buffer read(labeled.as_str());
  EXPECT_EQ(text_at(read, every_byte), every_byte);
}

TEST(labeled_text_buffer, text_that_as_str_gave_is_rewritten_by_the_next) {
  buffer labeled;
  labeled.add_value("long label to begin with", std::string(1000, 'x'));
  EXPECT_EQ(labeled.as_str().size(), 1034U);
  labeled.add_value("long label to begin with", "y");
  EXPECT_EQ(shown(labeled.as_str()), "24~long label to begin with~1~y~");
  EXPECT_EQ(shown(labeled.as_str()), "24~long label to begin with~1~y~");
}

TEST(labeled_text_buffer, flat_form_of_a_group_is_its_own) {
  buffer labeled;
  buffer* group = labeled.create_group("g");
  group->add_value("x", 1);
  const std::string& inner = group->as_str();
  EXPECT_EQ(shown(inner), "1~x~1~1~");
  labeled.as_str();
  EXPECT_EQ(shown(inner), "1~x~1~1~");
}

TEST(labeled_text_buffer, assign_takes_the_length_in_bytes) {
  buffer labeled;
  EXPECT_EQ(&labeled.assign("1\x01"
                            "a\x01"
                            "1\x01"
                            "5\x01"
                            "1\x01"
                            "b\x01",
                            8),
            &labeled);
  EXPECT_EQ(text_at(labeled, "a"), "5");
  EXPECT_FALSE(labeled.has_label("b"));
  try {
    labeled.assign("1", -1);
    FAIL() << "nothing was thrown";
  } catch (const std::length_error& failure) {
    EXPECT_STREQ(failure.what(), "string too long");
  }
  EXPECT_TRUE(labeled.has_label("a")) << "refused before anything went";
}

TEST(labeled_text_buffer, assign_replaces_the_content) {
  buffer labeled;
  labeled.create_group("old")->add_value("x", 1);
  labeled.assign(bytes("1~a~1~5~"));
  EXPECT_FALSE(labeled.has_label("old"));
  EXPECT_TRUE(labeled.has_label("a"));
}

TEST(labeled_text_buffer, assign_of_the_own_text_or_a_group_s_is_safe) {
  buffer labeled;
  labeled.create_group("g")->add_value("x", 5);
  labeled.assign(labeled.as_str());
  EXPECT_EQ(text_at(*labeled.retrieve_group("g"), "x"), "5");
  labeled.assign(labeled.retrieve_group("g")->as_str());
  EXPECT_EQ(text_at(labeled, "x"), "5");
}

TEST(labeled_text_buffer, assign_of_a_labeled_text_buffer_keeps_types_and_is_deep) {
  buffer source;
  source.add_value("a", 5);
  source.create_group("g")->add_value("x", true);
  buffer target;
  target.assign(source);
  EXPECT_TRUE(target.retrieve_value("a").type() == typeid(int));
  source.retrieve_group("g")->add_value("x", 7);
  EXPECT_TRUE(target.retrieve_group("g")->retrieve_value("x").type() == typeid(bool));
}

TEST(labeled_text_buffer, assign_of_itself_changes_nothing) {
  buffer labeled;
  buffer* group = labeled.create_group("g");
  group->add_value("x", 5);
  const buffer& same = labeled;
  labeled = same;
  labeled.assign(same);
  EXPECT_EQ(labeled.retrieve_group("g"), group) << "the pointer stays valid";
  EXPECT_EQ(group->retrieve_value("x").as_int32(), 5);
}

TEST(labeled_text_buffer, assign_of_a_group_to_the_buffer_that_holds_it) {
  buffer labeled;
  labeled.create_group("g")->create_group("h")->add_value("x", 5);
  labeled.assign(*labeled.retrieve_group("g"));
  EXPECT_EQ(labeled.retrieve_group("h")->retrieve_value("x").as_int32(), 5);
  labeled = std::move(*labeled.retrieve_group("h"));
  EXPECT_EQ(labeled.retrieve_value("x").as_int32(), 5);
}

TEST(labeled_text_buffer, assign_of_a_buffer_to_a_group_of_it) {
  buffer labeled;
  labeled.add_value("a", 1);
  labeled.create_group("g")->add_value("x", 5);
  buffer* group = labeled.retrieve_group("g");
  group->assign(labeled);
  EXPECT_EQ(group->retrieve_group("g")->retrieve_value("x").as_int32(), 5);
  EXPECT_TRUE(group->has_value("a"));
}

TEST(labeled_text_buffer, copy_is_deep_and_not_counted) {
  buffer labeled;
  labeled.create_group("g")->add_value("x", 5);
  buffer copy(labeled);
  labeled.create_group("g");
  EXPECT_TRUE(copy.has_group("g"));
  EXPECT_FALSE(copy.is_created_dynamic());
}

TEST(labeled_text_buffer, moved_from_buffer_is_empty) {
  buffer labeled;
  buffer* group = labeled.create_group("g");
  buffer moved(std::move(labeled));
  EXPECT_EQ(moved.retrieve_group("g"), group) << "groups stay where they are";
  EXPECT_TRUE(labeled.is_empty());
  labeled.add_value("a", 1);
  labeled = std::move(moved);
  EXPECT_FALSE(labeled.has_label("a"));
  EXPECT_EQ(labeled.retrieve_group("g"), group);
}

// Texts that are no flat form.

TEST(labeled_text_buffer, value_cut_off_at_the_end_is_an_empty_text) {
  buffer labeled(bytes("1~a~"));
  EXPECT_TRUE(labeled.has_value("a"));
  EXPECT_EQ(text_at(labeled, "a"), "");
  EXPECT_EQ(shown(labeled.as_str()), "1~a~0~~");
}

TEST(labeled_text_buffer, group_cut_off_at_the_end_is_an_empty_group) {
  buffer labeled(bytes("1~b~1~2~2~a ~"));
  EXPECT_TRUE(labeled.has_label("a"));
  EXPECT_FALSE(labeled.has_group("a"));
  EXPECT_EQ(text_at(labeled, "b"), "2");
}

TEST(labeled_text_buffer, group_created_by_a_text_discards_the_one_before) {
  buffer labeled(bytes("2~g ~8~1~x~1~2~~2~g ~8~1~y~1~2~~"));
  EXPECT_FALSE(labeled.retrieve_group("g")->has_label("x"));
  EXPECT_TRUE(labeled.retrieve_group("g")->has_label("y"));
}

TEST(labeled_text_buffer, empty_label_ends_the_reading) {
  buffer labeled(bytes("1~a~1~1~0~~1~x~1~b~1~2~"));
  EXPECT_TRUE(labeled.has_label("a"));
  EXPECT_FALSE(labeled.has_label("b"));
}

TEST(labeled_text_buffer, stored_empty_label_hides_the_labels_after_it) {
  buffer labeled;
  labeled.add_value(" \n", 1);
  labeled.add_value("a", 2);
  EXPECT_TRUE(labeled.has_label(""));
  EXPECT_EQ(labeled.retrieve_value("").as_int32(), 1);
  EXPECT_EQ(shown(labeled.as_str()), "0~~1~1~1~a~1~2~");
  EXPECT_TRUE(buffer(labeled.as_str()).is_empty());
}

TEST(labeled_text_buffer, group_under_a_blank_label_is_stored_under_the_empty_one) {
  buffer labeled(bytes("1~ ~8~1~x~1~2~~"));
  EXPECT_TRUE(labeled.has_label(""));
  EXPECT_TRUE(labeled.has_group(""));
}

TEST(labeled_text_buffer, label_in_a_text_is_trimmed_like_any) {
  buffer labeled(bytes("4~ \na\t~1~1~4~ g  ~8~1~x~1~2~~"));
  EXPECT_TRUE(labeled.has_value("a"));
  EXPECT_TRUE(labeled.has_group("g"));
}

TEST(labeled_text_buffer, text_that_overruns_throws_and_keeps_what_was_read) {
  for (const char* text : {"1~b~1~2~9~abc", "1~b~1~2~3~abc", "1~b~1~2~1~a~12", "1~b~1~2~12"}) {
    buffer labeled;
    expect_invalid_position([&] { labeled.assign(bytes(text)); });
    EXPECT_EQ(text_at(labeled, "b"), "2") << text;
    expect_invalid_position([&] { buffer{bytes(text)}; });
  }
}

TEST(labeled_text_buffer, overrun_within_a_group_ends_the_whole_reading) {
  buffer labeled;
  expect_invalid_position([&] { labeled.assign(bytes("2~g ~5~9~abc~1~b~1~2~")); });
  EXPECT_TRUE(labeled.has_label("g"));
  EXPECT_FALSE(labeled.has_label("b"));
}

TEST(labeled_text_buffer, length_below_zero_takes_the_rest_of_the_level_and_leads_back) {
  buffer of_a_value(bytes("1~a~-3~xyz~1~b~0~~"));
  EXPECT_EQ(shown(text_at(of_a_value, "a")), "xyz~1~b~0~~");
  EXPECT_EQ(text_at(of_a_value, "xyz"), "b") << "reading goes on at 3~xyz~";

  buffer of_a_label(bytes("1~b~1~2~-3~xyz~"));
  EXPECT_EQ(text_at(of_a_label, bytes("xyz~")), "xyz");

  buffer of_a_group(bytes("2~g ~-7;1~x~1~2~"));
  EXPECT_EQ(text_at(*of_a_group.retrieve_group("g"), "1"), "");
  EXPECT_FALSE(of_a_group.has_label("x")) << "reading goes on at an empty label";
}

TEST(labeled_text_buffer, level_ends_where_reading_returns_to_a_label) {
  buffer labeled(bytes("1~a~-7~1~b~1~2~"));
  EXPECT_EQ(shown(labeled.as_str()), "1~a~8~1~b~1~2~~");
}

// Overlay.

TEST(labeled_text_buffer, overlay_replaces_and_adds_and_removes_nothing) {
  buffer here;
  here.add_value("a", 1);
  here.add_value("b", 2);
  buffer other;
  other.add_value("b", 3);
  other.add_value("c", 4);
  here.overlay(other);
  EXPECT_EQ(shown(here.as_str()), "1~a~1~1~1~b~1~3~1~c~1~4~");
  EXPECT_EQ(shown(other.as_str()), "1~b~1~3~1~c~1~4~") << "the other stays as it is";
}

TEST(labeled_text_buffer, overlay_with_neither_value_nor_group_clears_the_value) {
  buffer here;
  here.add_value("a", 1);
  here.retrieve_group("a")->add_value("x", 2);
  buffer other;
  other.create_group("a");
  here.overlay(other);
  EXPECT_FALSE(here.has_value("a"));
  EXPECT_TRUE(here.has_group("a")) << "the group stays";
}

TEST(labeled_text_buffer, overlay_with_a_group_alone_keeps_the_value_and_merges_the_group) {
  buffer here;
  here.add_value("a", 1);
  here.create_group("a")->add_value("x", 2);
  buffer other;
  other.create_group("a")->add_value("y", 3);
  here.overlay(other);
  EXPECT_EQ(here.retrieve_value("a").as_int32(), 1);
  EXPECT_EQ(here.retrieve_group("a")->retrieve_value("x").as_int32(), 2);
  EXPECT_EQ(here.retrieve_group("a")->retrieve_value("y").as_int32(), 3);
}

TEST(labeled_text_buffer, overlay_with_value_and_group_brings_both) {
  buffer here;
  here.add_value("a", 1);
  buffer other;
  other.add_value("a", 2);
  other.retrieve_group("a")->add_value("y", 3);
  here.overlay(other);
  EXPECT_EQ(here.retrieve_value("a").as_int32(), 2);
  EXPECT_TRUE(here.has_group("a"));
}

TEST(labeled_text_buffer, overlay_copies_what_was_absent) {
  buffer here;
  buffer other;
  other.create_group("g")->add_value("x", 1);
  here.overlay(other);
  other.retrieve_group("g")->add_value("x", 2);
  EXPECT_EQ(here.retrieve_group("g")->retrieve_value("x").as_int32(), 1);
}

TEST(labeled_text_buffer, overlay_keeps_pointers_to_groups) {
  buffer here;
  buffer* group = here.create_group("g");
  group->add_value("x", 1);
  buffer other;
  other.create_group("g")->add_value("y", 2);
  here.overlay(other);
  EXPECT_EQ(here.retrieve_group("g"), group);
  EXPECT_TRUE(group->has_label("y"));
}

TEST(labeled_text_buffer, overlay_with_itself_or_an_empty_buffer_changes_nothing) {
  buffer here;
  here.add_value("a", 1);
  here.create_group("g")->add_value("x", 2);
  const std::string before = here.as_str();
  here.overlay(here);
  here.overlay(buffer());
  EXPECT_EQ(here.as_str(), before);
}

TEST(labeled_text_buffer, overlay_with_a_group_of_this_buffer_takes_its_content_before_the_call) {
  buffer here;
  here.create_group("g")->add_value("x", 1);
  here.retrieve_group("g")->create_group("g")->add_value("y", 2);
  here.overlay(*here.retrieve_group("g"));
  EXPECT_EQ(here.retrieve_value("x").as_int32(), 1);
  EXPECT_EQ(here.retrieve_group("g")->retrieve_value("y").as_int32(), 2);
  EXPECT_EQ(here.retrieve_group("g")->retrieve_group("g")->retrieve_value("y").as_int32(), 2);
  here.retrieve_group("g")->overlay(here);
  EXPECT_EQ(here.retrieve_group("g")->retrieve_group("g")->retrieve_value("x").as_int32(), 1);
}

TEST(labeled_text_buffer, entries_are_the_labels_in_the_order_of_their_bytes) {
  buffer labeled;
  labeled.add_value("b", 2);
  labeled.add_value("a", 1);
  labeled.create_group("b")->add_value("x", 3);
  labeled.create_group("c");
  const buffer& settings = labeled;
  std::string seen;
  for (const auto& [label, stored] : settings.entries()) {
    seen += label + "=" + stored.value.as_string() + (stored.group.is_empty() ? " " : "{} ");
  }
  EXPECT_EQ(seen, "a=1 b=2{} c= ");
  EXPECT_EQ(settings.entries().at("b").group.entries().at("x").value.as_int32(), 3);
}

TEST(labeled_text_buffer, entries_distinguish_an_absent_label_from_one_without_a_value) {
  buffer labeled;
  labeled.create_group("g");
  EXPECT_EQ(labeled.entries().count("absent"), 0U);
  ASSERT_EQ(labeled.entries().count("g"), 1U);
  EXPECT_TRUE(labeled.entries().at("g").value == nil);
}

TEST(labeled_text_buffer, empty_buffer_has_no_entries) {
  EXPECT_TRUE(buffer().entries().empty());
  EXPECT_TRUE(buffer("").entries().empty());
  buffer moved;
  moved.add_value("a", 1);
  const buffer target(std::move(moved));
  EXPECT_EQ(target.entries().size(), 1U);
  EXPECT_TRUE(moved.entries().empty());
}

TEST(labeled_text_buffer, entries_show_later_changes) {
  buffer labeled;
  labeled.add_value("a", 1);
  const auto& entries = labeled.entries();
  labeled.add_value("a", 2);
  labeled.add_value("b", 3);
  EXPECT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries.at("a").value.as_int32(), 2);
}

TEST(labeled_text_buffer, value_is_retrieved_from_a_const_buffer) {
  buffer labeled;
  labeled.add_value("a", 5);
  labeled.create_group("g")->add_value("x", 6);
  const buffer& settings = labeled;
  EXPECT_EQ(settings.retrieve_value("a").as_int32(), 5);
  EXPECT_TRUE(settings.retrieve_value("a").type() == typeid(int)) << "the value is as it was stored";
  EXPECT_TRUE(settings.retrieve_value("absent") == nil);
  EXPECT_EQ(settings.retrieve_group("g")->retrieve_value("x").as_int32(), 6);
}

}  // namespace
