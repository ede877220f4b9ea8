/// The allocations of delegates.
#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "orva/functor/delegate.hpp"
#include "tests/support/counted_allocations.hpp"

namespace {

using number_delegate = ORVA_NAMESPACE::functor::delegate_t<int(int)>;
using orva_test::allocations_of;

TEST(delegate_allocation, one_for_a_callable_of_any_size) {
  const std::array<int, 100> large{};
  EXPECT_EQ(allocations_of([] { number_delegate([](int number) { return number; }); }), 1);
  EXPECT_EQ(allocations_of([&] { number_delegate([large](int number) { return large[0] + number; }); }), 1);
}

TEST(delegate_allocation, one_for_an_assignment) {
  number_delegate target;
  EXPECT_EQ(allocations_of([&] { target = [](int number) { return number; }; }), 1);
}

TEST(delegate_allocation, one_for_a_copy_and_none_for_a_move_or_a_call) {
  number_delegate first = [](int number) { return number; };
  EXPECT_EQ(allocations_of([&] { number_delegate copy(first); }), 1);
  EXPECT_EQ(allocations_of([&] { number_delegate moved(std::move(first)); }), 0);
  first = [](int number) { return number; };
  EXPECT_EQ(allocations_of([&] { first(1); }), 0);
}

TEST(delegate_allocation, none_where_there_is_nothing_to_call) {
  int (*const function)(int) = nullptr;
  EXPECT_EQ(allocations_of([&] { number_delegate{function}; }), 0);
}

}  // namespace
