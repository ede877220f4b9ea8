#include "orva/generic/abilities/clone_ability.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace {

using ORVA_NAMESPACE::generic::abilities::clone_ability;

struct number : clone_ability {
  explicit number(int value_) : value(value_) {}
  virtual number* clone() const { return new number(*this); }
  int value;
};

TEST(clone_ability, has_no_field_and_a_virtual_destructor) {
  static_assert(sizeof(clone_ability) == sizeof(void*));
  static_assert(std::has_virtual_destructor_v<clone_ability>);
}

TEST(clone_ability, destroys_the_dynamic_type) {
  struct noted : clone_ability {
    explicit noted(bool& destroyed) : destroyed_(destroyed) {}
    ~noted() override { destroyed_ = true; }
    bool& destroyed_;
  };
  bool destroyed = false;
  std::unique_ptr<clone_ability>(new noted(destroyed)).reset();
  EXPECT_TRUE(destroyed);
}

TEST(clone_ability, copies_leave_the_rest_to_the_class) {
  const number seven(7);
  number copy(seven);
  EXPECT_EQ(copy.value, 7);
  copy = number(8);
  EXPECT_EQ(copy.value, 8);
  EXPECT_EQ(std::unique_ptr<number>(copy.clone())->value, 8);
}

}  // namespace
