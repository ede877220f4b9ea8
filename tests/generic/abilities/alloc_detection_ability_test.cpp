#include "orva/generic/abilities/alloc_detection_ability.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

using namespace ORVA_NAMESPACE::generic::abilities;

struct thing : alloc_detection_ability {
  thing() = default;
  thing(std::unique_ptr<int> owned_, std::string& named) : owned(std::move(owned_)) { named = "taken"; }
  std::unique_ptr<int> owned;
};

thing static_thing;

TEST(alloc_detection_ability, is_false_after_construction) {
  const thing automatic;
  const auto plain_new = std::make_unique<thing>();
  EXPECT_FALSE(automatic.is_created_dynamic());
  EXPECT_FALSE(static_thing.is_created_dynamic());
  EXPECT_FALSE(plain_new->is_created_dynamic()) << "only create_dynamic marks an object";
}

TEST(alloc_detection_ability, is_one_flag) { static_assert(sizeof(alloc_detection_ability) == sizeof(bool)); }

TEST(create_dynamic, marks_the_object) {
  const std::unique_ptr<thing> object(create_dynamic<thing>());
  EXPECT_TRUE(object->is_created_dynamic());
}

TEST(create_dynamic, hands_the_arguments_on) {
  std::string name;
  const std::unique_ptr<thing> object(create_dynamic<thing>(std::make_unique<int>(5), name));
  EXPECT_EQ(*object->owned, 5);
  EXPECT_EQ(name, "taken");
}

struct derived_thing : thing {};

TEST(create_dynamic, marks_an_object_of_a_derived_class) {
  const std::unique_ptr<derived_thing> object(create_dynamic<derived_thing>());
  EXPECT_TRUE(object->is_created_dynamic());
}

struct failing : alloc_detection_ability {
  failing() { throw std::runtime_error("not made"); }
};

TEST(create_dynamic, lets_a_failing_constructor_through) {
  EXPECT_THROW(static_cast<void>(create_dynamic<failing>()), std::runtime_error);
}

struct flag_only : alloc_detection_ability {};

TEST(alloc_detection_ability, copy_and_move_start_fresh) {
  const std::unique_ptr<flag_only> marked(create_dynamic<flag_only>());
  const flag_only copy(*marked);
  EXPECT_FALSE(copy.is_created_dynamic());
  const flag_only moved(std::move(*marked));
  EXPECT_FALSE(moved.is_created_dynamic());
  EXPECT_TRUE(marked->is_created_dynamic());
}

TEST(alloc_detection_ability, assignment_takes_the_flag_over) {
  const std::unique_ptr<flag_only> marked(create_dynamic<flag_only>());
  flag_only target;
  target = *marked;
  EXPECT_TRUE(target.is_created_dynamic());
  target = flag_only();
  EXPECT_FALSE(target.is_created_dynamic());
}

}  // namespace
