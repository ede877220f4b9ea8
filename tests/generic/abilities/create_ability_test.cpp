#include "orva/generic/abilities/create_ability.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace {

using ORVA_NAMESPACE::generic::abilities::create_ability;

struct shape : create_ability {
  virtual shape* create() const { return new shape; }
  int size = 1;
};
struct circle : shape {
  circle* create() const override { return new circle; }
};

TEST(create_ability, has_no_field_and_a_virtual_destructor) {
  static_assert(sizeof(create_ability) == sizeof(void*));
  static_assert(std::has_virtual_destructor_v<create_ability>);
}

TEST(create_ability, create_gives_a_new_default_object_of_the_dynamic_type) {
  circle original;
  original.size = 9;
  const std::unique_ptr<shape> created(static_cast<const shape&>(original).create());
  EXPECT_NE(dynamic_cast<circle*>(created.get()), nullptr);
  EXPECT_EQ(created->size, 1);
}

TEST(create_ability, copies_leave_the_rest_to_the_class) {
  shape original;
  original.size = 3;
  shape copy(original);
  EXPECT_EQ(copy.size, 3);
  copy = shape();
  EXPECT_EQ(copy.size, 1);
}

}  // namespace
