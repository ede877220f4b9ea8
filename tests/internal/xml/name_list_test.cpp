#include "orva/internal/xml/name_list.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

using ORVA_NAMESPACE::internal::xml::name_list;
using ORVA_NAMESPACE::internal::xml::name_set;

std::string name_of(int number) { return "a_name_too_long_for_the_string_itself_" + std::to_string(number); }

TEST(name_list, is_a_stack) {
  name_list names;
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 200; ++i) {
      names.push_back(name_of(i));
      ASSERT_EQ(names.back(), name_of(i));
    }
    for (int i = 199; i >= 0; --i) {
      ASSERT_EQ(names.size(), static_cast<std::size_t>(i) + 1);
      ASSERT_EQ(names.back(), name_of(i));
      names.pop_back();
    }
    EXPECT_TRUE(names.empty());
  }
}

TEST(name_list, pop_of_an_empty_list_does_nothing) {
  name_list names;
  names.pop_back();
  EXPECT_TRUE(names.empty());
}

TEST(name_set, name_is_new_once_until_the_set_is_cleared) {
  name_set names;
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 100; ++i) ASSERT_TRUE(names.insert(name_of(i))) << i;
    for (int i = 0; i < 100; ++i) ASSERT_FALSE(names.insert(name_of(i))) << i;
    names.clear();
  }
}

TEST(name_set, copy_holds_the_same_names) {
  name_set names;
  for (int i = 0; i < 40; ++i) names.insert(name_of(i));
  name_set copy(names);
  names.clear();
  for (int i = 0; i < 40; ++i) EXPECT_FALSE(copy.insert(name_of(i)));
  EXPECT_TRUE(names.insert(name_of(0)));
}

}  // namespace
