#include "orva/i18n/message.hpp"

#include <gtest/gtest.h>

#include <initializer_list>
#include <map>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tests/support/attribute_string.hpp"
#include "tests/support/debug_output.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using generic::argument;
using generic::varg_list;
using i18n::message_item;
using i18n::message_t;
using orva_test::attribute_string;
using orva_test::debug_output_of;
using strings::ustring8;
using types::nil;
using types::variant;

message_item placeholder(const char* data, message_item::type_t type) {
  return {attribute_string(data), type};
}

struct rendering {
  message_item::type_t type;
  std::string data;
  variant value;
  std::string text;
};

void check(std::initializer_list<rendering> cases) {
  for (const rendering& each : cases) {
    const message_item item(attribute_string(each.data), each.type);
    const std::string output = debug_output_of([&] {
      EXPECT_EQ(item.as_string(argument("n", each.value)), each.text)
          << each.data << " of type " << each.type;
    });
    EXPECT_EQ(output, each.text == "?invalid?" ? "Failure -- " + item.data() + "\n" : "") << each.data;
  }
}

TEST(message_item, types_have_their_numbers) {
  EXPECT_EQ(message_item::text, 0);
  EXPECT_EQ(message_item::string, 1);
  EXPECT_EQ(message_item::number, 2);
  EXPECT_EQ(message_item::integer, 3);
  EXPECT_EQ(message_item::real, 4);
  EXPECT_EQ(message_item::time, 5);
  EXPECT_EQ(message_item::date, 6);
  EXPECT_EQ(message_item::memory, 7);
  EXPECT_EQ(message_item::memory_unit, 8);
  EXPECT_EQ(message_item::metric, 9);
  EXPECT_EQ(message_item::metric_unit, 10);
  EXPECT_EQ(message_item::duration, 11);
}

TEST(message_item, made_from_data_alone_is_text) {
  const message_item item("plain");
  EXPECT_EQ(item.type(), message_item::text);
  EXPECT_EQ(item.data(), "plain");
}

TEST(message_item, name_ends_at_the_first_separator) {
  EXPECT_EQ(placeholder("n", message_item::string).name(), "n");
  EXPECT_EQ(placeholder("n|precision|1", message_item::metric).name(), "n");
  EXPECT_EQ(placeholder("n|", message_item::metric).name(), "n");
  EXPECT_EQ(placeholder("|precision|1", message_item::metric).name(), "");
  EXPECT_EQ(placeholder("", message_item::metric).name(), "");
  EXPECT_EQ(placeholder("n|precision|1", message_item::metric).data(), "n\001precision\0011");
}

TEST(message_item, assignment_copies_data_and_type) {
  message_item item("plain");
  const message_item other = placeholder("n", message_item::date);
  EXPECT_EQ(&item.assign(other), &item);
  EXPECT_EQ(item.type(), message_item::date);
  EXPECT_EQ(item.data(), "n");
  item = message_item("again");
  EXPECT_EQ(item.type(), message_item::text);
  item.assign(*&item);
  EXPECT_EQ(item.data(), "again");
}

TEST(message_item, each_type_is_rendered_by_its_formatter) {
  check({{message_item::string, "n", "word", "word"},
         {message_item::string, "n", 42, "42"},
         {message_item::string, "n", 1.5, "1.5"},
         {message_item::string, "n", true, "1"},
         {message_item::integer, "n", 42, "42"},
         {message_item::integer, "n", "0x2a", "42"},
         {message_item::integer, "n", -1.9, "-1"},
         {message_item::integer, "n|base|hex", 255, "0x00ff"},
         {message_item::real, "n", 1.5, "1.50"},
         {message_item::real, "n", "1.5", "1.50"},
         {message_item::real, "n|precision|0", 3, "3"},
         {message_item::memory, "n|precision|1", 1500, "1.5"},
         {message_item::memory_unit, "n|precision|1", 1500, "KB"},
         {message_item::memory, "n", 1500, "1"},
         {message_item::metric, "n", 1500, "1.500"},
         {message_item::metric_unit, "n", 1500, "k"},
         {message_item::metric_unit, "n|short_form|false", 1500, "kilo"},
         {message_item::metric_unit, "n", 15, ""},
         {message_item::duration, "n", 3661.5, "1 hr 1 min 1.50 sec"},
         {message_item::duration, "n|short_form|true", 3661.5, "1h 1m 1.50s"}});
}

TEST(message_item, duration_with_a_refused_precision_still_shows_its_other_parts) {
  check({{message_item::duration, "n|precision|-1", 61, "1 min -0 sec"},
         {message_item::duration, "n|precision|-1|short_form|true", 1, "-0s"}});
}

TEST(message_item, reserved_types_are_invalid_even_with_their_argument) {
  check({{message_item::number, "n", 1, "?invalid?"},
         {message_item::time, "n", 1, "?invalid?"},
         {message_item::date, "n", 1, "?invalid?"},
         {message_item::date, "n|format|short", "2026-01-01", "?invalid?"}});
}

TEST(message_item, type_beyond_the_list_is_invalid) {
  check({{static_cast<message_item::type_t>(12), "n", 1, "?invalid?"}});
}

TEST(message_item, missing_argument_is_invalid_for_every_type) {
  for (int type = 1; type <= 11; ++type) {
    const message_item item("count", static_cast<message_item::type_t>(type));
    EXPECT_EQ(debug_output_of([&] { EXPECT_EQ(item.as_string(argument("n", 1)), "?invalid?"); }),
              "Failure -- count\n")
        << type;
  }
}

TEST(message_item, refusal_of_a_formatter_is_invalid) {
  check({{message_item::integer, "n|base", 1, "?invalid?"},
         {message_item::integer, "n|fieldsize|1", 42, "?invalid?"},
         {message_item::real, "n|x|1", 1, "?invalid?"},
         {message_item::memory, "n|target_unit|any", 1, "?invalid?"},
         {message_item::memory_unit, "n|target_unit|any", 1, "?invalid?"},
         {message_item::metric, "n|base_unit|x", 1, "?invalid?"},
         {message_item::metric_unit, "n|base_unit|x", 1, "?invalid?"},
         {message_item::duration, "n|precision", 1, "?invalid?"}});
}

TEST(message_item, genuine_negative_zero_is_invalid_too) {
  check({{message_item::string, "n", "-0", "?invalid?"},
         {message_item::string, "n", -0.0, "?invalid?"},
         {message_item::real, "n|precision|0", -0.4, "?invalid?"},
         {message_item::memory_unit, "n|precision|1;;", -0.25, "?invalid?"},
         {message_item::metric_unit, "n|precision|1;;", -0.25, "?invalid?"},
         {message_item::string, "n", "-0 ", "-0 "}});
}

TEST(message_item, argument_that_says_invalid_is_reported) {
  check({{message_item::string, "n", "?invalid?", "?invalid?"}});
}

TEST(message_item, text_is_never_tested_for_failure) {
  for (const char* text : {"-0", "?invalid?", "", "a\001b"}) {
    const message_item item(text);
    EXPECT_EQ(debug_output_of([&] { EXPECT_EQ(item.as_string(varg_list()), text); }), "");
  }
}

TEST(message_item, empty_name_finds_the_first_positional_argument) {
  EXPECT_EQ(placeholder("", message_item::string).as_string(varg_list(argument("a", 1), argument(2))), "2");
  EXPECT_EQ(placeholder("|base|hex", message_item::integer).as_string(argument(15)), "0x000f");
}

TEST(message_item, argument_without_a_value_reads_as_nothing) {
  const varg_list args(argument("n", nil));
  EXPECT_EQ(placeholder("n", message_item::string).as_string(args), "");
  EXPECT_EQ(placeholder("n", message_item::integer).as_string(args), "0");
  EXPECT_EQ(placeholder("n", message_item::real).as_string(args), "0.00");
}

// --- messages ---

message_t disk_free() {
  return {"disk_free",
          {message_item("Free: "), placeholder("n|precision|1", message_item::memory), message_item(" "),
           placeholder("n|precision|1", message_item::memory_unit)}};
}

TEST(message, documentation_example) {
  EXPECT_EQ(disk_free().as_utf8(argument("n", 1500)), "Free: 1.5 KB");
  const std::string output =
      debug_output_of([] { EXPECT_EQ(disk_free().as_utf8(), "Free: ?invalid? ?invalid?"); });
  EXPECT_EQ(output, "Failure -- n\001precision\0011\nFailure -- n\001precision\0011\n");
}

TEST(message, text_alone_needs_no_arguments) {
  const message_t message("m", {message_item("Hello, "), message_item("world")});
  EXPECT_EQ(message.as_utf8(), "Hello, world");
  EXPECT_EQ(message.argument_count(), 0u);
  EXPECT_TRUE(message.has_valid_args(varg_list()));
  EXPECT_TRUE(message.has_valid_args(varg_list(argument("n", 1), argument(2), argument(3))));
}

TEST(message, missing_argument_leaves_the_text_around_it) {
  const message_t message(
      "m", {message_item("a "), message_item("count", message_item::integer), message_item(" b")});
  debug_output_of([&] { EXPECT_EQ(message.as_utf8(argument("n", 1)), "a ?invalid? b"); });
}

TEST(message, short_list_of_arguments_renders_what_it_has) {
  const message_t message("m",
                          {placeholder("a", message_item::integer), placeholder("b", message_item::integer)});
  debug_output_of([&] { EXPECT_EQ(message.as_utf8(argument("a", 1)), "1?invalid?"); });
}

TEST(message, every_width_gives_the_same_text) {
  const message_t message("m", {message_item("\xC3\xA4 "), message_item("n", message_item::string)});
  const varg_list args(argument("n", "\xE2\x82\xAC"));
  EXPECT_EQ(message.as_utf8(args), "\xC3\xA4 \xE2\x82\xAC");
  EXPECT_EQ(message.as_string(args), "\xC3\xA4 \xE2\x82\xAC");
  const strings::ustring16 wide{0xE4, ' ', 0x20AC};
  EXPECT_EQ(message.as_utf16(args), wide);
  EXPECT_EQ(message.as_wstring(args), wide);
  EXPECT_EQ(message.as_ustring(args), wide);
  EXPECT_EQ(message.as_utf32(args), (strings::ustring32{0xE4, ' ', 0x20AC}));
}

TEST(message, text_that_is_not_utf8_fails_as_the_transforms_do) {
  const message_t message("m", {message_item("abc\x80")});
  EXPECT_EQ(message.as_utf8(), "abc\x80");
  EXPECT_EQ(message.as_utf16(), (strings::ustring16{'-', '1'}));
  EXPECT_EQ(message.as_utf32(), (strings::ustring32{'a', 'b', 'c', '?'}));
}

TEST(message, nil_is_empty_text_and_has_no_valid_arguments) {
  for (const message_t& message : {message_t(), message_t(nil)}) {
    EXPECT_TRUE(message == nil);
    EXPECT_TRUE(message.equal(nil));
    EXPECT_EQ(message.as_utf8(), "");
    EXPECT_TRUE(message.as_utf16().empty());
    EXPECT_EQ(message.count(), 0u);
    EXPECT_FALSE(message.has_valid_args(varg_list()));
    EXPECT_FALSE(message.has_valid_args(argument("n", 1)));
    EXPECT_TRUE(message.arguments().empty());
  }
}

TEST(message, name_items_or_note_alone_make_it_not_nil) {
  EXPECT_FALSE(message_t("m", {}) == nil);
  EXPECT_TRUE(message_t("m", {}) != nil);
  EXPECT_FALSE(message_t({message_item("")}) == nil);
  EXPECT_FALSE(message_t("", {}, "note") == nil);
  EXPECT_TRUE(message_t("", {}, "", "de_DE") == nil);
}

TEST(message, constructors_set_their_fields) {
  const std::vector<message_item> items{message_item("a")};
  const message_t plain(items);
  EXPECT_EQ(plain.name(), "");
  EXPECT_EQ(plain.size(), 1u);
  const message_t full("name", items, "meta", "de_DE");
  EXPECT_EQ(full.name(), "name");
  EXPECT_EQ(full.meta(), "meta");
  EXPECT_EQ(full._orginal_locale(), "de_DE");
  EXPECT_EQ(full.count(), 1u);
  EXPECT_EQ(message_t("name", items).meta(), "");
  EXPECT_EQ(message_t("name", items, "meta")._orginal_locale(), "");
}

TEST(message, setters_return_the_new_value) {
  message_t message;
  EXPECT_EQ(&message.name("n"), &message.name());
  EXPECT_EQ(message.name(), "n");
  EXPECT_EQ(message.meta("m"), "m");
  EXPECT_EQ(message.meta(), "m");
  EXPECT_EQ(message._orginal_locale("de"), "de");
  EXPECT_EQ(message._orginal_locale(), "de");
  EXPECT_EQ(message.name(message.name()), "n");
}

TEST(message, copies_are_independent) {
  message_t first = disk_free();
  message_t second;
  EXPECT_EQ(&second.assign(first), &second);
  second.begin()->assign(message_item("Used: "));
  second.name("disk_used");
  EXPECT_EQ(first.name(), "disk_free");
  EXPECT_EQ(first.as_utf8(argument("n", 1500)), "Free: 1.5 KB");
  EXPECT_EQ(second.as_utf8(argument("n", 1500)), "Used: 1.5 KB");
  first = second;
  EXPECT_EQ(first.name(), "disk_used");
}

TEST(message, assigning_nil_empties_it) {
  message_t message("m", {message_item("a")}, "meta", "de");
  message = nil;
  EXPECT_TRUE(message == nil);
  EXPECT_EQ(message._orginal_locale(), "");
  message = disk_free();
  EXPECT_EQ(&message.assign(nil), &message);
  EXPECT_TRUE(message == nil);
}

TEST(message, placeholder_used_twice_counts_twice) {
  const message_t message("m", {placeholder("n", message_item::integer), message_item(", "),
                                placeholder("n|base|hex", message_item::integer)});
  EXPECT_EQ(message.count(), 3u);
  EXPECT_EQ(message.argument_count(), 2u);
}

TEST(message, has_valid_args_wants_as_many_entries_as_placeholders) {
  const message_t message = disk_free();
  EXPECT_FALSE(message.has_valid_args(argument("n", 1)));
  EXPECT_TRUE(message.has_valid_args(varg_list(argument("n", 1), argument("spare", 2))));
  EXPECT_FALSE(message.has_valid_args(varg_list(argument("m", 1), argument("spare", 2))));
}

TEST(message, arguments_are_named_by_the_whole_placeholder) {
  const message_t message("m", {message_item("a"), placeholder("n|precision|1", message_item::metric),
                                placeholder("k", message_item::integer)});
  const varg_list arguments = message.arguments();
  ASSERT_EQ(arguments.size(), 2u);
  EXPECT_EQ(arguments.at(0u).name(), "n\001precision\0011");
  EXPECT_TRUE(arguments.at(0u).value() == nil);
  EXPECT_EQ(arguments.at(1u).name(), "k");
}

TEST(message, arguments_hold_each_placeholder_once) {
  const message_t message("m",
                          {placeholder("n", message_item::integer), placeholder("n", message_item::string),
                           placeholder("", message_item::string), placeholder("n|", message_item::string)});
  const varg_list arguments = message.arguments();
  ASSERT_EQ(arguments.size(), 3u);
  EXPECT_EQ(arguments.at(0u).name(), "n");
  EXPECT_EQ(arguments.at(1u).name(), "");
  EXPECT_EQ(arguments.at(2u).name(), "n\x01");
}

TEST(message, iterators_walk_over_the_items) {
  message_t message = disk_free();
  std::string types;
  for (const message_item& item : std::as_const(message)) types += std::to_string(item.type()) + " ";
  EXPECT_EQ(types, "0 7 0 8 ");
  for (message_item& item : message) item = message_item("x");
  EXPECT_EQ(message.as_utf8(), "xxxx");
}

TEST(message, resolve_changes_nothing) {
  message_t message = disk_free();
  message.resolve({{"disk_free", "other"}, {"n", "m"}});
  EXPECT_EQ(message.name(), "disk_free");
  EXPECT_EQ(message.as_utf8(argument("n", 1500)), "Free: 1.5 KB");
}

TEST(message, many_threads_may_render_one_message) {
  const message_t message = disk_free();
  const varg_list args(argument("n", 1500));
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < 1000; ++round) ASSERT_EQ(message.as_utf8(args), "Free: 1.5 KB");
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST(message, arguments_of_a_very_long_message_take_linear_time) {
  std::vector<message_item> items;
  for (int i = 0; i < 100000; ++i) items.emplace_back("argument" + std::to_string(i), message_item::string);
  EXPECT_EQ(message_t(items).arguments().size(), 100000u);
}

}  // namespace
