#include "orva/i18n/bidirectional_text.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "orva/generic/argument.hpp"

namespace {

using namespace ORVA_NAMESPACE::i18n;
using ORVA_NAMESPACE::generic::argument;
using ORVA_NAMESPACE::generic::varg_list;

message_t message_in(const char* language) {
  return {"copied",
          {message_item("[1] "), message_item("from", message_item::string), message_item(" > "),
           message_item("to", message_item::string)},
          "",
          language};
}

TEST(bidirectional_text, documentation_example) {
  EXPECT_TRUE(is_right_to_left("ar_EG"));
  EXPECT_TRUE(is_right_to_left("pa_PK"));
  EXPECT_FALSE(is_right_to_left("pa"));
  EXPECT_EQ(
      isolated_utf8(message_t({message_item("file", message_item::string)}), argument("file", "a b (1)")),
      "a b (1)");
}

TEST(bidirectional_text, placeholders_of_right_to_left_languages_are_isolated) {
  const varg_list args(argument("from", "a (1)"), argument("to", "b"));
  for (const char* const language : {"ar", "he_IL", "fa-IR", "UR", "az_Arab", "pa_PK"}) {
    EXPECT_EQ(isolated_utf8(message_in(language), args), "[1] \u2068a (1)\u2069 > \u2068b\u2069") << language;
  }
  for (const char* const language : {"en", "", ".", "de_DE", "pa", "sd_IN", "az"}) {
    EXPECT_EQ(isolated_utf8(message_in(language), args), "[1] a (1) > b") << language;
  }
}

TEST(bidirectional_text, placeholder_without_text_is_not_isolated) {
  EXPECT_EQ(isolated_utf8(message_in("ar"), varg_list(argument("from", ""), argument("to", "b"))),
            "[1]  > \u2068b\u2069");
}

TEST(bidirectional_text, placeholder_that_cannot_be_shown_is_isolated_as_it_is_shown) {
  EXPECT_EQ(isolated_utf8(message_in("ar"), argument("to", "b")),
            "[1] \u2068" + std::string(message_item::invalid) + "\u2069 > \u2068" + "b\u2069");
}

TEST(bidirectional_text, isolates_apart_it_is_the_text_of_the_message) {
  const varg_list args(argument("from", "x"), argument("to", 5));
  std::string text = isolated_utf8(message_in("fa"), args);
  for (const std::string_view isolate : {"\u2068", "\u2069"}) {
    for (std::size_t at; (at = text.find(isolate)) != text.npos;) text.erase(at, isolate.size());
  }
  EXPECT_EQ(text, message_in("fa").as_utf8(args));
}

TEST(bidirectional_text, script_and_region_decide_before_the_language) {
  EXPECT_TRUE(is_right_to_left("ar"));
  EXPECT_FALSE(is_right_to_left("ar_Latn"));
  EXPECT_FALSE(is_right_to_left("ar_Latn_EG"));
  EXPECT_TRUE(is_right_to_left("en_Arab"));
  EXPECT_TRUE(is_right_to_left("uz_AF"));
  EXPECT_FALSE(is_right_to_left("uz_UZ"));
  EXPECT_FALSE(is_right_to_left("sd_IN"));
  EXPECT_TRUE(is_right_to_left("sd_PK"));
}

TEST(bidirectional_text, odd_tags_are_not_right_to_left) {
  for (const std::string_view tag :
       {"", "_", ".", "__", "a", "ara_b", "arabic", "xx_ar", "toolongforanytag"}) {
    EXPECT_FALSE(is_right_to_left(tag)) << tag;
  }
  EXPECT_TRUE(is_right_to_left("ar_"));
  EXPECT_TRUE(is_right_to_left("ar_XX_anything_more"));
}

}  // namespace
