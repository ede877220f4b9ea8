#include "orva/generic/clone_interface.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace {

using namespace ORVA_NAMESPACE::generic;

struct animal : clone_interface {
  explicit animal(int legs_) : legs(legs_) {}
  animal* clone() const override { return new animal(*this); }
  int legs;
};

struct dog : animal {
  dog() : animal(4) {}
  dog* clone() const override { return new dog(*this); }
};

TEST(clone_interface, is_clone_ability_with_the_operation) {
  static_assert(std::is_base_of_v<abilities::clone_ability, clone_interface>);
  static_assert(std::is_abstract_v<clone_interface>);
}

TEST(clone_interface, clone_has_the_dynamic_type) {
  const dog original;
  const clone_interface& seen = original;
  const std::unique_ptr<clone_interface> copy(seen.clone());
  ASSERT_NE(dynamic_cast<dog*>(copy.get()), nullptr);
  EXPECT_NE(copy.get(), &seen);
  EXPECT_EQ(static_cast<dog&>(*copy).legs, 4);
}

TEST(clone_interface, clone_outlives_the_original) {
  auto original = std::make_unique<animal>(6);
  const std::unique_ptr<clone_interface> copy(original->clone());
  original.reset();
  EXPECT_EQ(dynamic_cast<animal&>(*copy).legs, 6);
}

}  // namespace
