// Case mapping and folding compared with ICU, for every character that both know and for random texts.
#include <gtest/gtest.h>
#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "orva/strings/unicode.hpp"
#include "orva/strings/unicode_case.hpp"
#include "tests/support/random_engine.hpp"

namespace {

using namespace orva::strings;
using utf16 = std::u16string;

struct rules_of_icu {
  case_rules rules;
  const char* locale;
  std::uint32_t fold_options;
};

constexpr rules_of_icu all_rules[] = {
    {case_rules::standard, "", U_FOLD_CASE_DEFAULT},
    {case_rules::turkic, "tr", U_FOLD_CASE_EXCLUDE_SPECIAL_I},
    {case_rules::lithuanian, "lt", U_FOLD_CASE_DEFAULT},
};

template <typename Map>
utf16 by_icu(const utf16& text, Map map) {
  utf16 result(3 * text.size() + 8, u'\0');
  UErrorCode error = U_ZERO_ERROR;
  const std::int32_t size = map(result.data(), static_cast<std::int32_t>(result.size()), text.data(),
                                static_cast<std::int32_t>(text.size()), &error);
  EXPECT_TRUE(U_SUCCESS(error));
  result.resize(static_cast<std::size_t>(size));
  return result;
}

utf16 lower_by_icu(const utf16& text, const rules_of_icu& rules) {
  return by_icu(text, [&](auto* to, auto room, auto* from, auto size, auto* error) {
    return u_strToLower(to, room, from, size, rules.locale, error);
  });
}

utf16 upper_by_icu(const utf16& text, const rules_of_icu& rules) {
  return by_icu(text, [&](auto* to, auto room, auto* from, auto size, auto* error) {
    return u_strToUpper(to, room, from, size, rules.locale, error);
  });
}

utf16 folded_by_icu(const utf16& text, const rules_of_icu& rules) {
  return by_icu(text, [&](auto* to, auto room, auto* from, auto size, auto* error) {
    return u_strFoldCase(to, room, from, size, rules.fold_options, error);
  });
}

void expect_the_mappings_of_icu(const ustring32& text, const rules_of_icu& rules) {
  const ustring8 text8 = utf32_to_utf8(text);
  utf16 text16;
  for (const code_unit32 each : text) {
    char16_t units[2];
    std::int32_t count = 0;
    U16_APPEND_UNSAFE(units, count, static_cast<std::uint32_t>(each));
    text16.append(units, static_cast<std::size_t>(count));
  }
  ASSERT_EQ(unicode_lower(ustring16(text16), rules.rules), lower_by_icu(text16, rules)) << text8;
  ASSERT_EQ(unicode_upper(ustring16(text16), rules.rules), upper_by_icu(text16, rules)) << text8;
  ASSERT_EQ(unicode_fold(ustring16(text16), rules.rules), folded_by_icu(text16, rules)) << text8;
  // The widths agree.
  ASSERT_EQ(unicode_lower(text8, rules.rules), utf32_to_utf8(unicode_lower(text, rules.rules))) << text8;
  ASSERT_EQ(unicode_upper(text8, rules.rules), utf32_to_utf8(unicode_upper(text, rules.rules))) << text8;
  ASSERT_EQ(unicode_fold(text8, rules.rules), utf32_to_utf8(unicode_fold(text, rules.rules))) << text8;
}

bool is_known_to_both(UChar32 code_point) {
  UVersionInfo age;
  u_charAge(code_point, age);
  return age[0] > 0 && age[0] <= 15 && !U_IS_SURROGATE(code_point);
}

class unicode_case_icu : public testing::TestWithParam<rules_of_icu> {};

TEST_P(unicode_case_icu, maps_every_character_as_icu_does) {
  // In texts of a few, with a blank after each, since each call of ICU takes its time.
  ustring32 text;
  for (UChar32 code_point = 0; code_point <= 0x10FFFF; ++code_point) {
    if (is_known_to_both(code_point))
      text += ustring32{static_cast<code_unit32>(code_point), static_cast<code_unit32>(' ')};
    if (text.size() < 512 && code_point != 0x10FFFF) continue;
    expect_the_mappings_of_icu(text, GetParam());
    if (HasFatalFailure()) return;
    text.clear();
  }
}

// Letters, marks and others that the conditions of SpecialCasing are about. Characters that have case and are
// ignored are left out: where they begin or end a text, ICU goes beyond them.
constexpr UChar32 alphabet[] = {'i',    'I',   'j',    'J',    'a',     ' ',     '\'',   '.',
                                0x12E,  0x12F, 0x130,  0x131,  0xCC,    0xCD,    0x128,  0x307,
                                0x307,  0x300, 0x301,  0x303,  0x323,   0x327,   0x3A3,  0x3A3,
                                0x3A3,  0x3C3, 0x3C2,  0x391,  0xAD,    0x2019,  0xDF,   0x390,
                                0x1E9E, 0x149, 0xFB03, 0x1F80, 0x10400, 0x1F600, 0x65E5, 0x1D165};

TEST_P(unicode_case_icu, maps_random_texts_as_icu_does) {
  orva_test::random_engine random;
  for (int round = 0; round < 2000; ++round) {
    ustring32 text;
    for (auto length = random() % 12; length > 0; --length) {
      text += static_cast<code_unit32>(alphabet[random() % std::size(alphabet)]);
    }
    expect_the_mappings_of_icu(text, GetParam());
    if (HasFatalFailure()) return;
  }
}

TEST_P(unicode_case_icu, compares_random_texts_as_icu_folds_them) {
  orva_test::random_engine random;
  constexpr UChar32 few[] = {'s', 'S', 0xDF, 0x1E9E, 'i', 'I', 0x130, 0x131, 0x307};
  for (int round = 0; round < 2000; ++round) {
    utf16 texts[2];
    for (auto& text : texts) {
      for (auto length = random() % 4; length > 0; --length)
        text += static_cast<char16_t>(few[random() % std::size(few)]);
    }
    const bool equal = folded_by_icu(texts[0], GetParam()) == folded_by_icu(texts[1], GetParam());
    ASSERT_EQ(equal_caseless(texts[0], texts[1], GetParam().rules), equal);
    // The few have no surrogates: the order of their units is that of their characters.
    const bool is_less = folded_by_icu(texts[0], GetParam()) < folded_by_icu(texts[1], GetParam());
    ASSERT_EQ(compare_caseless(texts[0], texts[1], GetParam().rules) < 0, is_less);
  }
}

INSTANTIATE_TEST_SUITE_P(rules, unicode_case_icu, testing::ValuesIn(all_rules), [](const auto& each) {
  return *each.param.locale == '\0' ? std::string("standard") : std::string(each.param.locale);
});

}  // namespace
