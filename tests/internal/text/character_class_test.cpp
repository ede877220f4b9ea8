#include "orva/internal/text/character_class.hpp"

#include <gtest/gtest.h>

#include <cctype>

#include "orva/strings/code_unit.hpp"
#include "tests/support/single_byte_locale.hpp"

namespace {

namespace character_class = ORVA_NAMESPACE::internal::character_class;
using ORVA_NAMESPACE::strings::code_unit16;
using ORVA_NAMESPACE::strings::code_unit32;

/// The classes and cases of a value from 0 to 255 in the current locale, by the C runtime.
template <typename Unit>
void expect_as_runtime(unsigned int value) {
  const auto unit = static_cast<Unit>(value);
  const auto asked = static_cast<int>(value);
  EXPECT_EQ(character_class::isspace(unit), std::isspace(asked) != 0) << value;
  EXPECT_EQ(character_class::isdigit(unit), std::isdigit(asked) != 0) << value;
  EXPECT_EQ(character_class::isxdigit(unit), std::isxdigit(asked) != 0) << value;
  EXPECT_EQ(character_class::isalpha(unit), std::isalpha(asked) != 0) << value;
  EXPECT_EQ(character_class::isalnum(unit), std::isalnum(asked) != 0) << value;
  EXPECT_EQ(character_class::tolower(unit), static_cast<Unit>(std::tolower(asked))) << value;
  EXPECT_EQ(character_class::toupper(unit), static_cast<Unit>(std::toupper(asked))) << value;
}

void expect_every_value_as_runtime() {
  for (unsigned int value = 0; value < 256; ++value) {
    expect_as_runtime<unsigned char>(value);
    expect_as_runtime<char>(value);
    expect_as_runtime<code_unit16>(value);
    expect_as_runtime<code_unit32>(value);
  }
}

TEST(character_class, every_value_as_the_runtime_in_the_c_locale) { expect_every_value_as_runtime(); }

TEST(character_class, every_value_as_the_runtime_in_a_latin1_locale) {
  const orva_test::single_byte_locale latin1("ISO-8859-1", "en_US");
  if (!latin1.made()) GTEST_SKIP() << "localedef could not make a Latin-1 locale";
  EXPECT_TRUE(character_class::isalpha(char{'\xE4'}));
  EXPECT_EQ(character_class::toupper(char{'\xE4'}), char{'\xC4'});
  expect_every_value_as_runtime();
}

TEST(character_class, ascii_is_the_same_in_a_turkish_locale) {
  const orva_test::single_byte_locale turkish("ISO-8859-9", "tr_TR");
  if (!turkish.made()) GTEST_SKIP() << "localedef could not make a Turkish locale";
  EXPECT_EQ(character_class::toupper('i'), 'I');
  EXPECT_EQ(character_class::tolower('I'), 'i');
}

TEST(character_class, values_above_255_are_in_no_class_and_have_no_case) {
  for (unsigned int value = 256; value < 0x10000; ++value) {
    const auto unit = static_cast<code_unit16>(value);
    const bool in_a_class = character_class::isspace(unit) || character_class::isalnum(unit) ||
                            character_class::isxdigit(unit) || character_class::isalpha(unit) ||
                            character_class::isdigit(unit);
    if (in_a_class || character_class::tolower(unit) != unit || character_class::toupper(unit) != unit) {
      FAIL() << value;
    }
  }
  for (const unsigned int value : {0x10041u, 0x80000020u, 0xFFFFFFFFu, 0xFFFFFF41u}) {
    const auto unit = static_cast<code_unit32>(value);
    EXPECT_FALSE(character_class::isspace(unit) || character_class::isalnum(unit)) << value;
    EXPECT_EQ(character_class::tolower(unit), unit);
  }
}

}  // namespace
