// The errors of `read_number` as findings.
#include "orva/diagnostics/number_findings.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <sstream>
#include <string>

#include "orva/strings/standard_transforms.hpp"

namespace {

using orva::diagnostics::describe;
using orva::diagnostics::finding;
using orva::diagnostics::place;
using orva::diagnostics::severity;
using orva::generic::convert::number_error;
using orva::generic::convert::read_number;

std::string in_words(const finding& found) { return (std::ostringstream() << found).str(); }

template <typename Number, typename Text>
std::string read(const Text& text, unsigned int radix = 10) {
  return in_words(describe(read_number<Number>(text, radix), text, "a.txt"));
}

TEST(number_findings, documentation_example) {
  const std::string_view count = "300";
  EXPECT_EQ(in_words(describe(read_number<signed char>(count), count, "orders.txt")),
            "orders.txt:1:1: error: The number 300 is too large; the limit is 127. [number.too_large]");
  const finding rest = describe(read_number<int>("12abc"), "12abc");
  EXPECT_EQ(rest.code, "number.rest");
  EXPECT_EQ(rest.at, (place{1, 3}));
}

TEST(number_findings, each_error_has_its_sentence) {
  EXPECT_EQ(read<int>("abc"), "a.txt:1:1: error: No number begins here. [number.no_number]");
  EXPECT_EQ(read<int>(""), "a.txt:1:1: error: No number begins here. [number.no_number]");
  EXPECT_EQ(read<int>("12abc"), "a.txt:1:3: error: Other text follows the number 12. [number.rest]");
  EXPECT_EQ(read<unsigned>("-5 kg"),
            "a.txt:1:1: error: The number -5 is too small; the limit is 0. [number.too_small]");
  EXPECT_EQ(read<int>("12", 37),
            "a.txt: error: A number of this type cannot be read in this radix. [number.bad_radix]");
}

TEST(number_findings, a_whole_number_is_a_note_without_a_code) {
  const finding found = describe(read_number<int>("12"), "12", "a.txt");
  EXPECT_EQ(found.level, severity::note);
  EXPECT_EQ(found.code, "");
  EXPECT_EQ(found.file, "a.txt");
  EXPECT_EQ(found.at, (place{0, 0}));
}

TEST(number_findings, the_limit_is_that_of_the_type) {
  EXPECT_EQ(read<char>("1000", 10), "a.txt:1:1: error: The number 1000 is too large; the limit is " +
                                        std::to_string(int{std::numeric_limits<char>::max()}) +
                                        ". [number.too_large]");
  EXPECT_EQ(read<unsigned char>("ABC", 16),
            "a.txt:1:1: error: The number ABC is too large; the limit is 255. [number.too_large]");
  EXPECT_EQ(read<long long>("-9223372036854775809"),
            "a.txt:1:1: error: The number -9223372036854775809 is too small; the limit is "
            "-9223372036854775808. [number.too_small]");
  EXPECT_EQ(read<unsigned long long>("18446744073709551616"),
            "a.txt:1:1: error: The number 18446744073709551616 is too large; the limit is "
            "18446744073709551615. [number.too_large]");
}

TEST(number_findings, the_limit_of_a_floating_type_has_the_sign_of_the_number) {
  EXPECT_EQ(read<double>("1e400"),
            "a.txt:1:1: error: The number 1e400 is too large; the limit is 1.7976931348623157e+308. "
            "[number.too_large]");
  EXPECT_EQ(read<double>("-1e400"),
            "a.txt:1:1: error: The number -1e400 is too large; the limit is -1.7976931348623157e+308. "
            "[number.too_large]");
  EXPECT_EQ(read<double>("1e-400 l"),
            "a.txt:1:1: error: The number 1e-400 is too small; the limit is 5e-324. [number.too_small]");
  EXPECT_EQ(read<float>("-1e-400"),
            "a.txt:1:1: error: The number -1e-400 is too small; the limit is -1e-45. [number.too_small]");
}

TEST(number_findings, text_of_any_width_is_shown_and_placed) {
  EXPECT_EQ(read<int>(orva::strings::to_utf16("12\xE2\x82\xAC").text),
            "a.txt:1:3: error: Other text follows the number 12. [number.rest]");
  EXPECT_EQ(read<signed char>(orva::strings::to_utf32("-129").text),
            "a.txt:1:1: error: The number -129 is too small; the limit is -128. [number.too_small]");
}

TEST(number_findings, the_inputs_of_the_page_of_codes_give_their_code) {
  for (const char* const text : {"abc", " 42", ""})
    EXPECT_EQ(describe(read_number<int>(text), text).code, "number.no_number");
  for (const char* const text : {"12abc", "1.5", "1,234"})
    EXPECT_EQ(describe(read_number<int>(text), text).code, "number.rest");
  EXPECT_EQ(describe(read_number<signed char>("300"), "300").code, "number.too_large");
  EXPECT_EQ(describe(read_number<double>("-1e400"), "-1e400").code, "number.too_large");
  EXPECT_EQ(describe(read_number<unsigned>("-5"), "-5").code, "number.too_small");
  EXPECT_EQ(describe(read_number<double>("1e-400"), "1e-400").code, "number.too_small");
  EXPECT_EQ(describe(read_number<int>("12", 37), "12").code, "number.bad_radix");
}

TEST(number_findings, each_error_has_a_code_of_its_own) {
  std::set<std::string> codes;
  const auto last = static_cast<int>(number_error::bad_radix);
  for (int error = 1; error <= last; ++error) {
    orva::generic::convert::read_number_result<int> result{0, 1, static_cast<number_error>(error)};
    const finding found = describe(result, "1 2", "a");
    EXPECT_EQ(found.level, severity::error);
    EXPECT_EQ(found.file, "a");
    const bool has_place = result.error != number_error::bad_radix;
    EXPECT_EQ(found.at, has_place ? (place{1, 1}) : place{});
    EXPECT_TRUE(found.code.starts_with("number."));
    codes.insert(found.code);
  }
  codes.insert(describe(read_number<int>("1 2"), "1 2").code);
  EXPECT_EQ(codes.size(), static_cast<std::size_t>(last) + 1);
}

}  // namespace
