// What the modules of one program share: an exception raised in one is caught in another, any module may
// release a counted object, and there is one nil and one assertion hook.

#include <gtest/gtest.h>

#include <string>

#include "orva/config/config_document.hpp"
#include "orva/diagnostics/report.hpp"
#include "orva/exceptions/exception.hpp"
#include "orva/functor/member_function.hpp"
#include "orva/i18n/message_catalogs.hpp"
#include "orva/i18n/xmc_file_loader.hpp"
#include "orva/parser/xml_stream_parser.hpp"
#include "orva/parser/xml_writer.hpp"
#include "orva/serialization/frame_writer.hpp"
#include "orva/serialization/labeled_text_buffer.hpp"
#include "orva/serialization/serialize_text_buf.hpp"
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

/// EXPECT_EQ takes the addresses of what it compares.
TEST(modules, constants_of_exported_classes_have_addresses) {
  EXPECT_EQ(config::config_document::max_size, 0x7FFFFFFFu);
  EXPECT_EQ(diagnostics::report::default_max_findings, 1000u);
  EXPECT_EQ(i18n::message_item::invalid, "?invalid?");
  EXPECT_EQ(i18n::message_catalogs::max_directories, 10000u);
  EXPECT_EQ(i18n::_private::xmc_file_loader::max_include_depth, 64u);
  EXPECT_EQ(i18n::_private::xmc_file_loader::max_included_files, 10000u);
  EXPECT_EQ(parser::xml_stream_parser::smallest_file, 50);
  EXPECT_EQ(parser::xml_writer::longest_indentation, 256u);
  EXPECT_EQ(serialization::frame_writer::max_name_size, 48u);
  EXPECT_EQ(serialization::frame_writer::max_chunk_size, 65536u);
  EXPECT_EQ(serialization::labeled_text_buffer::max_reread, 0x100000u);
  EXPECT_EQ(serialization::serialize_text_buf::past_end, 0xFFFFFFFFu);
  EXPECT_GE(serialization::serialize_text_buf::max_size, 0x7FFFFFFFu);
}

}  // namespace
