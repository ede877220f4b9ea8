// What the modules of one program share: an exception raised in one is caught in another, any module may
// release a counted object, and there is one nil and one assertion hook.

#include <gtest/gtest.h>

#include <string>

#include "orva/exceptions/exception.hpp"
#include "orva/functor/member_function.hpp"
#include "other_module.hpp"

namespace {

using namespace ORVA_NAMESPACE;

template <typename Class>
void expect_caught(const std::string& name) {
  try {
    other_module::raise(name);
    ADD_FAILURE() << name << " was not raised";
  } catch (const Class& caught) {
    EXPECT_STREQ(caught.message(), "from the other module") << name;
    EXPECT_EQ(caught.error_state().line(), 12u) << name;
    EXPECT_STREQ(caught.error_state().file(), "other/module") << name;
  }
}

template <typename Class, typename Base>
void expect_caught_as_all(const std::string& name) {
  expect_caught<Class>(name);
  expect_caught<Base>(name);
  expect_caught<exceptions::exception>(name);
}

TEST(modules, exceptions_of_every_class_are_caught_from_another_module) {
  using namespace exceptions;
  expect_caught_as_all<logic_error, logic_error>("logic_error");
  expect_caught_as_all<invalid_argument_value, logic_error>("invalid_argument_value");
  expect_caught_as_all<length_error, logic_error>("length_error");
  expect_caught_as_all<out_of_range, logic_error>("out_of_range");
  expect_caught_as_all<runtime_error, runtime_error>("runtime_error");
  expect_caught_as_all<empty_error, runtime_error>("empty_error");
  expect_caught_as_all<full_error, runtime_error>("full_error");
  expect_caught_as_all<overflow_error, runtime_error>("overflow_error");
  expect_caught_as_all<underflow_error, runtime_error>("underflow_error");
}

TEST(modules, share_one_nil) { EXPECT_EQ(other_module::address_of_nil(), &types::nil); }

TEST(modules, counted_object_of_another_module_is_destroyed_here) {
  int destroyed = 0;
  {
    const auto pointer = other_module::make_counted(destroyed);
    const auto second = pointer;
    EXPECT_EQ(destroyed, 0);
  }
  EXPECT_EQ(destroyed, 1);
}

TEST(modules, delegate_of_another_module_is_called_copied_and_compared_here) {
  other_module::listener ear, other_ear;
  const auto theirs = other_module::listen_with(ear);
  const auto copy = theirs;
  copy("hello");
  EXPECT_EQ(ear.heard, "hello");
  using functor::member_function_t;
  using other_module::listener;
  EXPECT_TRUE(theirs == other_module::text_delegate(member_function_t(&ear, &listener::listen)));
  EXPECT_FALSE(theirs == other_module::text_delegate(member_function_t(&other_ear, &listener::listen)));
}

struct assertion_listener {
  void listen(const char* const text, const char* const, unsigned int&) { heard = text; }
  std::string heard;
};

TEST(modules, share_one_assertion_hook) {
  assertion_listener ear;
  debug::set_assert_hook(functor::member_function_t(&ear, &assertion_listener::listen));
  other_module::assert_something();
  debug::set_assert_hook(types::nil);
  EXPECT_EQ(ear.heard, "1 > 2");
}

}  // namespace
