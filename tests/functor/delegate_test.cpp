#include "orva/functor/delegate.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "orva/functor/member_function.hpp"
#include "orva/strings/ustring.hpp"

namespace {

using namespace ORVA_NAMESPACE::functor;
using ORVA_NAMESPACE::strings::ustring8;

/// Adds `step` to every argument; counts the objects of its kind that are alive.
class adder : public function_type_interface<int(int)> {
 public:
  explicit adder(int step) : step_(step) { ++alive; }
  adder(const adder& other) : adder(other.step_) {}
  ~adder() override { --alive; }

  int operator()(int number) override { return number + step_; }
  bool equal(const function_type_interface& other) const override {
    const auto* same_kind = dynamic_cast<const adder*>(&other);
    return same_kind != nullptr && same_kind->step_ == step_;
  }
  adder* clone() const override { return new adder(*this); }

  inline static int alive = 0;

 private:
  int step_;
};

using number_delegate = delegate_t<int(int)>;

TEST(delegate, default_is_empty) {
  const number_delegate empty;
  EXPECT_TRUE(empty.empty());
  EXPECT_FALSE(empty);
  EXPECT_EQ(empty.target(), nullptr);
}

TEST(delegate, is_one_pointer) { static_assert(sizeof(number_delegate) == sizeof(void*)); }

TEST(delegate, empty_call_throws) { EXPECT_THROW(number_delegate()(1), std::bad_function_call); }

TEST(delegate, owns_a_clone_of_the_function_object) {
  number_delegate add;
  {
    const adder original(5);
    add = original;
    EXPECT_EQ(adder::alive, 2);
    EXPECT_NE(add.target(), &original);
  }
  EXPECT_EQ(add(1), 6);
  EXPECT_EQ(adder::alive, 1);
}

TEST(delegate, destroys_its_function_object) {
  { const number_delegate add{adder(1)}; }
  EXPECT_EQ(adder::alive, 0);
}

TEST(delegate, assignment_destroys_the_function_object_held_before) {
  number_delegate add{adder(1)};
  add = adder(2);
  EXPECT_EQ(adder::alive, 1);
  EXPECT_EQ(add(0), 2);
}

TEST(delegate, copy_has_a_clone_that_outlives_the_first) {
  auto first = std::make_unique<number_delegate>(adder(3));
  const number_delegate second(*first);
  EXPECT_NE(second.target(), first->target());
  first.reset();
  EXPECT_EQ(second(1), 4);
}

TEST(delegate, copy_assignment_clones) {
  number_delegate target{adder(1)};
  const number_delegate source{adder(2)};
  target = source;
  EXPECT_EQ(adder::alive, 2);
  EXPECT_EQ(target(0), 2);
  EXPECT_EQ(source(0), 2);
}

TEST(delegate, copy_of_an_empty_delegate_is_empty) {
  const number_delegate empty;
  const number_delegate copy(empty);
  EXPECT_TRUE(copy.empty());
  number_delegate target{adder(1)};
  target = empty;
  EXPECT_TRUE(target.empty());
  EXPECT_EQ(adder::alive, 0);
}

TEST(delegate, assignment_to_itself_keeps_the_target_callable) {
  number_delegate add{adder(3)};
  const number_delegate& same = add;
  add = same;
  EXPECT_EQ(add(1), 4);
  EXPECT_EQ(adder::alive, 1);
}

TEST(delegate, assignment_of_its_own_function_object_keeps_the_target_callable) {
  number_delegate add{adder(3)};
  add = *add.target();
  EXPECT_EQ(add(1), 4);
  EXPECT_EQ(adder::alive, 1);
}

TEST(delegate, move_hands_the_function_object_over) {
  number_delegate source{adder(3)};
  const auto* target = source.target();
  number_delegate moved(std::move(source));
  EXPECT_EQ(moved.target(), target);
  EXPECT_TRUE(source.empty());
  source = adder(4);
  source = std::move(moved);
  EXPECT_EQ(source.target(), target);
  EXPECT_TRUE(moved.empty());
  EXPECT_EQ(adder::alive, 1);
}

class failing_clone : public function_type_interface<int(int)> {
 public:
  int operator()(int) override { return 0; }
  bool equal(const function_type_interface&) const override { return false; }
  failing_clone* clone() const override { throw std::runtime_error("no clone today"); }
};

TEST(delegate, keeps_its_function_object_when_cloning_the_new_one_fails) {
  number_delegate add{adder(3)};
  EXPECT_THROW(add = failing_clone(), std::runtime_error);
  EXPECT_EQ(add(1), 4);
}

TEST(delegate, equal_compares_the_function_objects) {
  const number_delegate two{adder(2)}, same{adder(2)}, three{adder(3)}, empty;
  EXPECT_TRUE(two == same);
  EXPECT_TRUE(two.equal(same));
  EXPECT_TRUE(two != three);
  EXPECT_FALSE(two == empty);
  EXPECT_FALSE(empty == two);
  EXPECT_TRUE(empty == number_delegate());
}

struct listener {
  void one(const ustring8& text) { heard += text + ";"; }
  void two(const ustring8& first, const ustring8& second) { heard += first + "=" + second + ";"; }
  ustring8 heard;
};

TEST(delegate, documentation_example) {
  listener ear;
  delegate_t<void(const ustring8&)> on_text;
  EXPECT_FALSE(on_text);
  on_text = member_function_t(&ear, &listener::one);
  if (on_text) on_text("hello");
  EXPECT_EQ(ear.heard, "hello;");
  ustring8 log;
  on_text = [&log](const ustring8& text) { log += text; };
  if (on_text) on_text("hello");
  EXPECT_EQ(log, "hello");
}

TEST(delegate, carries_every_signature_that_the_library_uses) {
  listener ear;
  const delegate_t<void(const ustring8&)> one{member_function_t(&ear, &listener::one)};
  const delegate_t<void(const ustring8&, const ustring8&)> two{member_function_t(&ear, &listener::two)};
  one("a");
  two("b", "c");
  EXPECT_EQ(ear.heard, "a;b=c;");
}

struct owner {
  std::unique_ptr<int> pass(std::unique_ptr<int> owned) { return owned; }
};

TEST(delegate, hands_move_only_values_through) {
  owner object;
  const delegate_t<std::unique_ptr<int>(std::unique_ptr<int>)> pass{member_function_t(&object, &owner::pass)};
  EXPECT_EQ(*pass(std::make_unique<int>(7)), 7);
}

}  // namespace
