#include "orva/types/variant.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <locale>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include "orva/types/internal/variant_value.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using strings::wide_string;
using types::nil;
using types::nil_t;
using types::variant;

std::string streamed(const variant& value) {
  std::ostringstream stream;
  stream << value;
  return stream.str();
}

template <typename Unit>
std::basic_string<Unit> widened(const std::string& text) {
  return {text.begin(), text.end()};
}

// What a variant can be made of.

enum plain { first_plain, second_plain };
enum class scoped { one };
struct incomplete;

template <typename T>
constexpr bool makes_variant = std::is_constructible_v<variant, T>;

static_assert(!makes_variant<void*> && !makes_variant<const void*>);
static_assert(!makes_variant<int*> && !makes_variant<const bool*> && !makes_variant<variant*>);
static_assert(!makes_variant<incomplete*> && !makes_variant<char**> && !makes_variant<volatile char*>);
static_assert(!makes_variant<unsigned char*> && !makes_variant<const signed char*>);
static_assert(!makes_variant<void (*)()> && !makes_variant<int (&)(int)>);
static_assert(!makes_variant<int std::string::*> && !makes_variant<void (std::string::*)()>);
static_assert(!makes_variant<std::nullptr_t>);
static_assert(!makes_variant<const char8_t*>);
static_assert(!makes_variant<scoped>);
static_assert(!makes_variant<const int (&)[3]>);
static_assert(makes_variant<const wchar_t*> == strings::wchar_is_utf16);
static_assert(makes_variant<std::wstring> == strings::wchar_is_utf16);
static_assert(makes_variant<char*> && makes_variant<strings::code_unit16*> &&
              makes_variant<strings::code_unit32*>);
static_assert(makes_variant<char (&)[4]>);

// A class may convert to a number, to text, or to `bool` itself, but not to `bool` through a pointer.
template <typename... Targets>
struct converts_to : converts_to<Targets>... {};
template <typename Target>
struct converts_to<Target> {
  operator Target() const;
};
struct text_and_pointer : std::string {
  operator const void*() const;
};
inline constexpr auto captureless = [] {};

static_assert(!makes_variant<decltype(captureless)>);
static_assert(!makes_variant<decltype([](int) { return 1; })>);
static_assert(!makes_variant<converts_to<void*>> && !makes_variant<converts_to<const int*>&>);
static_assert(!makes_variant<const converts_to<int converts_to<int>::*>&>);
static_assert(!makes_variant<converts_to<const unsigned char*>>);
static_assert(!makes_variant<converts_to<void (*)()>>);
static_assert(makes_variant<converts_to<const char*>> && makes_variant<converts_to<char*>>);
static_assert(makes_variant<converts_to<const strings::code_unit16*>>);
static_assert(makes_variant<converts_to<std::string>> && makes_variant<converts_to<ustring32>>);
static_assert(makes_variant<converts_to<bool>> && makes_variant<converts_to<int>>);
static_assert(makes_variant<converts_to<bool, void*>> && makes_variant<text_and_pointer>);
static_assert(makes_variant<std::vector<bool>::reference>);

// They are not converted to a variant, so that overloads with other parameters stay unambiguous.
static_assert(!std::is_convertible_v<decltype(captureless), variant>);

static_assert(std::is_nothrow_copy_constructible_v<variant> && std::is_nothrow_move_constructible_v<variant>);
static_assert(std::is_nothrow_copy_assignable_v<variant> && std::is_nothrow_move_assignable_v<variant>);

TEST(variant, keeps_the_type_of_every_argument) {
  EXPECT_EQ(variant().type(), typeid(nil_t));
  EXPECT_EQ(variant(nil).type(), typeid(nil_t));
  EXPECT_EQ(variant(true).type(), typeid(bool));
  EXPECT_EQ(variant(static_cast<signed char>(1)).type(), typeid(signed char));
  EXPECT_EQ(variant(static_cast<unsigned char>(1)).type(), typeid(unsigned char));
  EXPECT_EQ(variant(static_cast<short>(1)).type(), typeid(short));
  EXPECT_EQ(variant(static_cast<unsigned short>(1)).type(), typeid(unsigned short));
  EXPECT_EQ(variant(1).type(), typeid(int));
  EXPECT_EQ(variant(1U).type(), typeid(unsigned int));
  EXPECT_EQ(variant(1L).type(), typeid(long));
  EXPECT_EQ(variant(1UL).type(), typeid(unsigned long));
  EXPECT_EQ(variant(1LL).type(), typeid(long long));
  EXPECT_EQ(variant(1ULL).type(), typeid(unsigned long long));
  EXPECT_EQ(variant(1.0F).type(), typeid(float));
  EXPECT_EQ(variant(1.0).type(), typeid(double));
  EXPECT_EQ(variant(1.0L).type(), typeid(long double));
  EXPECT_EQ(variant("x").type(), typeid(ustring8));
  EXPECT_EQ(variant(widened<strings::code_unit16>("x").c_str()).type(), typeid(ustring16));
  EXPECT_EQ(variant(widened<strings::code_unit32>("x").c_str()).type(), typeid(ustring32));
  EXPECT_EQ(variant(std::string("x")).type(), typeid(std::string));
  EXPECT_EQ(variant(wide_string(1, 'x')).type(), typeid(wide_string));
  EXPECT_EQ(variant(ustring8("x")).type(), typeid(ustring8));
  EXPECT_EQ(variant(ustring16(1, 'x')).type(), typeid(ustring16));
  EXPECT_EQ(variant(ustring32(1, 'x')).type(), typeid(ustring32));
}

TEST(variant, characters_and_enumerations_are_stored_as_the_number_that_they_promote_to) {
  EXPECT_EQ(variant('a').type(), typeid(int));
  EXPECT_EQ(variant('a').as_string(), "97");
  EXPECT_EQ(variant(u'a').as_int32(), 97);
  EXPECT_EQ(variant(L'a').as_int32(), 97);
  EXPECT_EQ(variant(U'a').as_uint32(), 97U);
  EXPECT_EQ(variant(second_plain).as_int32(), 1);
  EXPECT_EQ(variant(std::vector<bool>{true}[0]).type(), typeid(bool));
}

TEST(variant, text_pointers_are_read_up_to_the_terminator) {
  EXPECT_EQ(variant("ab\0cd").as_utf8(), "ab");
  char buffer[] = "ab";
  EXPECT_EQ(variant(buffer).type(), typeid(ustring8));
  const strings::code_unit16 units16[] = {'a', 'b', 0, 'c', 0};
  EXPECT_EQ(variant(units16).as_utf8(), "ab");
  const strings::code_unit32 units32[] = {'a', 'b', 0, 'c', 0};
  EXPECT_EQ(variant(units32).as_utf8(), "ab");
}

TEST(variant, null_text_pointer_is_empty_text) {
  const variant narrow(static_cast<const char*>(nullptr));
  EXPECT_EQ(narrow.type(), typeid(ustring8));
  EXPECT_EQ(narrow.as_utf8(), "");
  EXPECT_EQ(variant(static_cast<const strings::code_unit16*>(nullptr)).type(), typeid(ustring16));
  EXPECT_EQ(variant(static_cast<strings::code_unit32*>(nullptr)).as_int32(), 0);
}

TEST(variant, strings_are_kept_whole_with_their_zeros) {
  const std::string text("a\0b", 3);
  EXPECT_EQ(variant(text).as_string(), text);
  EXPECT_EQ(variant(ustring8(text)).as_utf8(), text);
  EXPECT_EQ(variant(ustring8(text)).as_utf16().size(), 3U);
  EXPECT_EQ(variant(wide_string(3, 0)).as_wstring(), wide_string(3, 0));
}

TEST(variant, byte_string_and_ustring8_differ_in_type_only) {
  const variant byte_string(std::string("\xC3\xA9"));
  const variant utf8("\xC3\xA9");
  EXPECT_NE(byte_string.type(), utf8.type());
  EXPECT_EQ(byte_string.as_utf8(), utf8.as_utf8());
  EXPECT_EQ(byte_string.as_utf16(), utf8.as_utf16());
}

// Nil.

TEST(variant, default_is_nil) {
  const variant value;
  EXPECT_TRUE(value == nil);
  EXPECT_TRUE(nil == value);
  EXPECT_FALSE(value != nil);
  EXPECT_TRUE(value.equal(nil));
  EXPECT_TRUE(variant(nil) == nil);
}

TEST(variant, nil_has_no_number_and_no_text) {
  const variant value;
  EXPECT_EQ(value.as_int32(), 0);
  EXPECT_EQ(value.as_uint64(), 0U);
  EXPECT_FALSE(value.as_bool());
  EXPECT_EQ(value.as_double(), 0.0);
  EXPECT_TRUE(value.as_string().empty());
  EXPECT_TRUE(value.as_wstring().empty());
  EXPECT_TRUE(value.as_ustring().empty());
  EXPECT_TRUE(value.as_utf8().empty());
  EXPECT_TRUE(value.as_utf16().empty());
  EXPECT_TRUE(value.as_utf32().empty());
}

TEST(variant, nil_payload_answers_text_with_a_zero) {
  const types::variant_value_t<nil_t> payload(nil);
  EXPECT_EQ(payload.as_string(), "0");
  EXPECT_EQ(payload.as_wstring(), wide_string(1, '0'));
  EXPECT_EQ(payload.as_ustring(), wide_string(1, '0'));
  EXPECT_EQ(payload.as_utf8(), "0");
  EXPECT_EQ(payload.as_utf16(), ustring16(1, '0'));
  EXPECT_EQ(payload.as_utf32(), ustring32(1, '0'));
}

TEST(variant, empty_text_and_zero_are_not_nil) {
  EXPECT_TRUE(variant("") != nil);
  EXPECT_TRUE(variant(0) != nil);
  EXPECT_TRUE(variant(false) != nil);
}

// Sharing. The stream form of a wide string contains its address, which shows whether two variants share it.

TEST(variant, copy_shares_the_payload) {
  const variant original(wide_string(3, 'x'));
  const variant copy(original);
  EXPECT_EQ(streamed(copy), streamed(original));
  EXPECT_NE(streamed(variant(original.as_wstring())), streamed(original));
}

TEST(variant, assignment_shares_the_payload) {
  const variant original(wide_string(3, 'x'));
  variant assigned(1);
  EXPECT_EQ(&(assigned = original), &assigned);
  EXPECT_EQ(streamed(assigned), streamed(original));
  variant named(1);
  EXPECT_EQ(&named.assign(original), &named);
  EXPECT_EQ(streamed(named), streamed(original));
}

TEST(variant, assigned_from_itself_keeps_its_value) {
  variant value("text");
  const variant& same = value;
  value = same;
  EXPECT_EQ(value.as_utf8(), "text");
  value.assign(same);
  EXPECT_EQ(value.as_utf8(), "text");
  value = std::move(const_cast<variant&>(same));
  EXPECT_EQ(value.as_utf8(), "text");
}

TEST(variant, assigned_from_nil_leaves_its_copies_alone) {
  variant value("text");
  const variant copy = value;
  EXPECT_EQ(&(value = nil), &value);
  EXPECT_TRUE(value == nil);
  EXPECT_EQ(copy.as_utf8(), "text");
}

TEST(variant, assigned_from_any_value) {
  variant value;
  value = 5;
  EXPECT_EQ(value.type(), typeid(int));
  value = "five";
  EXPECT_EQ(value.as_utf8(), "five");
  value = 5.5;
  EXPECT_EQ(value.as_double(), 5.5);
}

TEST(variant, moved_from_reads_as_nil) {
  variant source("text");
  const variant target(std::move(source));
  EXPECT_EQ(target.as_utf8(), "text");
  EXPECT_TRUE(source == nil);
  EXPECT_EQ(source.type(), typeid(nil_t));
  EXPECT_EQ(source.as_int(), 0);
  EXPECT_EQ(source.as_utf16(), ustring16());
  EXPECT_EQ(streamed(source), "0");
  const variant copy_of_nothing(source);
  EXPECT_TRUE(copy_of_nothing == nil);
  source = 3;
  EXPECT_EQ(source.as_int(), 3);
}

TEST(variant, clone_is_a_payload_of_its_own) {
  const types::variant_value_t<ustring8> payload(ustring8("text"));
  EXPECT_FALSE(payload.is_created_dynamic());
  const memory::pointers::rc_pointer<types::variant_type> clone(payload.clone());
  EXPECT_TRUE(clone->is_created_dynamic());
  EXPECT_TRUE(clone->is_valid());
  EXPECT_EQ(clone->type(), typeid(ustring8));
  EXPECT_EQ(clone->as_utf8(), "text");
}

TEST(variant, shared_by_threads_that_copy_read_and_destroy) {
  std::vector<std::thread> threads;
  {
    const variant shared("1234");
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([held = shared] {
        for (int round = 0; round < 2000; ++round) {
          const variant copy(held);
          variant other;
          other = copy;
          ASSERT_EQ(other.as_int32(), 1234);
          ASSERT_EQ(copy.as_utf8(), "1234");
        }
      });
    }
  }
  for (auto& thread : threads) thread.join();
}

// Streams.

TEST(variant, writes_numbers_to_a_stream) {
  EXPECT_EQ(streamed(variant()), "0");
  EXPECT_EQ(streamed(true), "1");
  EXPECT_EQ(streamed(false), "0");
  EXPECT_EQ(streamed(static_cast<short>(-5)), "-5");
  EXPECT_EQ(streamed(-5), "-5");
  EXPECT_EQ(streamed(5U), "5");
  EXPECT_EQ(streamed(-5L), "-5");
  EXPECT_EQ(streamed(std::numeric_limits<unsigned long long>::max()), "18446744073709551615");
  EXPECT_EQ(streamed(1.5F), "1.5");
  EXPECT_EQ(streamed(1234567.0), "1.23457e+06");
  EXPECT_EQ(streamed(0.25L), "0.25");
}

TEST(variant, one_byte_types_are_characters_to_a_stream_and_numbers_as_text) {
  EXPECT_EQ(streamed(static_cast<signed char>(65)), "A");
  EXPECT_EQ(variant(static_cast<signed char>(65)).as_string(), "65");
  EXPECT_EQ(streamed(static_cast<unsigned char>(66)), "B");
  EXPECT_EQ(variant(static_cast<unsigned char>(66)).as_string(), "66");
}

TEST(variant, follows_the_flags_of_the_stream) {
  std::ostringstream stream;
  stream << std::boolalpha << variant(true) << ' ' << std::hex << variant(255) << ' ' << std::fixed
         << variant(1.5);
  EXPECT_EQ(stream.str(), "true ff 1.500000");
}

TEST(variant, stream_operations_return_the_stream) {
  std::ostringstream stream;
  EXPECT_EQ(&variant(1).ostream(stream), &stream);
  EXPECT_EQ(&(stream << variant(1)), &stream);
}

TEST(variant, utf8_stops_at_its_first_zero_byte_on_a_stream) {
  EXPECT_EQ(streamed(ustring8(std::string("ab\0cd", 5))), "ab");
}

TEST(variant, byte_string_is_written_to_a_stream_as_a_whole) {
  const std::string text("ab\0cd", 5);
  EXPECT_EQ(streamed(text), text);
}

TEST(variant, utf16_and_utf32_come_as_utf8_up_to_the_first_zero) {
  EXPECT_EQ(streamed(ustring16{0x20AC, 'x', 0, 'y'}), "\xE2\x82\xACx");
  EXPECT_EQ(streamed(ustring32{0x1F600, 'x', 0, 'y'}), "\xF0\x9F\x98\x80x");
}

TEST(variant, wide_string_shows_its_type_and_address_on_a_stream_instead_of_its_text) {
  const variant value(wide_string{'t', 'e', 'x', 't'});
  const std::string shown = streamed(value);
  const std::string start = std::string("< ") + typeid(wide_string).name() + " instance at ";
  ASSERT_EQ(shown.substr(0, start.size()), start);
  EXPECT_TRUE(std::regex_match(shown.substr(start.size()), std::regex("(0x)?[0-9a-fA-F]+ >"))) << shown;
  EXPECT_EQ(value.as_utf8(), "text");
}

// Text between the widths.

TEST(variant, every_text_payload_answers_in_every_width) {
  const ustring8 utf8 = "a\xC3\xA9\xE2\x82\xAC";
  const ustring16 utf16{'a', 0xE9, 0x20AC};
  const ustring32 utf32{'a', 0xE9, 0x20AC};
  for (const variant& value : {variant(utf8), variant(std::string(utf8)), variant(utf16),
                               variant(wide_string(utf16)), variant(utf32)}) {
    EXPECT_EQ(value.as_string(), utf8);
    EXPECT_EQ(value.as_wstring(), utf16);
    EXPECT_EQ(value.as_ustring(), utf16);
    EXPECT_EQ(value.as_utf8(), utf8);
    EXPECT_EQ(value.as_utf16(), utf16);
    EXPECT_EQ(value.as_utf32(), utf32);
  }
}

TEST(variant, bad_text_crosses_widths_as_the_transforms_have_it) {
  EXPECT_EQ(variant("a\x80").as_utf8(), "a\x80");
  EXPECT_EQ(variant("a\x80").as_utf16(), (ustring16{'-', '1'}));
  EXPECT_EQ(variant("a\x80").as_utf32(), (ustring32{'a', '?'}));
  EXPECT_EQ(variant(ustring16{0xD800}).as_utf8(), "-1");
  EXPECT_EQ(variant(ustring32{0xD800}).as_utf16(), (ustring16{'-', '1'}));
  EXPECT_EQ(variant(ustring32{0x10000}).as_utf16(), (ustring16{0xD840, 0xDC00}));
}

TEST(variant, utf16_that_begins_with_the_swapped_mark_gives_a_result) {
  const ORVA_NAMESPACE::strings::ustring16 text({0xFFFE, '7'});
  EXPECT_EQ(ORVA_NAMESPACE::types::variant(text).as_utf8(),
            "\xEF\xBF\xBE"
            "7");
  EXPECT_EQ(ORVA_NAMESPACE::types::variant(text).as_utf32(),
            ORVA_NAMESPACE::strings::ustring32({0xFFFE, '7'}));
  EXPECT_EQ(ORVA_NAMESPACE::types::variant(ORVA_NAMESPACE::strings::wide_string(text)).as_double(), 0.0);
}

TEST(variant, text_is_copied_out_never_lent) {
  const variant value("text");
  ustring8 text = value.as_utf8();
  text[0] = 'n';
  EXPECT_EQ(value.as_utf8(), "text");
}

TEST(variant, usable_while_statics_go) {
  // Destroyed after the test has ended.
  static variant survivor(std::string(100, 'x'));
  static variant emptied(std::move(survivor));
  EXPECT_TRUE(survivor == nil);
}

}  // namespace
