/// Delegates made from lambdas and other callables.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "orva/debug/assert.hpp"
#include "orva/functor/delegate.hpp"
#include "orva/functor/member_function.hpp"
#include "orva/strings/ustring.hpp"

namespace {

using namespace ORVA_NAMESPACE::functor;
using ORVA_NAMESPACE::strings::ustring8;

using number_delegate = delegate_t<int(int)>;

int twice(int number) { return 2 * number; }
int thrice(int number) noexcept { return 3 * number; }

/// As large as a pointer: GCC 12 warns that a smaller object has no room for the virtual functions that a
/// pointer to a member might call.
struct account {
  int deposit(int amount) { return total += amount; }
  int with(int amount) const { return total + amount; }
  int with_safely(int amount) const noexcept { return total + amount; }

  int total = 0;
  void* owner = nullptr;
};

/// Counts the objects of its kind that are alive, and how often it was copied.
struct counted {
  counted() { ++alive; }
  counted(const counted&) {
    ++alive;
    ++copies;
  }
  counted(counted&&) noexcept { ++alive; }
  counted& operator=(const counted&) = delete;
  ~counted() { --alive; }
  int operator()(int number) const { return number + 1; }

  inline static int alive = 0;
  inline static int copies = 0;
};

TEST(delegate_callable, documentation_example) {
  struct printer {
    void print(const ustring8& text) const { *output += text + ";"; }
    ustring8* output;
  };
  ustring8 output, log;
  printer p{&output};
  delegate_t<void(const ustring8&)> on_text;
  on_text = member_function_t(&p, &printer::print);
  if (on_text) on_text("hello");
  EXPECT_EQ(output, "hello;");
  on_text = [&log](const ustring8& text) { log += text; };
  if (on_text) on_text("hello");
  EXPECT_EQ(log, "hello");
  EXPECT_EQ(output, "hello;");
}

TEST(delegate_callable, takes_lambdas) {
  const number_delegate plain = [](int number) { return number + 1; };
  EXPECT_EQ(plain(1), 2);
  int step = 5;
  const number_delegate capturing = [&step](int number) { return number + step; };
  step = 7;
  EXPECT_EQ(capturing(1), 8);
  const number_delegate generic = [](auto number) { return number - 1; };
  EXPECT_EQ(generic(1), 0);
}

TEST(delegate_callable, takes_functions) {
  EXPECT_EQ(number_delegate(twice)(4), 8);
  EXPECT_EQ(number_delegate(&twice)(4), 8);
  EXPECT_EQ(number_delegate(thrice)(4), 12);
}

TEST(delegate_callable, takes_pointers_to_members) {
  account object{10};
  const delegate_t<int(account&, int)> deposit = &account::deposit;
  EXPECT_EQ(deposit(object, 5), 15);
  const delegate_t<int(const account&, int)> with = &account::with;
  EXPECT_EQ(with(object, 5), 20);
  const delegate_t<int(const account&)> total = &account::total;
  EXPECT_EQ(total(object), 15);
}

TEST(delegate_callable, takes_const_member_functions_of_const_objects) {
  const account object{10};
  EXPECT_EQ(number_delegate(member_function_t(&object, &account::with))(5), 15);
  EXPECT_EQ(number_delegate(member_function_t(&object, &account::with_safely))(5), 15);
  account variable{20};
  EXPECT_EQ(number_delegate(member_function_t(&variable, &account::with))(5), 25);
}

TEST(delegate_callable, takes_bound_calls_and_references_to_callables) {
  account object{1};
  EXPECT_EQ(number_delegate(std::bind_front(&account::with, &object))(5), 6);
  auto count = [calls = 0](int) mutable { return ++calls; };
  const number_delegate by_reference = std::ref(count);
  by_reference(0);
  EXPECT_EQ(count(0), 2);
}

TEST(delegate_callable, takes_standard_functions) {
  const number_delegate add = std::function<int(int)>(twice);
  EXPECT_EQ(add(4), 8);
}

TEST(delegate_callable, takes_a_delegate_of_another_signature) {
  const delegate_t<int(long)> from_long = [](long number) { return static_cast<int>(number) + 1; };
  const delegate_t<long(int)> other = from_long;
  EXPECT_EQ(other(1), 2);
}

TEST(delegate_callable, is_empty_where_there_is_nothing_to_call) {
  int (*const function)(int) = nullptr;
  EXPECT_TRUE(number_delegate(function).empty());
  int (account::*const member)(int) = nullptr;
  EXPECT_TRUE((delegate_t<int(account&, int)>(member).empty()));
  EXPECT_TRUE(number_delegate(std::function<int(int)>()).empty());
  EXPECT_TRUE(number_delegate(delegate_t<int(long)>()).empty());
}

TEST(delegate_callable, owns_one_copy) {
  counted::copies = 0;
  {
    const counted original;
    const number_delegate add = original;
    EXPECT_EQ(counted::alive, 2);
    EXPECT_EQ(counted::copies, 1);
    EXPECT_EQ(add(1), 2);
  }
  EXPECT_EQ(counted::alive, 0);
}

TEST(delegate_callable, moves_a_temporary_in) {
  counted::copies = 0;
  const number_delegate add = counted();
  EXPECT_EQ(counted::alive, 1);
  EXPECT_EQ(counted::copies, 0);
}

TEST(delegate_callable, copy_of_the_delegate_copies_the_callable) {
  counted::copies = 0;
  number_delegate first = counted();
  const number_delegate second = first;
  EXPECT_EQ(counted::copies, 1);
  first = number_delegate();
  EXPECT_EQ(counted::alive, 1);
  EXPECT_EQ(second(1), 2);
}

TEST(delegate_callable, copies_do_not_share_their_state) {
  const delegate_t<int()> count = [calls = 0]() mutable { return ++calls; };
  EXPECT_EQ(count(), 1);
  const delegate_t<int()> copy = count;
  EXPECT_EQ(count(), 2);
  EXPECT_EQ(count(), 3);
  EXPECT_EQ(copy(), 2);
}

TEST(delegate_callable, passes_arguments_on_unchanged) {
  const delegate_t<std::unique_ptr<int>(std::unique_ptr<int>)> pass = [](std::unique_ptr<int> owned) {
    return owned;
  };
  EXPECT_EQ(*pass(std::make_unique<int>(7)), 7);
  std::string text;
  const delegate_t<void(std::string&)> rename = [](std::string& name) { name = "renamed"; };
  rename(text);
  EXPECT_EQ(text, "renamed");
}

TEST(delegate_callable, converts_arguments_and_result_as_a_call_does) {
  const delegate_t<int(const char*)> length = [](std::string_view text) { return text.size(); };
  EXPECT_EQ(length("abc"), 3);
  const delegate_t<short(int)> narrow = [](long number) { return number; };
  EXPECT_EQ(narrow(3), 3);
  const delegate_t<void(int)> ignored = twice;
  ignored(1);
}

TEST(delegate_callable, returns_references) {
  account object{10};
  const delegate_t<int&(account&)> total = &account::total;
  total(object) = 3;
  EXPECT_EQ(object.total, 3);
}

TEST(delegate_callable, refuses_a_callable_whose_result_would_dangle) {
  const auto by_value = [] { return std::string("gone"); };
  static_assert(!std::is_constructible_v<delegate_t<const std::string&()>, decltype(by_value)>);
  static_assert(std::is_constructible_v<delegate_t<std::string()>, decltype(by_value)>);
  const auto other_type = [](int& number) -> int& { return number; };
  static_assert(!std::is_constructible_v<delegate_t<const long&(int&)>, decltype(other_type)>);
  static_assert(std::is_constructible_v<delegate_t<const int&(int&)>, decltype(other_type)>);
}

TEST(delegate_callable, refuses_what_cannot_be_called) {
  static_assert(!std::is_constructible_v<number_delegate, int>);
  static_assert(!std::is_constructible_v<number_delegate, std::nullptr_t>);
  static_assert(!std::is_constructible_v<number_delegate, ORVA_NAMESPACE::types::nil_t>);
  static_assert(!std::is_constructible_v<number_delegate, std::string (*)(int)>);
  static_assert(!std::is_constructible_v<number_delegate, int (*)(int, int)>);
  static_assert(!std::is_constructible_v<number_delegate, delegate_t<void(int)>>);
  // Only a callable that a delegate keeps can be called as its function: as a variable.
  struct temporary_only {
    int operator()(int) && { return 0; }
  };
  static_assert(!std::is_constructible_v<number_delegate, temporary_only>);
}

/// A function object that is a callable as well: its `clone` makes the copy, as for every function object.
class cloned : public function_type_interface<int(int)> {
 public:
  explicit cloned(int& clones) : clones_(clones) {}
  int operator()(int number) override { return number; }
  bool equal(const function_type_interface& other) const override { return this == &other; }
  cloned* clone() const override {
    ++clones_;
    return new cloned(*this);
  }

 private:
  int& clones_;
};

TEST(delegate_callable, function_object_is_cloned_whatever_it_is_given_as) {
  int clones = 0;
  cloned object(clones);
  const number_delegate from_variable(object);
  const number_delegate from_temporary{cloned(clones)};
  const number_delegate from_reference(std::ref(object));
  EXPECT_EQ(clones, 3);
  EXPECT_NE(dynamic_cast<const cloned*>(from_variable.target()), nullptr);
  EXPECT_NE(dynamic_cast<const cloned*>(from_temporary.target()), nullptr);
  EXPECT_NE(dynamic_cast<const cloned*>(from_reference.target()), nullptr);
}

struct derived_delegate : number_delegate {
  using number_delegate::number_delegate;
};

TEST(delegate_callable, delegate_is_copied_not_wrapped) {
  int clones = 0;
  number_delegate variable{cloned(clones)};
  const number_delegate copy(variable);
  EXPECT_NE(dynamic_cast<const cloned*>(copy.target()), nullptr);
  derived_delegate derived{cloned(clones)};
  const number_delegate sliced(derived);
  EXPECT_NE(dynamic_cast<const cloned*>(sliced.target()), nullptr);
}

/// Callable, and with its own way to become a delegate.
struct own_conversion {
  int operator()(int) const { return 1; }
  operator number_delegate() const {
    return number_delegate([](int) { return 2; });
  }
};

TEST(delegate_callable, conversion_of_a_class_is_preferred) {
  own_conversion variable;
  const number_delegate from_variable = variable;
  EXPECT_EQ(from_variable(0), 2);
  const number_delegate from_temporary = own_conversion();
  EXPECT_EQ(from_temporary(0), 2);
}

/// Its constructor takes a delegate: to ask whether it can be copied must not ask the delegate in turn.
struct listener {
  listener(const delegate_t<int(int)>& next) : next_(next) {}
  int operator()(int number) const { return next_(number) + 1; }

  number_delegate next_;
};

TEST(delegate_callable, callable_can_be_made_of_a_delegate) {
  const number_delegate chained = listener(twice);
  EXPECT_EQ(chained(4), 9);
}

struct failing_copy {
  failing_copy() = default;
  failing_copy(const failing_copy&) { throw std::runtime_error("no copy today"); }
  failing_copy& operator=(const failing_copy&) = delete;
  int operator()(int) const { return 0; }
};

TEST(delegate_callable, keeps_its_function_when_copying_the_new_one_fails) {
  number_delegate add = twice;
  const failing_copy failing;
  EXPECT_THROW(add = failing, std::runtime_error);
  EXPECT_EQ(add(1), 2);
}

TEST(delegate_callable, exception_passes_through) {
  const delegate_t<void()> raise = [] { throw std::runtime_error("raised"); };
  EXPECT_THROW(raise(), std::runtime_error);
}

TEST(delegate_callable, functions_are_equal_by_address) {
  EXPECT_TRUE(number_delegate(twice) == number_delegate(&twice));
  EXPECT_TRUE(number_delegate(twice) != number_delegate([](int number) { return 2 * number; }));
  int (*const one)(int) = twice;
  int (*const other)(int) = thrice;
  EXPECT_TRUE(number_delegate(one) != number_delegate(other));
}

struct adder {
  int operator()(int number) const { return number + step; }
  bool operator==(const adder&) const = default;
  int step;
};

TEST(delegate_callable, callables_are_equal_by_their_own_comparison) {
  EXPECT_TRUE(number_delegate(adder{1}) == number_delegate(adder{1}));
  EXPECT_TRUE(number_delegate(adder{1}) != number_delegate(adder{2}));
}

TEST(delegate_callable, lambda_without_state_equals_its_copy) {
  const number_delegate first = [](int number) { return number; };
  const number_delegate generic = [](auto number) { return number; };
  EXPECT_TRUE(first == number_delegate(first));
  EXPECT_TRUE(generic == number_delegate(generic));
  EXPECT_TRUE(first != generic);
}

TEST(delegate_callable, lambda_with_captures_equals_itself_only) {
  int step = 1;
  const number_delegate first = [&step](int number) { return number + step; };
  EXPECT_TRUE(first == first);
  EXPECT_TRUE(first != number_delegate(first));
}

TEST(delegate_callable, lambda_serves_as_an_assertion_hook) {
  std::string heard;
  ORVA_NAMESPACE::debug::set_assert_hook(
      [&heard](const char* text, const char*, unsigned int&) { heard = text; });
  const int pages = 0;
  ORVA_ASSERT(pages > 0);
  ORVA_NAMESPACE::debug::set_assert_hook(ORVA_NAMESPACE::types::nil);
  EXPECT_EQ(heard, "pages > 0");
}

}  // namespace
