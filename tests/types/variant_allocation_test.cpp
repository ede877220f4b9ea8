/// The allocations of variants and lists.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "orva/generic/varg_list.hpp"
#include "orva/types/variant.hpp"
#include "tests/support/counted_allocations.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using generic::argument;
using generic::varg_list;
using orva_test::allocations_of;
using strings::ustring8;
using types::nil;
using types::variant;

const char* const long_text = "a text that is too long for inline storage in a string";

class allocation : public testing::Test {
 protected:
  void SetUp() override {
    // A replaced operator does not reach into the library on every platform.
    if (allocations_of([] { variant(1); }) == 0) GTEST_SKIP() << "the library allocates for itself";
  }
};

TEST_F(allocation, making_a_variant_takes_one) {
  EXPECT_EQ(allocations_of([] { variant(); }), 1);
  EXPECT_EQ(allocations_of([] { variant{nil}; }), 1);
  EXPECT_EQ(allocations_of([] { variant(1); }), 1);
  EXPECT_EQ(allocations_of([] { variant(1.5L); }), 1);
  EXPECT_EQ(allocations_of([] { variant("short"); }), 1);
}

TEST_F(allocation, copying_a_variant_takes_none) {
  const variant original(long_text);
  EXPECT_EQ(allocations_of([&] { const variant copy(original); }), 0);
  variant target(1);
  EXPECT_EQ(allocations_of([&] { target = original; }), 0);
  EXPECT_EQ(allocations_of([&] { target.assign(original); }), 0);
}

TEST_F(allocation, moving_a_variant_takes_none) {
  variant source(long_text);
  EXPECT_EQ(allocations_of([&] {
              variant target(std::move(source));
              source = std::move(target);
            }),
            0);
}

// CTest runs each test in a process of its own; there, this is the first moved-from value.
TEST_F(allocation, reading_a_moved_from_variant_takes_none) {
  variant source(1);
  const variant target(std::move(source));
  EXPECT_EQ(allocations_of([&] { EXPECT_TRUE(source == nil); }), 0);
}

TEST_F(allocation, a_string_given_away_is_not_copied) {
  ustring8 text(long_text);
  EXPECT_EQ(allocations_of([&] { variant{std::move(text)}; }), 1);
}

TEST_F(allocation, nil_is_never_shared) {
  variant value(1);
  EXPECT_EQ(allocations_of([&] { value = nil; }), 1);
}

TEST_F(allocation, numbers_are_read_without_any) {
  const variant narrow("-12345");
  const variant wide(strings::ustring16{'7', '7'});
  EXPECT_EQ(allocations_of([&] {
              EXPECT_EQ(narrow.as_int32(), -12345);
              EXPECT_EQ(narrow.as_uint64(), 0U);
              EXPECT_TRUE(narrow.as_bool());
              EXPECT_EQ(wide.as_int8(), 77);
            }),
            0);
}

TEST_F(allocation, look_up_by_name_takes_none) {
  const varg_list list({long_text, 1}, {"b", 2});
  const ustring8 name(long_text);
  EXPECT_EQ(allocations_of([&] {
              EXPECT_TRUE(list.has_argument(name));
              EXPECT_EQ(list[long_text].value().as_int32(), 1);
              EXPECT_TRUE(list.at("a name that is too long for inline storage and missing") == nil);
              EXPECT_NE(list.find(name), list.end());
            }),
            0);
}

TEST_F(allocation, copying_a_list_of_short_names_takes_one) {
  const varg_list list({"a", long_text}, {"b", 2}, {"c", 3});
  EXPECT_EQ(allocations_of([&] { const varg_list copy(list); }), 1);
}

TEST_F(allocation, growing_a_list_copies_no_value) {
  varg_list list;
  for (int i = 0; i < 100; ++i) list.push_back("", long_text);
  const variant shared = list[0].value();
  const int taken = allocations_of([&] {
    for (int i = 0; i < 1000; ++i) list.push_back("", shared);
  });
  EXPECT_LT(taken, 10);
}

}  // namespace
