#include "orva/strings/ustring.hpp"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "orva/strings/ustring_for.hpp"

namespace {

using namespace ORVA_NAMESPACE::strings;

template <typename Ustring>
using unit_of = typename Ustring::value_type;
template <typename Ustring>
using standard_of = std::basic_string<unit_of<Ustring>>;

template <typename Ustring>
class ustring_class : public testing::Test {
 protected:
  /// The same characters in the width under test.
  static standard_of<Ustring> text(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }
};
using widths = testing::Types<ustring8, ustring16, ustring32>;
TYPED_TEST_SUITE(ustring_class, widths);

TYPED_TEST(ustring_class, has_no_members_but_the_standard_string) {
  using standard = standard_of<TypeParam>;
  static_assert(sizeof(TypeParam) == sizeof(standard));
  static_assert(std::is_base_of_v<standard, TypeParam>);
  static_assert(!std::is_polymorphic_v<TypeParam>);
}

TYPED_TEST(ustring_class, moves_without_failing) {
  static_assert(std::is_nothrow_move_constructible_v<TypeParam>);
  static_assert(std::is_nothrow_move_assignable_v<TypeParam>);
  static_assert(std::is_nothrow_default_constructible_v<TypeParam>);
}

TYPED_TEST(ustring_class, default_is_empty) {
  const TypeParam empty;
  EXPECT_TRUE(empty.empty());
  EXPECT_EQ(empty.size(), 0u);
  EXPECT_EQ(*empty.c_str(), 0u);
}

TYPED_TEST(ustring_class, is_made_from_a_zero_terminated_pointer) {
  const auto source = this->text("hello");
  const TypeParam made = source.c_str();
  EXPECT_EQ(made, source);
}

TYPED_TEST(ustring_class, is_made_from_a_pointer_and_a_length) {
  const auto source = this->text(std::string_view("a\0b", 3));
  EXPECT_EQ(TypeParam(source.data(), 3).size(), 3u);
  EXPECT_EQ(TypeParam(source.data()).size(), 1u);
}

TYPED_TEST(ustring_class, is_made_from_a_range_a_repetition_and_a_list) {
  using unit = unit_of<TypeParam>;
  const std::vector<unit> units{'a', 'b'};
  EXPECT_EQ(TypeParam(units.begin(), units.end()), this->text("ab"));
  EXPECT_EQ(TypeParam(3, unit('x')), this->text("xxx"));
  EXPECT_EQ((TypeParam{unit('a'), unit('b')}), this->text("ab"));
}

TYPED_TEST(ustring_class, is_made_from_a_part_of_another) {
  const TypeParam source(this->text("hello"));
  EXPECT_EQ(TypeParam(source, 1, 3), this->text("ell"));
}

TYPED_TEST(ustring_class, is_made_from_a_view_when_asked) {
  using view = typename TypeParam::view;
  const auto source = this->text("hello");
  EXPECT_EQ(TypeParam(view(source)), source);
  static_assert(!std::is_convertible_v<view, TypeParam>);
}

TYPED_TEST(ustring_class, converts_from_and_to_the_standard_string) {
  using standard = standard_of<TypeParam>;
  static_assert(std::is_convertible_v<standard, TypeParam>);
  static_assert(std::is_convertible_v<TypeParam, standard>);
  static_assert(std::is_convertible_v<TypeParam&, standard&>);
  const standard source = this->text("text");
  const TypeParam there = source;
  const standard back = there;
  EXPECT_EQ(back, source);
}

TYPED_TEST(ustring_class, moves_the_units_from_and_to_the_standard_string) {
  auto source = this->text(std::string(1000, 'x'));
  const auto* units = source.data();
  TypeParam there = std::move(source);
  EXPECT_EQ(there.data(), units);
  const standard_of<TypeParam> back = std::move(there);
  EXPECT_EQ(back.data(), units);
}

TYPED_TEST(ustring_class, stays_a_type_of_its_own) {
  static_assert(!std::is_same_v<TypeParam, standard_of<TypeParam>>);
}

TYPED_TEST(ustring_class, is_assigned_from_everything_it_is_made_from) {
  using unit = unit_of<TypeParam>;
  const auto source = this->text("source");
  TypeParam target;
  target = source;
  EXPECT_EQ(target, source);
  target = source.c_str();
  EXPECT_EQ(target, source);
  target = typename TypeParam::view(source);
  EXPECT_EQ(target, source);
  target = unit('x');
  EXPECT_EQ(target, this->text("x"));
  target = {unit('a'), unit('b')};
  EXPECT_EQ(target, this->text("ab"));
  target = {};
  EXPECT_TRUE(target.empty());
}

TYPED_TEST(ustring_class, copies_are_independent) {
  TypeParam source(this->text("source"));
  const TypeParam copy(source);
  source.push_back('!');
  EXPECT_EQ(copy, this->text("source"));
}

TYPED_TEST(ustring_class, has_the_standard_operations) {
  TypeParam edited(this->text("hello"));
  edited.append(this->text(" world"));
  edited.insert(0, this->text("> "));
  edited.replace(2, 1, this->text("J"));
  edited.push_back('!');
  EXPECT_EQ(edited, this->text("> Jello world!"));
  edited.erase(0, 2);
  EXPECT_EQ(edited.find(this->text("o"), 5), 7u);
  EXPECT_EQ(edited.find('z'), TypeParam::npos);
  EXPECT_EQ(edited[0], static_cast<unit_of<TypeParam>>('J'));
  edited.resize(5);
  EXPECT_EQ(edited, this->text("Jello"));
  edited += this->text("s");
  edited.reserve(100);
  EXPECT_GE(edited.capacity(), 100u);
  edited.clear();
  EXPECT_TRUE(edited.empty());
}

TYPED_TEST(ustring_class, compares_with_its_own_kind_the_standard_string_and_pointers) {
  const auto plain = this->text("abc");
  const TypeParam text(plain), same(plain), later(this->text("abd"));
  EXPECT_TRUE(text == same && !(text != same));
  EXPECT_TRUE(text == plain && plain == text);
  EXPECT_TRUE(text == plain.c_str() && plain.c_str() == text);
  EXPECT_TRUE(text < later && later > text && text <= same && text >= same);
  EXPECT_LT(text.compare(later), 0);
  EXPECT_TRUE(text != later);
}

TYPED_TEST(ustring_class, order_is_by_unit_value_and_then_by_length) {
  const std::vector<TypeParam> in_order{TypeParam(),     this->text("A"), this->text("AB"),
                                        this->text("B"), this->text("a"), this->text("aa")};
  for (std::size_t i = 0; i < in_order.size(); ++i) {
    for (std::size_t j = 0; j < in_order.size(); ++j) EXPECT_EQ(in_order[i] < in_order[j], i < j);
  }
}

TYPED_TEST(ustring_class, is_a_key_of_maps_and_sets) {
  std::map<TypeParam, int> ordered{{this->text("b"), 2}, {this->text("a"), 1}};
  EXPECT_EQ(ordered.begin()->second, 1);
  EXPECT_EQ(ordered[this->text("b").c_str()], 2);
  std::unordered_map<TypeParam, int> hashed{{this->text("b"), 2}};
  EXPECT_EQ(hashed.at(this->text("b")), 2);
}

TYPED_TEST(ustring_class, hash_is_that_of_the_same_units) {
  const auto plain = this->text("the same units");
  EXPECT_EQ(std::hash<TypeParam>()(plain), std::hash<TypeParam>()(TypeParam(plain)));
  if constexpr (std::is_default_constructible_v<std::hash<standard_of<TypeParam>>>) {
    EXPECT_EQ(std::hash<TypeParam>()(plain), std::hash<standard_of<TypeParam>>()(plain));
  }
}

TYPED_TEST(ustring_class, substr_keeps_the_class) {
  const TypeParam text(this->text("hello"));
  static_assert(std::is_same_v<decltype(text.substr(1)), TypeParam>);
  EXPECT_EQ(text.substr(), text);
  EXPECT_EQ(text.substr(1), this->text("ello"));
  EXPECT_EQ(text.substr(1, 3), this->text("ell"));
  EXPECT_EQ(text.substr(3, 100), this->text("lo"));
  EXPECT_TRUE(text.substr(5).empty());
  EXPECT_TRUE(text.substr(2, 0).empty());
}

TYPED_TEST(ustring_class, substr_after_the_end_throws_invalid_string_position) {
  for (const TypeParam& text : {TypeParam(), TypeParam(this->text("hello"))}) {
    for (const auto position : {text.size() + 1, TypeParam::npos}) {
      try {
        text.substr(position);
        FAIL();
      } catch (const std::out_of_range& failure) {
        EXPECT_STREQ(failure.what(), "invalid string position");
      }
    }
  }
}

TYPED_TEST(ustring_class, longer_than_possible_is_the_standard_length_error) {
  TypeParam text;
  EXPECT_THROW(text.resize(text.max_size() + 1), std::length_error);
}

TYPED_TEST(ustring_class, sum_keeps_the_class_whatever_the_other_side_is) {
  using unit = unit_of<TypeParam>;
  const TypeParam text(this->text("ab"));
  const auto plain = this->text("cd");
  static_assert(std::is_same_v<decltype(text + text), TypeParam>);
  static_assert(std::is_same_v<decltype(text + plain), TypeParam>);
  static_assert(std::is_same_v<decltype(plain + text), TypeParam>);
  static_assert(std::is_same_v<decltype(text + plain.c_str()), TypeParam>);
  static_assert(std::is_same_v<decltype(plain.c_str() + text), TypeParam>);
  static_assert(std::is_same_v<decltype(text + unit('x')), TypeParam>);
  static_assert(std::is_same_v<decltype(unit('x') + text), TypeParam>);
  static_assert(std::is_same_v<decltype(TypeParam() + TypeParam()), TypeParam>);
  static_assert(std::is_same_v<decltype(text + typename TypeParam::view(plain)), TypeParam>);
  EXPECT_EQ(text + text, this->text("abab"));
  EXPECT_EQ(text + plain, this->text("abcd"));
  EXPECT_EQ(plain + text, this->text("cdab"));
  EXPECT_EQ(text + plain.c_str(), this->text("abcd"));
  EXPECT_EQ(plain.c_str() + text, this->text("cdab"));
  EXPECT_EQ(text + unit('x'), this->text("abx"));
  EXPECT_EQ(unit('x') + text, this->text("xab"));
  EXPECT_EQ(TypeParam(text) + TypeParam(text), this->text("abab"));
  EXPECT_EQ(TypeParam(text) + plain + unit('x') + text, this->text("abcdxab"));
}

TYPED_TEST(ustring_class, sum_leaves_its_sides_alone) {
  TypeParam left(this->text(std::string(100, 'l')));
  const TypeParam right(this->text("r"));
  const TypeParam joined = left + right;
  EXPECT_EQ(left.size(), 100u);
  EXPECT_EQ(joined.size(), 101u);
  EXPECT_EQ((left + left).size(), 200u);
}

TYPED_TEST(ustring_class, sum_with_a_temporary_grows_it) {
  TypeParam left;
  left.reserve(1000);
  left.append(this->text("left"));
  const auto* units = left.data();
  const TypeParam joined = std::move(left) + this->text(" right");
  EXPECT_EQ(joined.data(), units);
}

TYPED_TEST(ustring_class, sum_with_a_temporary_may_have_a_part_of_it_on_the_right) {
  for (const std::string& units : {std::string("short"), std::string(100, 'l')}) {
    const TypeParam whole(this->text(units));
    TypeParam left = whole;
    EXPECT_EQ(std::move(left) + left, whole + whole);
    left = whole;
    EXPECT_EQ(std::move(left) + left.c_str(), whole + whole);
    left = whole;
    EXPECT_EQ(std::move(left) + typename TypeParam::view(left).substr(1), whole + whole.substr(1));
    left = whole;
    EXPECT_EQ(std::move(left) + left[0], whole + whole.substr(0, 1));
  }
}

TYPED_TEST(ustring_class, zero_units_are_text_like_others) {
  const TypeParam text(this->text(std::string_view("a\0b", 3)));
  EXPECT_EQ((text + text).size(), 6u);
  EXPECT_EQ(text.substr(1).size(), 2u);
}

TEST(ustring, widths_do_not_convert_into_each_other) {
  static_assert(!std::is_constructible_v<ustring8, ustring16>);
  static_assert(!std::is_constructible_v<ustring8, ustring32>);
  static_assert(!std::is_constructible_v<ustring16, ustring8>);
  static_assert(!std::is_constructible_v<ustring16, ustring32>);
  static_assert(!std::is_constructible_v<ustring32, ustring8>);
  static_assert(!std::is_constructible_v<ustring32, ustring16>);
  static_assert(!std::is_assignable_v<ustring8&, ustring16> && !std::is_assignable_v<ustring16&, ustring8>);
}

TEST(ustring, wide_string_and_ustring16_are_one_text_in_two_types) {
  static_assert(std::is_convertible_v<wide_string, ustring16> &&
                std::is_convertible_v<ustring16, wide_string>);
  static_assert(!std::is_same_v<wide_string, ustring16>);
}

TEST(ustring, wchar_of_32_bits_is_not_taken_silently) {
  static_assert(wchar_is_utf16 == std::is_constructible_v<ustring16, const wchar_t*>);
  static_assert(!std::is_constructible_v<ustring8, const wchar_t*>);
  static_assert(!std::is_constructible_v<ustring32, const wchar_t*>);
}

TEST(ustring, code_units_have_their_widths) {
  static_assert(sizeof(ustring8::value_type) == 1);
  static_assert(sizeof(ustring16::value_type) == 2);
  static_assert(sizeof(ustring32::value_type) == 4);
}

TEST(ustring, literals_work) {
  const ustring8 text = "literal";
  EXPECT_EQ(text + " and " + text, "literal and literal");
  EXPECT_EQ("more " + text, "more literal");
  EXPECT_EQ(text, "literal");
}

/// Not one of these is UTF-8.
const std::vector<std::string> invalid_utf8{
    "\x80", "\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF", "\xFE\xFF", "a\xE2\x82"};

TEST(ustring, invalid_utf8_is_stored_untouched) {
  for (const auto& bytes : invalid_utf8) {
    const ustring8 text(bytes);
    EXPECT_EQ(std::string(text), bytes);
    EXPECT_EQ(std::string(ustring8(text)), bytes);
    EXPECT_EQ(std::string(text + text), bytes + bytes);
    EXPECT_EQ(std::string(text.substr(0, 1)), bytes.substr(0, 1));
  }
}

TEST(ustring, invalid_utf8_sorts_by_bytes) {
  std::set<ustring8> texts(invalid_utf8.begin(), invalid_utf8.end());
  std::set<std::string> plain(invalid_utf8.begin(), invalid_utf8.end());
  EXPECT_TRUE(std::equal(texts.begin(), texts.end(), plain.begin(), plain.end()));
  EXPECT_LT(ustring8("z"), ustring8("\xC3\xA4")) << "bytes compare as unsigned";
}

TEST(ustring, lone_surrogates_are_stored_untouched) {
  const code_unit16 units[] = {0xDC00, 0xD800, 'a'};
  const ustring16 text(units, 3);
  EXPECT_EQ(text.size(), 3u);
  EXPECT_EQ(text[0], units[0]);
}

TEST(ustring, order_of_16_bit_units_is_by_unit_and_not_by_character) {
  const code_unit16 high_pair[] = {0xD83D, 0xDE00, 0};  // U+1F600
  const code_unit16 private_use[] = {0xE000, 0};
  EXPECT_LT(ustring16(high_pair), ustring16(private_use));
}

TEST(ustring, prints_its_bytes) {
  std::ostringstream out;
  out << ustring8("gr\xC3\xBC\xC3\x9F");
  EXPECT_EQ(out.str(), "gr\xC3\xBC\xC3\x9F");
}

TEST(ustring_for, names_the_string_of_the_same_width) {
  static_assert(std::is_same_v<ustring_for<const char*>, ustring8>);
  static_assert(std::is_same_v<ustring_for<char[4]>, ustring8>);
  static_assert(std::is_same_v<ustring_for<std::string>, ustring8>);
  static_assert(std::is_same_v<ustring_for<ustring8>, ustring8>);
  static_assert(std::is_same_v<ustring_for<const ustring8&>, ustring8>);
  static_assert(std::is_same_v<ustring_for<const code_unit16*>, ustring16>);
  static_assert(std::is_same_v<ustring_for<wide_string>, ustring16>);
  static_assert(std::is_same_v<ustring_for<ustring16>, ustring16>);
  static_assert(std::is_same_v<ustring_for<const code_unit32*>, ustring32>);
  static_assert(std::is_same_v<ustring_for<ustring32>, ustring32>);
  static_assert(std::is_same_v<ustring_for<std::string_view>, ustring8>);
  static_assert(std::is_same_v<ustring_for<ustring16::view>, ustring16>);
  static_assert(std::is_same_v<ustring_for<ustring32::view>, ustring32>);
  static_assert(any_text<const char*> && any_text<ustring16> && any_text<ustring32>);
  static_assert(!any_text<int> && !any_text<bool> && !any_text<std::vector<char>>);
}

}  // namespace
