#include "orva/types/nil.hpp"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using namespace ORVA_NAMESPACE;

bool is_nothing(const types::nil_t&) { return true; }
bool is_nothing(int) { return false; }

bool takes_mutable(types::nil_t&) { return true; }

TEST(nil, carries_no_data) { static_assert(std::is_empty_v<types::nil_t>); }

TEST(nil, is_not_const) { static_assert(!std::is_const_v<decltype(types::nil)>); }

TEST(nil, selects_overloads_by_its_type) {
  EXPECT_TRUE(is_nothing(types::nil));
  EXPECT_FALSE(is_nothing(0));
  EXPECT_TRUE(takes_mutable(types::nil));
}

}  // namespace
