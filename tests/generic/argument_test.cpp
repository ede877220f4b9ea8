#include "orva/generic/argument.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace {

using namespace ORVA_NAMESPACE;
using generic::argument;
using strings::ustring8;
using types::nil;
using types::variant;

static_assert(sizeof(argument) == sizeof(ustring8) + sizeof(variant), "a name and a value, nothing else");
static_assert(!std::is_polymorphic_v<argument>);
static_assert(std::is_nothrow_move_constructible_v<argument>, "lists grow without copying");

// A name is text. Zero is a value like any other.
static_assert(!std::is_constructible_v<argument, std::nullptr_t, int>);
static_assert(!std::is_constructible_v<argument, int, int>);
static_assert(std::is_constructible_v<argument, int> && std::is_constructible_v<argument, const char*, int>);

template <typename Name>
constexpr bool sets_name = requires(argument target, Name name) {
  target.name(name);
};
template <typename Name>
constexpr bool assigns_name = requires(argument target, Name name) {
  target.assign(name, 1);
};
static_assert(!sets_name<std::nullptr_t> && !sets_name<int> && sets_name<const char*> &&
              sets_name<std::string>);
static_assert(!assigns_name<std::nullptr_t> && !assigns_name<int> && assigns_name<const char*>);

TEST(argument, default_is_nil) {
  const argument none;
  EXPECT_FALSE(none.has_name());
  EXPECT_EQ(none.name(), "");
  EXPECT_TRUE(none.value() == nil);
  EXPECT_TRUE(none == nil);
  EXPECT_TRUE(nil == none);
  EXPECT_FALSE(none != nil);
  EXPECT_TRUE(none.equal(nil));
}

TEST(argument, made_from_nil_is_nil) {
  EXPECT_TRUE(argument(nil) == nil);
  const types::nil_t constant{};
  EXPECT_TRUE(argument(constant) == nil);
  EXPECT_TRUE(argument(variant()) == nil);
}

TEST(argument, made_from_a_value_is_positional) {
  const argument five(5);
  EXPECT_FALSE(five.has_name());
  EXPECT_EQ(five.value().as_int32(), 5);
  EXPECT_TRUE(five != nil);
}

TEST(argument, text_is_a_value_and_never_taken_apart) {
  const argument text("name=value");
  EXPECT_FALSE(text.has_name());
  EXPECT_EQ(text.value().as_utf8(), "name=value");
}

TEST(argument, name_with_a_nil_value_is_not_nil) {
  const argument declared("name", nil);
  EXPECT_TRUE(declared.has_name());
  EXPECT_TRUE(declared.value() == nil);
  EXPECT_TRUE(declared != nil);
}

TEST(argument, empty_name_with_a_nil_value_is_nil) { EXPECT_TRUE(argument("", nil) == nil); }

TEST(argument, empty_name_with_a_value_is_not_nil) { EXPECT_TRUE(argument("", 0) != nil); }

TEST(argument, takes_a_name_of_either_byte_string_class) {
  EXPECT_EQ(argument(std::string("n\xC3\xA9"), 1).name(), "n\xC3\xA9");
  EXPECT_EQ(argument(ustring8("n\xC3\xA9"), 1).name(), "n\xC3\xA9");
}

TEST(argument, setters_return_what_they_set) {
  argument named("old", 1);
  const ustring8& name = named.name("new");
  EXPECT_EQ(name, "new");
  EXPECT_EQ(&name, &named.name());
  const variant& value = named.value(2);
  EXPECT_EQ(value.as_int32(), 2);
  EXPECT_EQ(&value, &named.value());
}

TEST(argument, name_set_to_itself_stays) {
  argument named("a name that is too long for inline storage", 1);
  EXPECT_EQ(named.name(named.name()), "a name that is too long for inline storage");
}

TEST(argument, value_set_to_itself_stays) {
  argument named("name", 1);
  EXPECT_EQ(named.value(named.value()).as_int32(), 1);
}

TEST(argument, value_set_to_nil_keeps_the_name) {
  argument named("name", 1);
  EXPECT_TRUE(named.value(nil) == nil);
  EXPECT_EQ(named.name(), "name");
}

TEST(argument, assigning_a_value_keeps_the_name) {
  argument named("name", 1);
  EXPECT_EQ(&named.assign(variant(2)), &named);
  EXPECT_EQ(named.name(), "name");
  EXPECT_EQ(named.value().as_int32(), 2);
  EXPECT_EQ(&(named = variant("three")), &named);
  EXPECT_EQ(named.name(), "name");
  EXPECT_EQ(named.value().as_utf8(), "three");
  named = 4;
  EXPECT_EQ(named.name(), "name");
  EXPECT_EQ(named.value().as_int32(), 4);
}

TEST(argument, assigning_an_argument_replaces_both) {
  argument named("name", 1);
  EXPECT_EQ(&named.assign(argument("other", 2)), &named);
  EXPECT_EQ(named.name(), "other");
  EXPECT_EQ(named.value().as_int32(), 2);
  named = argument(3);
  EXPECT_FALSE(named.has_name());
  EXPECT_EQ(named.value().as_int32(), 3);
}

TEST(argument, assigning_name_and_value_replaces_both) {
  argument named("name", 1);
  EXPECT_EQ(&named.assign("other", 2), &named);
  EXPECT_EQ(named.name(), "other");
  EXPECT_EQ(named.value().as_int32(), 2);
}

TEST(argument, assigned_from_itself_stays) {
  argument named("name", 1);
  const argument& same = named;
  named = same;
  named.assign(same);
  named.assign(same.name(), same.value());
  EXPECT_EQ(named.name(), "name");
  EXPECT_EQ(named.value().as_int32(), 1);
}

TEST(argument, copy_is_independent) {
  argument original("name", 1);
  const argument copy = original;
  original.assign("other", 2);
  EXPECT_EQ(copy.name(), "name");
  EXPECT_EQ(copy.value().as_int32(), 1);
}

TEST(argument, moved_from_is_nil) {
  argument source("name", 1);
  const argument target = std::move(source);
  EXPECT_EQ(target.name(), "name");
  EXPECT_EQ(target.value().as_int32(), 1);
  EXPECT_TRUE(source == nil);
}

TEST(argument, takes_a_name_as_a_view_of_each_width) {
  argument named("old", 1);
  EXPECT_EQ(named.name(std::string_view("view")), "view");
  EXPECT_EQ(named.name(strings::ustring16{0x20AC}), "\xE2\x82\xAC");
  EXPECT_EQ(named.name(std::string_view(named.name()).substr(1)), "\x82\xAC");
  EXPECT_EQ(&named.assign(std::string_view("both"), 2), &named);
  EXPECT_EQ(named.name(), "both");
  EXPECT_EQ(named.value().as_int32(), 2);
}

}  // namespace
