#include "orva/exceptions/exception.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <exception>
#include <memory>
#include <string>
#include <type_traits>

namespace {

using namespace ORVA_NAMESPACE::exceptions;

const std::string long_text(5000, 'm');

template <typename Class, typename Base>
struct row {
  using type = Class;
  using base = Base;
};

/// Every class that can be raised, with its base.
using table = testing::Types<
    row<logic_error, exception>, row<invalid_argument_value, logic_error>, row<length_error, logic_error>,
    row<out_of_range, logic_error>, row<runtime_error, exception>, row<empty_error, runtime_error>,
    row<full_error, runtime_error>, row<overflow_error, runtime_error>, row<underflow_error, runtime_error>>;

template <typename Row>
class exception_class : public testing::Test {};
TYPED_TEST_SUITE(exception_class, table);

template <typename Raised>
void expect_place(const Raised& raised, unsigned int line, const char* file, const char* function) {
  EXPECT_EQ(raised.error_state().line(), line);
  EXPECT_STREQ(raised.error_state().file(), file);
  EXPECT_STREQ(raised.error_state().function(), function);
}

TYPED_TEST(exception_class, has_its_base_and_no_other) {
  using type = typename TypeParam::type;
  using base = typename TypeParam::base;
  static_assert(std::is_base_of_v<base, type> && std::is_base_of_v<exception, type>);
  static_assert(!std::is_base_of_v<std::exception, type>);
  constexpr bool logic = std::is_base_of_v<logic_error, type>;
  constexpr bool runtime = std::is_base_of_v<runtime_error, type>;
  static_assert(logic != runtime);
  static_assert(!std::is_abstract_v<type> && std::has_virtual_destructor_v<type>);
}

TYPED_TEST(exception_class, adds_no_field_of_its_own) {
  constexpr auto base_size =
      std::is_base_of_v<logic_error, typename TypeParam::type> ? sizeof(logic_error) : sizeof(runtime_error);
  static_assert(sizeof(typename TypeParam::type) == base_size);
}

TYPED_TEST(exception_class, keeps_message_and_place) {
  const typename TypeParam::type raised("the text", 42, "strings/code_page", ORVA_QUALIFIED("strings::f"));
  EXPECT_STREQ(raised.message(), "the text");
  expect_place(raised, 42, "strings/code_page", ORVA_QUALIFIED("strings::f"));
}

TYPED_TEST(exception_class, takes_over_the_state_of_another) {
  const overflow_error first("first", 7, "file", "function");
  const typename TypeParam::type second("second", first.error_state());
  EXPECT_STREQ(second.message(), "second");
  expect_place(second, 7, "file", "function");
}

TYPED_TEST(exception_class, copy_has_text_and_place_in_its_own_storage) {
  using type = typename TypeParam::type;
  auto source = std::make_unique<type>(long_text, 7, "file", "function");
  const type copy(*source);
  EXPECT_NE(copy.message(), source->message());
  EXPECT_NE(copy.error_state().file(), source->error_state().file());
  source.reset();
  EXPECT_EQ(copy.message(), long_text);
  expect_place(copy, 7, "file", "function");
}

TYPED_TEST(exception_class, assignment_replaces_text_and_place) {
  using type = typename TypeParam::type;
  type target("old", 1, "a much longer file name than the new one", "old::function");
  auto source = std::make_unique<type>(long_text, 7, "file", "f");
  type& result = target = *source;
  source.reset();
  EXPECT_EQ(&result, &target);
  EXPECT_EQ(target.message(), long_text);
  expect_place(target, 7, "file", "f");
}

TYPED_TEST(exception_class, move_leaves_the_source_as_it_was) {
  using type = typename TypeParam::type;
  type source(long_text, 7, "file", "f");
  const type moved(std::move(source));
  EXPECT_EQ(moved.message(), long_text);
  EXPECT_EQ(source.message(), long_text);
}

template <typename Raised>
void raise() {
  throw Raised("raised", 9, "file", "function");
}

TYPED_TEST(exception_class, is_caught_as_the_root_with_its_text) {
  try {
    raise<typename TypeParam::type>();
    FAIL();
  } catch (const exception& caught) {
    EXPECT_STREQ(caught.message(), "raised");
    EXPECT_EQ(typeid(caught), typeid(typename TypeParam::type));
    expect_place(caught, 9, "file", "function");
  }
}

TYPED_TEST(exception_class, is_not_caught_as_a_standard_exception) {
  try {
    raise<typename TypeParam::type>();
    FAIL();
  } catch (const std::exception&) {
    FAIL() << "no class derives from std::exception";
  } catch (...) {
  }
}

TYPED_TEST(exception_class, is_caught_by_its_branch_only) {
  constexpr bool logic = std::is_base_of_v<logic_error, typename TypeParam::type>;
  try {
    raise<typename TypeParam::type>();
    FAIL();
  } catch (const logic_error&) {
    EXPECT_TRUE(logic);
  } catch (const runtime_error&) {
    EXPECT_FALSE(logic);
  }
}

TEST(exception, root_is_abstract) {
  static_assert(std::is_abstract_v<exception>);
  static_assert(!std::is_polymorphic_v<exception::state>);
}

/// A branch of the hierarchy that an application derives, with a message that is not a string.
class fixed_text_error : public exception {
 public:
  using exception::exception;

 private:
  const char* get_message() const override { return "always the same"; }
};

TEST(exception, application_can_derive_from_the_root) {
  const fixed_text_error raised(3, "file", "function");
  const fixed_text_error again(raised.error_state());
  const exception& seen = again;
  EXPECT_STREQ(seen.message(), "always the same");
  EXPECT_EQ(seen.error_state().line(), 3u);
}

TEST(exception, message_stops_at_a_zero_byte_of_the_string) {
  EXPECT_STREQ(logic_error(std::string("a\0b", 3), 1, "", "").message(), "a");
}

TEST(exception_state, null_texts_are_empty) {
  const exception::state state(5, nullptr, nullptr);
  EXPECT_EQ(state.line(), 5u);
  EXPECT_STREQ(state.file(), "");
  EXPECT_STREQ(state.function(), "");
}

TEST(exception_state, one_text_may_be_null) {
  const exception::state only_file(5, "file", nullptr);
  EXPECT_STREQ(only_file.file(), "file");
  EXPECT_STREQ(only_file.function(), "");
  const exception::state only_function(5, nullptr, "function");
  EXPECT_STREQ(only_function.file(), "");
  EXPECT_STREQ(only_function.function(), "function");
}

TEST(exception_state, line_has_32_bits) {
  EXPECT_EQ(exception::state(0xFFFFFFFF, "", "").line(), 0xFFFFFFFF);
  EXPECT_EQ(exception::state(0, "", "").line(), 0u);
}

TEST(exception_state, texts_live_in_the_object) {
  const std::string file = "file", function = "function";
  const exception::state state(5, file.c_str(), function.c_str());
  const auto* begin = reinterpret_cast<const char*>(&state);
  for (const char* text : {state.file(), state.function()}) {
    EXPECT_GE(text, begin);
    EXPECT_LT(text, begin + sizeof state);
  }
  EXPECT_NE(state.file(), file.c_str());
}

TEST(exception_state, text_of_every_length_fits_or_is_cut_at_255_characters) {
  for (std::size_t length = 0; length < 600; ++length) {
    const std::string text(length, 'x');
    const exception::state state(1, text.c_str(), text.c_str());
    const std::string expected(std::min<std::size_t>(length, 255), 'x');
    ASSERT_EQ(state.file(), expected);
    ASSERT_EQ(state.function(), expected);
    const exception::state copy(state);
    ASSERT_EQ(copy.file(), expected);
    ASSERT_EQ(copy.function(), expected);
  }
}

TEST(exception_state, copy_of_empty_texts_is_empty) {
  const exception::state source(5, nullptr, "");
  const exception::state copy(source);
  EXPECT_EQ(copy.line(), 5u);
  EXPECT_STREQ(copy.file(), "");
  EXPECT_STREQ(copy.function(), "");
}

TEST(exception_state, assignment_copies_the_arrays_whole) {
  exception::state target(1, "a long old file name", "a long old function name");
  const exception::state source(2, "f", nullptr);
  target = source;
  EXPECT_EQ(target.line(), 2u);
  EXPECT_EQ(std::memcmp(target.file(), source.file(), 256), 0);
  EXPECT_EQ(std::memcmp(target.function(), source.function(), 256), 0);
}

TEST(exception_state, assignment_to_itself_changes_nothing) {
  exception::state state(1, "file", "function");
  const exception::state& same = state;
  state = same;
  EXPECT_STREQ(state.file(), "file");
  EXPECT_STREQ(state.function(), "function");
}

TEST(exception_state, making_and_copying_cannot_throw) {
  static_assert(std::is_nothrow_constructible_v<exception::state, unsigned int, const char*, const char*>);
  static_assert(std::is_nothrow_copy_constructible_v<exception::state>);
  static_assert(std::is_nothrow_copy_assignable_v<exception::state>);
}

}  // namespace
