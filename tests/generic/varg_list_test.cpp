#include "orva/generic/varg_list.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include "tests/support/random_engine.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using generic::argument;
using generic::varg_list;
using strings::ustring8;
using types::nil;
using types::variant;

static_assert(sizeof(varg_list) == sizeof(std::vector<argument>) && !std::is_polymorphic_v<varg_list>);
static_assert(std::is_same_v<decltype(std::declval<const varg_list&>().size()), types::uint32>);

// A name is text, not a null pointer, nor a 0, which would be taken for one. Where a position is possible, 0
// is one.
template <typename Name>
constexpr bool adds_name = requires(varg_list list, Name name) {
  list.push_back(name, 1);
};
template <typename Name>
constexpr bool finds_name = requires(varg_list list, const varg_list constant, Name name) {
  list.find(name);
  constant.find(name);
  list.has_argument(name);
};
template <typename Key>
constexpr bool looks_up = requires(varg_list list, const varg_list constant, Key key) {
  list.at(key);
  list[key];
  constant.at(key);
  constant[key];
  list.erase(key);
};
static_assert(adds_name<const char*> && !adds_name<std::nullptr_t> && !adds_name<int>);
static_assert(finds_name<const char*> && !finds_name<std::nullptr_t> && !finds_name<int>);
static_assert(looks_up<const char*> && !looks_up<std::nullptr_t> && looks_up<int>);

/// A list as text: "a=1 =2 b" for a named argument, a positional one, and one with a nil value.
std::string shown(const varg_list& list) {
  std::string text;
  for (const argument& each : list) {
    if (!text.empty()) text += ' ';
    text += each.name();
    if (each.value() != nil) text += '=' + each.value().as_utf8();
  }
  return text;
}

template <typename Lookup>
void expect_no_such_position(Lookup lookup) {
  try {
    lookup();
    FAIL() << "nothing was thrown";
  } catch (const std::out_of_range& failure) {
    EXPECT_STREQ(failure.what(), "invalid vector<T> subscript");
  }
}

const varg_list& three() {
  static const varg_list list(argument("a", 1), argument(2), argument("b", 3));
  return list;
}

/// A call with braces.
varg_list taken(const varg_list& list) { return list; }

// Construction.

TEST(varg_list, documentation_example) {
  varg_list args{{"name", "disk"}, {"free", 1500000}};
  EXPECT_FALSE(args.push_back("free", 0));
  EXPECT_EQ(args["free"].value().as_int32(), 1500000);
  EXPECT_TRUE(args["used"] == nil);
  EXPECT_EQ(&args["used"], &varg_list::nil_argument);
  EXPECT_EQ(args[1].name(), "free");
  EXPECT_THROW(static_cast<void>(args[2]), std::out_of_range);
}

TEST(varg_list, default_is_empty_and_equals_nil) {
  const varg_list list;
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(list.size(), 0U);
  EXPECT_EQ(list.count(), 0U);
  EXPECT_TRUE(list == nil);
  EXPECT_TRUE(nil == list);
  EXPECT_FALSE(list != nil);
  EXPECT_TRUE(list.equal(nil));
}

TEST(varg_list, made_of_arguments_in_their_order) {
  EXPECT_EQ(shown(three()), "a=1 =2 b=3");
  EXPECT_TRUE(three() != nil);
}

TEST(varg_list, made_of_arguments_in_braces) {
  const varg_list list({"a", 1}, {"b", "text"}, {"c", nil});
  EXPECT_EQ(shown(list), "a=1 b=text c");
}

TEST(varg_list, braces_within_braces_are_named_arguments) {
  const std::string_view user = "someone";
  const varg_list one{{"n", 5}};
  EXPECT_EQ(shown(one), "n=5");
  const varg_list list{{"n", 5}, {"name", user}};
  EXPECT_EQ(shown(list), "n=5 name=someone");
  const varg_list copied = {{"n", 5}, {"name", user}};
  EXPECT_EQ(shown(copied), "n=5 name=someone");
  EXPECT_EQ(shown(varg_list{{"a", "b"}, {"c", "d"}}), "a=b c=d")
      << "text is not taken for a pair of pointers";
  EXPECT_EQ(shown(varg_list{{"a", "b"}}), "a=b");
  EXPECT_EQ(shown(varg_list{{user, user}}), "someone=someone");
  EXPECT_EQ(shown(varg_list{{"a", nil}, {"b", std::optional<int>()}, {"c", 1}}), "a b c=1");
  EXPECT_EQ(shown(varg_list{{std::string("a"), 1}, {ustring8("b"), std::string("x")}}), "a=1 b=x");
  EXPECT_EQ(shown(varg_list{{"a", 1}, {"a", 2}}), "a=1");
  EXPECT_EQ(shown(taken({{"n", 5}, {"name", user}})), "n=5 name=someone");
  EXPECT_EQ(shown(taken({{"n", 5}})), "n=5");
}

TEST(varg_list, braces_around_arguments_mean_what_parentheses_mean) {
  const argument a("a", 1);
  const argument b("b", 2);
  const variant value(3);
  EXPECT_EQ(shown(varg_list{a}), shown(varg_list(a)));
  EXPECT_EQ(shown(varg_list{a, b}), shown(varg_list(a, b)));
  EXPECT_EQ(shown(varg_list({a, b})), "a=1 b=2");
  EXPECT_EQ(shown(varg_list{value}), shown(varg_list(value)));
  EXPECT_EQ(shown(varg_list{value, value}), "=3 =3");
  EXPECT_EQ(shown(varg_list{a, argument(), b}), "a=1");
  EXPECT_EQ(shown(varg_list{a, nil, b}), "a=1");
  EXPECT_EQ(shown(varg_list{{"a", 1}, {"", nil}, {"b", 2}}), "a=1") << "a nil argument in braces ends, too";
  EXPECT_TRUE(varg_list{} == nil);
  EXPECT_TRUE(varg_list{nil} == nil);
  const varg_list copy{three()};
  EXPECT_EQ(shown(copy), shown(three()));
  EXPECT_EQ(shown(varg_list{varg_list(a, b)}), "a=1 b=2");
  EXPECT_EQ(shown(varg_list{{"x"}}), "=x");
}

TEST(varg_list, empty_optional_without_a_name_ends_the_construction) {
  EXPECT_EQ(shown(varg_list(argument(std::optional<int>(1)), argument(std::optional<int>()), argument(2))),
            "=1");
  EXPECT_EQ(shown(varg_list(argument("n", std::optional<int>()), argument("m", 2))), "n m=2");
}

TEST(varg_list, construction_ends_at_the_first_nil_argument) {
  EXPECT_EQ(shown(varg_list(argument("x"), argument(), argument("y"))), "=x");
  EXPECT_EQ(shown(varg_list(argument("x"), nil, argument("y", 1))), "=x");
  EXPECT_TRUE(varg_list(argument(), argument("x")) == nil);
  EXPECT_TRUE(varg_list(nil) == nil);
}

TEST(varg_list, construction_continues_after_a_named_argument_with_a_nil_value) {
  EXPECT_EQ(shown(varg_list(argument("x", nil), argument("y", 1))), "x y=1");
}

TEST(varg_list, construction_skips_a_repeated_name_and_continues) {
  EXPECT_EQ(shown(varg_list(argument("a", 1), argument("a", 2), argument("b", 3))), "a=1 b=3");
}

TEST(varg_list, construction_takes_twenty_six_arguments) {
  const varg_list list({"a", 1}, {"b", 2}, {"c", 3}, {"d", 4}, {"e", 5}, {"f", 6}, {"g", 7}, {"h", 8},
                       {"i", 9}, {"j", 10}, {"k", 11}, {"l", 12}, {"m", 13}, {"n", 14}, {"o", 15}, {"p", 16},
                       {"q", 17}, {"r", 18}, {"s", 19}, {"t", 20}, {"u", 21}, {"v", 22}, {"w", 23}, {"x", 24},
                       {"y", 25}, {"z", 26});
  ASSERT_EQ(list.size(), 26U);
  for (unsigned int i = 0; i < 26; ++i) {
    EXPECT_EQ(list[i].name(), std::string(1, static_cast<char>('a' + i)));
    EXPECT_EQ(list[i].value().as_uint32(), i + 1);
  }
}

TEST(varg_list, copy_is_independent) {
  varg_list original = three();
  const varg_list copy = original;
  varg_list assigned(argument("gone", 0));
  EXPECT_EQ(&assigned.assign(original), &assigned);
  original.at(0).assign("other", 9);
  original.erase(1);
  EXPECT_EQ(shown(copy), "a=1 =2 b=3");
  EXPECT_EQ(shown(assigned), "a=1 =2 b=3");
  EXPECT_EQ(shown(original), "other=9 b=3");
}

TEST(varg_list, assigned_from_itself_stays) {
  varg_list list = three();
  const varg_list& same = list;
  list = same;
  list.assign(same);
  EXPECT_EQ(shown(list), "a=1 =2 b=3");
}

TEST(varg_list, moved_from_is_empty) {
  varg_list source = three();
  const varg_list target = std::move(source);
  EXPECT_EQ(target.size(), 3U);
  EXPECT_TRUE(source == nil);
}

// Adding.

TEST(varg_list, second_argument_of_a_name_is_refused) {
  varg_list list;
  EXPECT_TRUE(list.push_back("a", 1));
  EXPECT_FALSE(list.push_back("a", 2));
  EXPECT_FALSE(list.push_back(argument("a", 3)));
  EXPECT_EQ(list.at("a").value().as_int32(), 1);
  EXPECT_EQ(list.size(), 1U);
}

TEST(varg_list, refused_argument_stays_whole) {
  varg_list list(argument("a", 1));
  argument refused("a", "text");
  EXPECT_FALSE(list.push_back(std::move(refused)));
  EXPECT_EQ(refused.name(), "a");
  EXPECT_EQ(refused.value().as_utf8(), "text");
  variant value("text");
  EXPECT_FALSE(list.push_back("a", std::move(value)));
  EXPECT_EQ(value.as_utf8(), "text");
}

TEST(varg_list, accepted_argument_is_moved_from) {
  varg_list list;
  argument added("a", "text");
  EXPECT_TRUE(list.push_back(std::move(added)));
  EXPECT_TRUE(added.value() == nil);
  variant value("text");
  EXPECT_TRUE(list.push_back("b", std::move(value)));
  EXPECT_TRUE(value == nil);
  EXPECT_EQ(shown(list), "a=text b=text");
}

TEST(varg_list, positional_arguments_are_never_refused) {
  varg_list list;
  EXPECT_TRUE(list.push_back(argument(1)));
  EXPECT_TRUE(list.push_back(argument(1)));
  EXPECT_TRUE(list.push_back("", 5));
  EXPECT_TRUE(list.push_back("", 5));
  EXPECT_EQ(shown(list), "=1 =1 =5 =5");
}

TEST(varg_list, nil_argument_is_added_like_any_other) {
  varg_list list;
  EXPECT_TRUE(list.push_back(argument()));
  EXPECT_FALSE(list.empty());
  EXPECT_TRUE(list != nil);
  EXPECT_EQ(list.size(), 1U);
}

TEST(varg_list, declared_name_without_a_value_is_found) {
  varg_list list;
  EXPECT_TRUE(list.push_back(argument("a", nil)));
  EXPECT_TRUE(list.has_argument("a"));
  EXPECT_FALSE(list.at("a") == nil);
}

TEST(varg_list, own_argument_can_be_added_again) {
  varg_list list(argument("a name that is too long for inline storage"));
  for (int i = 0; i < 100; ++i) ASSERT_TRUE(list.push_back(list[0]));
  for (int i = 0; i < 100; ++i) ASSERT_TRUE(list.push_back("", list[0].value()));
  EXPECT_EQ(list[200].value().as_utf8(), "a name that is too long for inline storage");
}

// Names.

TEST(varg_list, names_are_compared_byte_by_byte) {
  const varg_list list({"name", 1}, {"n\xC3\xA9", 2}, {std::string("n\0x", 3), 3});
  EXPECT_TRUE(list.has_argument("name"));
  EXPECT_FALSE(list.has_argument("Name"));
  EXPECT_FALSE(list.has_argument("nam"));
  EXPECT_FALSE(list.has_argument("names"));
  EXPECT_TRUE(list.has_argument("n\xC3\xA9"));
  EXPECT_FALSE(list.has_argument("ne\xCC\x81"));
  EXPECT_TRUE(list.has_argument(std::string("n\0x", 3)));
  EXPECT_FALSE(list.has_argument("n"));
}

TEST(varg_list, text_of_any_byte_string_class_names_an_argument) {
  const varg_list list(argument("name", 2));
  const char pointer[] = "name";
  EXPECT_EQ(list["name"].value().as_int32(), 2);
  EXPECT_EQ(list[pointer].value().as_int32(), 2);
  EXPECT_EQ(list[std::string("name")].value().as_int32(), 2);
  EXPECT_EQ(list[ustring8("name")].value().as_int32(), 2);
  EXPECT_EQ(list[std::string_view("names", 4)].value().as_int32(), 2);
}

TEST(varg_list, missing_name_gives_the_nil_argument) {
  EXPECT_EQ(&three().at("missing"), &varg_list::nil_argument);
  EXPECT_EQ(&three()["missing"], &varg_list::nil_argument);
  EXPECT_FALSE(three().at("missing").has_name());
  EXPECT_TRUE(three().at("missing") == nil);
  EXPECT_FALSE(three().has_argument("missing"));
  EXPECT_EQ(three().find("missing"), three().end());
}

TEST(varg_list, empty_name_finds_the_first_positional_argument) {
  varg_list list = three();
  EXPECT_TRUE(list.has_argument(""));
  EXPECT_EQ(list.at("").value().as_int32(), 2);
  EXPECT_EQ(list.find("") - list.begin(), 1);
  list.erase("");
  EXPECT_EQ(shown(list), "a=1 b=3");
  EXPECT_FALSE(list.has_argument(""));
}

TEST(varg_list, found_argument_can_be_changed) {
  varg_list list = three();
  list.find("b")->value("new");
  EXPECT_EQ(list.at("b").value().as_utf8(), "new");
}

TEST(varg_list, first_of_two_arguments_renamed_alike_wins) {
  varg_list list = three();
  list[2].name("a");
  EXPECT_EQ(shown(list), "a=1 =2 a=3");
  EXPECT_EQ(list["a"].value().as_int32(), 1);
  list.erase("a");
  EXPECT_EQ(list["a"].value().as_int32(), 3);
}

// Positions.

TEST(varg_list, position_at_or_past_the_end_throws) {
  varg_list list = three();
  expect_no_such_position([&] { list.at(list.size()); });
  expect_no_such_position([&] { list[list.size()]; });
  expect_no_such_position([&] { three().at(3); });
  expect_no_such_position([&] { three()[4]; });
  expect_no_such_position([&] { three().at(std::numeric_limits<std::size_t>::max()); });
  expect_no_such_position([] { varg_list().at(0); });
}

TEST(varg_list, position_beyond_thirty_two_bits_does_not_wrap) {
  const auto wrapping = static_cast<unsigned long long>(std::numeric_limits<types::uint32>::max()) + 1;
  if constexpr (sizeof(std::size_t) > sizeof(types::uint32)) {
    expect_no_such_position([=] { three().at(static_cast<std::size_t>(wrapping)); });
  }
}

template <typename Integer>
void expect_selects_positions(varg_list list) {
  const varg_list& constant = list;
  EXPECT_EQ(&list[Integer{0}], &*list.begin());
  EXPECT_EQ(&list.at(Integer{1}), &*(list.begin() + 1));
  EXPECT_EQ(&constant[Integer{0}], &*list.begin());
  EXPECT_EQ(&constant.at(Integer{1}), &*(list.begin() + 1));
  list.erase(Integer{0});
  EXPECT_EQ(shown(list), "=2 b=3");
}

TEST(varg_list, integer_of_any_type_selects_a_position) {
  expect_selects_positions<short>(three());
  expect_selects_positions<int>(three());
  expect_selects_positions<unsigned int>(three());
  expect_selects_positions<types::uint32>(three());
  expect_selects_positions<std::size_t>(three());
  expect_selects_positions<long long>(three());
}

TEST(varg_list, literal_zero_selects_the_first_argument) {
  varg_list list = three();
  const varg_list& constant = list;
  EXPECT_EQ(list[0].name(), "a");
  EXPECT_EQ(list.at(0).name(), "a");
  EXPECT_EQ(constant[0].name(), "a");
  EXPECT_EQ(constant.at(0).name(), "a");
  list.erase(0);
  EXPECT_EQ(shown(list), "=2 b=3");
}

TEST(varg_list, arguments_are_changed_by_position) {
  varg_list list = three();
  list[1] = variant("new");
  list.at(0).name("first");
  EXPECT_EQ(shown(list), "first=1 =new b=3");
}

// Removing.

TEST(varg_list, clear_and_erase_leave_an_empty_list) {
  varg_list list = three();
  list.clear();
  EXPECT_TRUE(list == nil);
  list = three();
  list.erase();
  EXPECT_TRUE(list.empty());
  EXPECT_TRUE(list.push_back("a", 1));
}

TEST(varg_list, erase_by_iterator_moves_the_later_arguments_down) {
  varg_list list = three();
  const auto next = list.erase(list.begin());
  EXPECT_EQ(shown(list), "=2 b=3");
  EXPECT_EQ(next, list.begin());
}

TEST(varg_list, erase_of_the_end_removes_nothing) {
  varg_list list = three();
  EXPECT_EQ(list.erase(list.find("missing")), list.end());
  EXPECT_EQ(list.size(), 3U);
}

TEST(varg_list, erase_of_a_range) {
  varg_list list = three();
  list.erase(list.begin(), list.begin());
  EXPECT_EQ(list.size(), 3U);
  list.erase(list.begin() + 1, list.end());
  EXPECT_EQ(shown(list), "a=1");
  list.erase(list.begin(), list.end());
  EXPECT_TRUE(list == nil);
  list.erase(list.begin(), list.end());
  EXPECT_TRUE(list == nil);
}

TEST(varg_list, erase_by_name_removes_the_first_of_that_name) {
  varg_list list = three();
  list.erase("b");
  EXPECT_EQ(shown(list), "a=1 =2");
  list.erase("missing");
  EXPECT_EQ(shown(list), "a=1 =2");
}

TEST(varg_list, erase_by_the_name_of_an_argument_in_the_list) {
  varg_list list = three();
  list.erase(list[0].name());
  EXPECT_EQ(shown(list), "=2 b=3");
}

TEST(varg_list, erase_by_position_past_the_end_does_nothing) {
  varg_list list = three();
  list.erase(list.size());
  list.erase(std::numeric_limits<std::size_t>::max());
  EXPECT_EQ(list.size(), 3U);
  list.erase(2);
  EXPECT_EQ(shown(list), "a=1 =2");
}

TEST(varg_list, erased_name_can_be_added_again) {
  varg_list list = three();
  list.erase("a");
  EXPECT_TRUE(list.push_back("a", 9));
  EXPECT_EQ(shown(list), "=2 b=3 a=9");
}

// Random operations.

TEST(varg_list, random_operations_agree_with_a_vector_of_pairs) {
  orva_test::random_engine random;
  const std::vector<std::string> names = {"", "a", "b", "c", "d"};
  varg_list list;
  std::vector<std::pair<std::string, int>> model;
  const auto place_of = [&](const std::string& name) {
    std::size_t place = 0;
    while (place < model.size() && model[place].first != name) ++place;
    return place;
  };
  for (int round = 0; round < 20'000; ++round) {
    const std::string& name = names[random() % names.size()];
    const std::size_t place = random() % 8;
    switch (random() % 4) {
      case 0: {
        const bool added = name.empty() || place_of(name) == model.size();
        if (added) model.emplace_back(name, round);
        ASSERT_EQ(round % 2 == 0 ? list.push_back(name, round) : list.push_back(argument(name, round)),
                  added);
        break;
      }
      case 1: {
        const std::size_t found = place_of(name);
        if (found < model.size()) model.erase(model.begin() + static_cast<std::ptrdiff_t>(found));
        list.erase(name);
        break;
      }
      case 2:
        if (place < model.size()) model.erase(model.begin() + static_cast<std::ptrdiff_t>(place));
        list.erase(place);
        break;
      default:
        if (place < model.size()) model[place].first = name;
        if (place < list.size()) list[place].name(name);
    }
    ASSERT_EQ(list.size(), model.size());
    for (std::size_t i = 0; i < model.size(); ++i) {
      ASSERT_EQ(list[i].name(), model[i].first);
      ASSERT_EQ(list[i].value().as_int32(), model[i].second);
    }
    ASSERT_EQ(static_cast<std::size_t>(list.find(name) - list.begin()), place_of(name));
  }
}

TEST(varg_list, read_by_several_threads) {
  const varg_list list({"a", 1}, {"b", "text"});
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&list] {
      for (int round = 0; round < 1000; ++round) {
        const varg_list copy = list;
        ASSERT_EQ(copy["a"].value().as_int32(), 1);
        ASSERT_EQ(list["b"].value().as_utf8(), "text");
        ASSERT_EQ(&list["missing"], &varg_list::nil_argument);
      }
    });
  }
  for (auto& thread : threads) thread.join();
}

}  // namespace
