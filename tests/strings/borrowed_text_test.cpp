/// Text is borrowed: a call with a standard string, a view or a pointer allocates as often as one with the
/// library's own string of that width.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <type_traits>

#include "orva/strings/case_mapping.hpp"
#include "orva/strings/characters.hpp"
#include "orva/strings/code_page.hpp"
#include "orva/strings/gh2.hpp"
#include "orva/strings/split.hpp"
#include "orva/strings/text_argument.hpp"
#include "orva/strings/unicode.hpp"
#include "orva/strings/unicode_case.hpp"
#include "orva/strings/wchar.hpp"
#include "orva/strings/well_formed.hpp"
#include "orva/system/path_argument.hpp"
#include "tests/support/counted_allocations.hpp"

namespace {

using namespace ORVA_NAMESPACE::strings;
using ORVA_NAMESPACE::system::path_argument;
using orva_test::allocations_of;

template <typename Unit>
class borrowed_text : public testing::Test {
 protected:
  void SetUp() override {
    // A replaced operator does not reach into the library on every platform.
    if (allocations_of([] { utf8_to_utf16(std::string_view("text too long to be stored inline")); }) == 0) {
      GTEST_SKIP() << "the library allocates for itself";
    }
  }

  /// Expects for each form of one text the result and the allocations of the library's string.
  template <typename Function>
  void expect_alike(Function function) const {
    const auto expected = function(whole);
    const int cost = allocations_of([&] { function(whole); });
    const auto expect = [&](const auto& form) {
      EXPECT_EQ(function(form), expected);
      EXPECT_EQ(allocations_of([&] { function(form); }), cost);
    };
    expect(static_cast<const std::basic_string<Unit>&>(whole));
    expect(std::basic_string_view<Unit>(whole));
    expect(whole.c_str());
  }

  const basic_ustring<Unit> whole{basic_ustring<Unit>(40, static_cast<Unit>('A')) +
                                  basic_ustring<Unit>(40, static_cast<Unit>(','))};
};

using units = testing::Types<char, code_unit16, code_unit32>;
class unit_names {
 public:
  template <typename Unit>
  static std::string GetName(int) {
    return std::to_string(8 * sizeof(Unit)) + "_bits";
  }
};
TYPED_TEST_SUITE(borrowed_text, units, unit_names);

/// UTF-8, so many times, in the encoding of `Unit`.
template <typename Unit>
basic_ustring<Unit> utf8_to(std::string_view text, int times) {
  ustring8 whole;
  for (; times > 0; --times) whole += text;
  if constexpr (std::is_same_v<Unit, char>) return whole;
  if constexpr (std::is_same_v<Unit, code_unit16>) return utf8_to_utf16(whole);
  if constexpr (std::is_same_v<Unit, code_unit32>) return utf8_to_utf32(whole);
}

TYPED_TEST(borrowed_text, no_transform_copies_its_text) {
  if constexpr (std::is_same_v<TypeParam, char>) {
    this->expect_alike([](const auto& text) { return utf8_to_utf16(text); });
    this->expect_alike([](const auto& text) { return utf8_to_utf32(text); });
  } else if constexpr (std::is_same_v<TypeParam, code_unit16>) {
    this->expect_alike([](const auto& text) { return utf16_to_utf8(text); });
    this->expect_alike([](const auto& text) { return utf16_to_utf32(text); });
    this->expect_alike([](const auto& text) { return swap_string_bytes_order(text); });
    this->expect_alike([](const auto& text) { return to_wchar(text); });
  } else {
    this->expect_alike([](const auto& text) { return utf32_to_utf8(text); });
    this->expect_alike([](const auto& text) { return utf32_to_utf16(text); });
  }
  this->expect_alike([](const auto& text) { return remove_BOM(text); });
}

TYPED_TEST(borrowed_text, measuring_copies_nothing) {
  this->expect_alike([](const auto& text) { return string_length(text); });
  EXPECT_EQ(allocations_of([&] { string_length(this->whole); }), 0);
  if constexpr (!std::is_same_v<TypeParam, code_unit32>) {
    this->expect_alike([](const auto& text) { return character_index(text, 60); });
    EXPECT_EQ(allocations_of([&] { character_index(this->whole, 60); }), 0);
  }
}

TYPED_TEST(borrowed_text, validation_and_caseless_comparison_take_no_memory) {
  this->expect_alike([](const auto& text) { return is_well_formed(text); });
  EXPECT_EQ(allocations_of([&] { static_cast<void>(is_well_formed(this->whole)); }), 0);
  EXPECT_EQ(allocations_of([&] { static_cast<void>(first_malformed(this->whole)); }), 0);
  // 600 characters that fold to two each.
  const basic_ustring<TypeParam> sharp = utf8_to<TypeParam>("\xC3\x9F", 600);
  const basic_ustring<TypeParam> letters = utf8_to<TypeParam>("sS", 600);
  EXPECT_TRUE(equal_caseless(sharp, letters));
  EXPECT_EQ(allocations_of([&] { static_cast<void>(equal_caseless(sharp, letters)); }), 0);
}

TYPED_TEST(borrowed_text, string_tools_copy_it_only_into_their_result) {
  this->expect_alike([](const auto& text) { return to_lower(text); });
  this->expect_alike([](const auto& text) { return to_upper(text); });
  this->expect_alike([](const auto& text) { return lower_case(text, 1, 3); });
  this->expect_alike([](const auto& text) { return unicode_lower(text); });
  this->expect_alike([](const auto& text) { return unicode_upper(text); });
  EXPECT_EQ(allocations_of([&] { to_lower(this->whole); }), 1);
  const std::basic_string_view<TypeParam> view(this->whole);
  const auto delimiter = view.substr(79);
  static_assert(std::is_same_v<piece_of<decltype(view)>, basic_ustring<TypeParam>>);
  EXPECT_EQ(split_string(view, delimiter, 0), split_string(this->whole, delimiter, 0));
  EXPECT_EQ(allocations_of([&] { split_string(view, delimiter, 0); }),
            allocations_of([&] { split_string(this->whole, delimiter, 0); }));
}

TYPED_TEST(borrowed_text, code_pages_copy_nothing) {
  this->expect_alike([](const auto& text) { return code_page(code_page::cp_1252).encode(text); });
  if constexpr (std::is_same_v<TypeParam, char>) {
    this->expect_alike([](const auto& bytes) { return code_page(code_page::cp_1252).as_utf8(bytes); });
    this->expect_alike([](const auto& bytes) { return code_page(code_page::cp_1252).as_utf16(bytes); });
    this->expect_alike([](const auto& bytes) { return code_page(code_page::cp_1252).as_utf32(bytes); });
    this->expect_alike([](const auto& bytes) { return code_page(code_page::cp_1252).as_ustring(bytes); });
    this->expect_alike([](const auto& bytes) { return gh2::from_ansi(bytes); });
  }
  if constexpr (std::is_same_v<TypeParam, code_unit16>) {
    this->expect_alike([](const auto& text) { return gh2::to_ansi(text); });
    this->expect_alike([](const auto& text) { return gh2::tolower(text); });
  }
}

TYPED_TEST(borrowed_text, arguments_copy_no_text_of_their_width) {
  this->expect_alike([](const auto& text) { return text_argument(text).view().size(); });
  this->expect_alike([](const auto& text) { return path_argument(text).view().size(); });
  if constexpr (std::is_same_v<TypeParam, char>) {
    EXPECT_EQ(allocations_of([&] { text_argument(this->whole.c_str()).view(); }), 0);
  }
  if constexpr (std::is_same_v<TypeParam, code_unit16>) {
    EXPECT_EQ(allocations_of([&] { path_argument(this->whole.c_str()).view(); }), 0);
  }
}

}  // namespace
