// The library's conversions compared with the platform's own answers: every unit, every byte, every pair of
// bytes.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "orva/strings/code_page.hpp"
#include "tests/support/code_page_answers.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/runs_of_text.hpp"

namespace {

using ORVA_NAMESPACE::strings::code_page;
using ORVA_NAMESPACE::strings::code_unit16;
using ORVA_NAMESPACE::strings::ustring16;

class platform_answers : public testing::TestWithParam<int> {
 protected:
  const reference::code_page_answers platform_{GetParam()};
  const code_page page_{static_cast<code_page::encoding_type>(GetParam())};
};

INSTANTIATE_TEST_SUITE_P(code_page, platform_answers,
                         testing::Values(932, 936, 949, 950, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257,
                                         1258, 20866, 21866, 28591, 28592, 28593, 28594, 28595, 28596, 28597,
                                         28598, 28599, 28605),
                         [](const auto& tested) { return "page_" + std::to_string(tested.param); });

TEST_P(platform_answers, every_unit_encodes_as_the_platform_does) {
  for (unsigned value = 1; value < 0x10000; ++value) {
    const auto unit = static_cast<code_unit16>(value);
    ASSERT_EQ(page_.encode(ustring16(1, unit)), platform_.encoded(unit)) << std::hex << value;
  }
}

TEST_P(platform_answers, every_byte_and_every_pair_decodes_as_the_platform_does) {
  for (unsigned pair = 0x100; pair < 0x10000; ++pair) {
    const char first = static_cast<char>(pair / 256);
    const char second = static_cast<char>(pair % 256);
    const std::string bytes = second == '\0' ? std::string{first} : std::string{first, second};
    ASSERT_EQ(page_.as_utf16(bytes), platform_.decoded(first, second)) << std::hex << pair;
  }
}

// Every pair of units would be four thousand million texts. All units in one text are enough to reach the
// fast loops, which a text of one unit does not reach.
TEST_P(platform_answers, all_units_in_one_text_encode_as_each_does_alone) {
  ustring16 text;
  for (unsigned value = 1; value < 0x10000; ++value) {
    text.append(2, static_cast<code_unit16>(value));
  }
  EXPECT_EQ(page_.encode(text), platform_.encoded(text));
}

TEST_P(platform_answers, what_the_platform_reads_back_comes_back) {
  ustring16 text;
  for (unsigned value = 1; value < 0x10000; ++value) {
    const ustring16 unit(1, static_cast<code_unit16>(value));
    const bool kept = platform_.decoded(platform_.encoded(unit)) == unit;
    if (kept) text += unit;
  }
  EXPECT_GT(text.size(), 200u);
  EXPECT_EQ(page_.as_utf16(page_.encode(text)), text);
}

TEST_P(platform_answers, runs_of_bytes_decode_as_the_answers_put_together) {
  orva_test::random_engine random;
  for (int round = 0; round < 300; ++round) {
    const auto bytes = reference::runs<std::string>(random, 0x100);
    ASSERT_EQ(page_.as_utf16(bytes), platform_.decoded(bytes)) << "round " << round;
  }
}

TEST_P(platform_answers, runs_of_units_encode_as_the_answers_put_together) {
  orva_test::random_engine random;
  for (int round = 0; round < 300; ++round) {
    const auto text = reference::runs<ustring16>(random, 0x10000);
    ASSERT_EQ(page_.encode(text), platform_.encoded(text)) << "round " << round;
  }
}

TEST_P(platform_answers, every_cut_of_a_text_decodes_as_the_answers_put_together) {
  orva_test::random_engine random;
  for (int round = 0; round < 5; ++round) {
    const auto bytes = reference::runs<std::string>(random, 0x100);
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
      const std::string cut = bytes.substr(0, size);
      ASSERT_EQ(page_.as_utf16(cut), platform_.decoded(cut)) << size;
    }
  }
}

}  // namespace
