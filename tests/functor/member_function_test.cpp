#include "orva/functor/member_function.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using namespace ORVA_NAMESPACE::functor;

struct counter {
  int add(int amount) { return total += amount; }
  int subtract(int amount) { return total -= amount; }
  void take(std::unique_ptr<int> owned) { total += *owned; }
  void rename(std::string& text) { text = "renamed"; }

  int total = 0;
};

using on_counter = member_function_t<counter, int(int)>;

TEST(member_function, calls_the_member_on_the_object) {
  counter object;
  on_counter add(&object, &counter::add);
  EXPECT_EQ(add(3), 3);
  EXPECT_EQ(add(4), 7);
  EXPECT_EQ(object.total, 7);
}

TEST(member_function, signature_is_deduced) {
  counter object;
  auto add = member_function_t(&object, &counter::add);
  static_assert(std::is_same_v<decltype(add), on_counter>);
}

TEST(member_function, hands_arguments_on_unchanged) {
  counter object;
  member_function_t(&object, &counter::take)(std::make_unique<int>(5));
  EXPECT_EQ(object.total, 5);
  std::string text;
  member_function_t(&object, &counter::rename)(text);
  EXPECT_EQ(text, "renamed");
}

TEST(member_function, equals_the_same_member_of_the_same_object) {
  counter object;
  EXPECT_TRUE(on_counter(&object, &counter::add).equal(on_counter(&object, &counter::add)));
}

TEST(member_function, differs_for_another_object) {
  counter one, two;
  EXPECT_FALSE(on_counter(&one, &counter::add).equal(on_counter(&two, &counter::add)));
}

TEST(member_function, differs_for_another_member) {
  counter object;
  EXPECT_FALSE(on_counter(&object, &counter::add).equal(on_counter(&object, &counter::subtract)));
}

struct other_class {
  int add(int amount) { return amount; }
};

class plain_function : public function_type_interface<int(int)> {
 public:
  int operator()(int amount) override { return amount; }
  bool equal(const function_type_interface&) const override { return true; }
  plain_function* clone() const override { return new plain_function(*this); }
};

TEST(member_function, differs_from_a_function_object_of_another_type) {
  counter object;
  other_class other;
  const on_counter add(&object, &counter::add);
  EXPECT_FALSE(add.equal(member_function_t(&other, &other_class::add)));
  EXPECT_FALSE(add.equal(plain_function()));
}

TEST(member_function, clone_is_a_new_equal_object) {
  counter object;
  const on_counter add(&object, &counter::add);
  const std::unique_ptr<function_type_interface<int(int)>> clone(add.clone());
  EXPECT_NE(clone.get(), &add);
  EXPECT_TRUE(clone->equal(add));
  EXPECT_EQ((*clone)(2), 2);
}

struct base {
  virtual ~base() = default;
  virtual std::string name() { return "base"; }
};
struct derived : base {
  std::string name() override { return "derived"; }
};

TEST(member_function, calls_virtual_members_by_the_dynamic_type) {
  derived object;
  EXPECT_EQ((member_function_t<base, std::string()>(&object, &base::name)()), "derived");
}

struct thermometer {
  int read(int offset) const { return degrees + offset; }
  int read_quietly(int offset) const noexcept { return degrees + offset; }
  void heat(int by) { degrees += by; }

  int degrees = 20;
};
struct named_thermometer : thermometer {
  std::string name;
};
struct shared_part : virtual thermometer {};

TEST(member_function, takes_a_const_member) {
  thermometer object;
  auto read = member_function_t(&object, &thermometer::read);
  static_assert(std::is_same_v<decltype(read), member_function_t<const thermometer, int(int)>>);
  EXPECT_EQ(read(1), 21);
  EXPECT_EQ(member_function_t(&object, &thermometer::read_quietly)(2), 22);
}

TEST(member_function, takes_a_const_object_for_a_const_member_only) {
  const thermometer object;
  EXPECT_EQ(member_function_t(&object, &thermometer::read)(1), 21);
  static_assert(!std::is_constructible_v<member_function_t<thermometer, void(int)>, const thermometer*,
                                         void (thermometer::*)(int)>);
}

TEST(member_function, takes_an_inherited_member) {
  named_thermometer object;
  member_function_t(&object, &named_thermometer::heat)(5);
  EXPECT_EQ(member_function_t(&object, &named_thermometer::read)(0), 25);
  member_function_t<named_thermometer, void(int)>(&object, &named_thermometer::heat)(5);
  EXPECT_EQ((member_function_t<const named_thermometer, int(int)>(&object, &named_thermometer::read)(0)), 30);
  shared_part with_virtual_base;
  EXPECT_EQ(member_function_t(&with_virtual_base, &shared_part::read)(0), 20);
}

TEST(member_function, inherited_equals_the_same_member_named_through_the_base) {
  named_thermometer object;
  thermometer& as_base = object;
  const auto inherited = member_function_t(&object, &named_thermometer::read);
  EXPECT_TRUE(inherited.equal(member_function_t(&as_base, &thermometer::read)));
}

}  // namespace
