/// Messages as text: in streams, in sums with strings, and in GoogleTest.
#include <gtest/gtest.h>

#include <iomanip>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>

#include "orva/i18n/message.hpp"
#include "tests/support/debug_output.hpp"
#include "tests/support/wide_text.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using i18n::message_item;
using i18n::message_t;
using orva_test::utf16;
using orva_test::utf32;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;

const message_t greeting("greeting", {message_item("gr\xC3\xBC"), message_item("\xC3\x9F")});
const message_t with_placeholder("free", {message_item("Free: "), message_item("n", message_item::string)});

template <typename T>
std::string streamed(const T& value) {
  std::ostringstream stream;
  stream << value;
  return stream.str();
}

TEST(message_text, documentation_example) {
  const ustring8 name = "Ada";
  const message_t message({message_item("no room")});
  EXPECT_EQ(streamed(message), "no room");
  const auto before = "Error: " + message;
  static_assert(std::is_same_v<decltype(before), const ustring8>);
  EXPECT_EQ(before, "Error: no room");
  EXPECT_EQ(message + name, "no roomAda");
}

TEST(message_text, stream_gets_the_rendering_without_arguments) {
  EXPECT_EQ(streamed(greeting), "gr\xC3\xBC\xC3\x9F");
  EXPECT_EQ(streamed(message_t()), "");
  const std::string reported =
      orva_test::debug_output_of([] { EXPECT_EQ(streamed(with_placeholder), "Free: ?invalid?"); });
  EXPECT_EQ(reported, "Failure -- n\n");
}

TEST(message_text, is_one_field_of_the_stream) {
  std::ostringstream stream;
  stream << std::left << std::setfill('.') << std::setw(9) << greeting << '|';
  EXPECT_EQ(stream.str(), "gr\xC3\xBC\xC3\x9F...|");
}

template <typename Result, typename Text>
void expect_sums(const Text& text, const Result& text_first, const Result& message_first) {
  const auto sum = text + greeting;
  static_assert(std::is_same_v<decltype(sum), const Result>);
  EXPECT_EQ(sum, text_first);
  const auto other = greeting + text;
  static_assert(std::is_same_v<decltype(other), const Result>);
  EXPECT_EQ(other, message_first);
}

TEST(message_text, sum_with_bytes_of_any_class) {
  const ustring8 text_first = "a:gr\xC3\xBC\xC3\x9F", message_first =
                                                          "gr\xC3\xBC\xC3\x9F"
                                                          "a:";
  expect_sums("a:", text_first, message_first);
  expect_sums(static_cast<const char*>("a:"), text_first, message_first);
  expect_sums(std::string("a:"), text_first, message_first);
  expect_sums(std::string_view("a:"), text_first, message_first);
  expect_sums(ustring8("a:"), text_first, message_first);
}

TEST(message_text, sum_with_wide_text_has_its_width) {
  const ustring16 text16 = utf16(u"a:");
  const ustring16 first16 = utf16(u"a:gr\u00FC\u00DF"), last16 = utf16(
                                                            u"gr\u00FC\u00DF"
                                                            u"a:");
  expect_sums(text16, first16, last16);
  expect_sums(text16.c_str(), first16, last16);
  expect_sums(strings::wide_string(text16), first16, last16);
  expect_sums(ustring16::view(text16), first16, last16);
  const ustring32 text32 = utf32(U"a:");
  expect_sums(text32, utf32(U"a:gr\u00FC\u00DF"),
              utf32(U"gr\u00FC\u00DF"
                    U"a:"));
}

TEST(message_text, sum_of_many_pieces) {
  const ustring8 name = "Ada";
  const auto sum = name + ", " + greeting + " and " + greeting + '!';
  static_assert(std::is_same_v<decltype(sum), const ustring8>);
  EXPECT_EQ(sum, "Ada, gr\xC3\xBC\xC3\x9F and gr\xC3\xBC\xC3\x9F!");
}

TEST(message_text, wide_sum_of_a_message_in_bad_utf8_says_so) {
  const message_t bad({message_item("a\x80")});
  EXPECT_EQ(utf16(u"a:") + bad, utf16(u"a:-1"));
  EXPECT_EQ("a:" + bad, "a:a\x80");
}

template <typename Left, typename Right>
concept addable = requires(const Left& left, const Right& right) {
  left + right;
};

TEST(message_text, only_messages_are_operands) {
  static_assert(addable<message_t, std::string>);
  static_assert(!addable<types::nil_t, ustring8>);
  static_assert(!addable<message_t::item_list, ustring8>);
  static_assert(!addable<message_t, message_t>);
  static_assert(!addable<message_t, int>);
}

TEST(message_text, googletest_shows_the_text) {
  EXPECT_EQ(testing::PrintToString(greeting), "\"gr\xC3\xBC\xC3\x9F\"");
}

}  // namespace

namespace program {

/// A program that has these operators already keeps their results.
static std::ostream& operator<<(std::ostream& stream, const i18n::message_t& message) {
  return stream << message.name();
}
static strings::ustring8 operator+(const strings::ustring8& text, const i18n::message_t& message) {
  return text + message.name();
}

TEST(message_text, own_operators_of_a_program_are_preferred) {
  std::ostringstream stream;
  stream << greeting;
  EXPECT_EQ(stream.str(), "greeting");
  strings::ustring8 text = "a:";
  EXPECT_EQ(text + greeting, "a:greeting");
  EXPECT_EQ(strings::ustring8("b:") + greeting, "b:greeting");
}

}  // namespace program
