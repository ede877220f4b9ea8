// Directions of languages compared with ICU.
#include <gtest/gtest.h>
#include <unicode/uloc.h>

#include <set>
#include <string>

#include "orva/i18n/bidirectional_text.hpp"

namespace {

using ORVA_NAMESPACE::i18n::is_right_to_left;

std::set<std::string> tags() {
  std::set<std::string> all;
  for (auto language = uloc_getISOLanguages(); *language; ++language) {
    if (*language == std::string("und")) continue;  // ICU has directions for regions without a language
    all.insert(*language);
    for (auto region = uloc_getISOCountries(); *region; ++region) {
      all.insert(std::string(*language) + '_' + *region);
    }
  }
  for (std::int32_t i = 0; i < uloc_countAvailable(); ++i) all.insert(uloc_getAvailable(i));
  return all;
}

TEST(text_direction_icu, direction_is_that_of_icu_for_all_languages_and_regions) {
  std::set<std::string> differing;
  for (const std::string& tag : tags()) {
    if (is_right_to_left(tag) != static_cast<bool>(uloc_isRightToLeft(tag.c_str()))) differing.insert(tag);
  }
  EXPECT_EQ(differing, std::set<std::string>());
}

}  // namespace
