// Tables made from answers beside those of the library, which are made from the same answers.
#include "orva/internal/code_pages/asked_page.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <type_traits>

#include "orva/internal/code_pages/any_page.hpp"
#include "orva/internal/code_pages/conversion.hpp"
#include "orva/strings/ustring.hpp"

namespace {

using namespace ORVA_NAMESPACE::internal::code_pages;
using ORVA_NAMESPACE::strings::code_unit16;
using ORVA_NAMESPACE::strings::ustring16;

template <typename Page>
std::string encoded(const Page& page, code_unit16 unit) {
  char bytes[4];
  return {bytes, static_cast<std::size_t>(encode(page, ustring16::view(&unit, 1), bytes) - bytes)};
}

template <typename Page>
ustring16 decoded(const Page& page, const std::string& bytes) {
  code_unit16 units[4];
  return {units, static_cast<std::size_t>(decode(page, bytes, units) - units)};
}

template <typename Page>
void expect_same(const Page& found, const Page& expected) {
  for (unsigned value = 0; value < 0x10000; ++value) {
    const auto unit = static_cast<code_unit16>(value);
    ASSERT_EQ(encoded(found, unit), encoded(expected, unit)) << std::hex << value;
    const std::string bytes = {static_cast<char>(value / 256), static_cast<char>(value % 256)};
    ASSERT_EQ(decoded(found, bytes), decoded(expected, bytes)) << std::hex << value;
    ASSERT_EQ(cut_bytes(found, bytes), cut_bytes(expected, bytes)) << std::hex << value;
  }
}

class asked_page_of : public testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(pages, asked_page_of, testing::Values(932, 936, 949, 950, 1252, 1255, 20866, 28596),
                         [](const auto& tested) { return "page_" + std::to_string(tested.param); });

TEST_P(asked_page_of, converts_as_the_page_itself) {
  const asked_page asked(GetParam(), encode_into, decode_into);
  bool is_same_kind = false;
  with_page(GetParam(), [&](const auto& expected) {
    asked.with_tables([&](const auto& found) {
      if constexpr (std::is_same_v<decltype(found), decltype(expected)>) {
        is_same_kind = true;
        expect_same(found, expected);
      }
    });
  });
  EXPECT_TRUE(is_same_kind);
}

bool refuse_text(int, ustring16::view, std::string& bytes) {
  bytes = "partly";
  return false;
}

bool refuse_bytes(int, std::string_view, std::basic_string<code_unit16>& text) {
  text.assign(3, code_unit16{'x'});
  return false;
}

bool write_three_bytes(int, ustring16::view, std::string& bytes) {
  bytes = "abc";
  return true;
}

TEST(asked_page, of_a_system_that_refuses_has_question_marks) {
  for (const auto encode_call : {refuse_text, write_three_bytes}) {
    const asked_page asked(437, encode_call, refuse_bytes);
    asked.with_tables([](const auto& page) {
      EXPECT_EQ(encoded(page, code_unit16{0xE9}), "?");
      EXPECT_EQ(decoded(page, "\xE9\xE9"), ustring16(2, code_unit16{'?'}));
    });
  }
}

bool write_pairs_without_a_row(int, ustring16::view, std::string& bytes) {
  bytes = "\x81\x40";
  return true;
}

TEST(asked_page, pair_that_nothing_reads_is_not_written) {
  const asked_page asked(437, write_pairs_without_a_row, refuse_bytes);
  asked.with_tables([](const auto& page) { EXPECT_EQ(encoded(page, code_unit16{0xE9}), "?"); });
}

}  // namespace
