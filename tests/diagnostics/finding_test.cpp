#include "orva/diagnostics/finding.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <sstream>

#include "orva/diagnostics/report.hpp"
#include "orva/strings/unicode.hpp"

namespace {

using orva::diagnostics::finding;
using orva::diagnostics::known_codes;
using orva::diagnostics::name_of;
using orva::diagnostics::sentence;
using orva::diagnostics::severity;
using orva::generic::argument;
using orva::generic::varg_list;

std::string line_of(const finding& found) {
  std::ostringstream line;
  line << found;
  return line.str();
}

finding own(std::string_view text) {
  return {severity::warning, "app.own", {}, {}, argument("text", text.data())};
}

TEST(finding, documentation_example) {
  const finding found{severity::error, "xml.missing_equals", "a.xml", {3, 12}, {{"name", "width"}}};
  EXPECT_EQ(sentence(found), "The attribute width has no = after its name.");
  EXPECT_EQ(line_of(found),
            "a.xml:3:12: error: The attribute width has no = after its name. [xml.missing_equals]");
}

TEST(finding, codes_are_in_order_and_unique) {
  const auto codes = known_codes();
  EXPECT_TRUE(std::ranges::is_sorted(codes, {}, &orva::diagnostics::code_description::code));
  EXPECT_EQ(std::ranges::adjacent_find(codes, {}, &orva::diagnostics::code_description::code), codes.end());
}

TEST(finding, a_sentence_has_its_arguments) {
  const finding found{severity::note, "diagnostics.not_kept", {}, {}, argument("count", 12)};
  EXPECT_EQ(sentence(found), "Findings that are not shown: 12.");
}

TEST(finding, a_missing_argument_is_shown_by_its_name) {
  EXPECT_EQ(sentence({severity::note, "diagnostics.not_kept", {}, {}, {}}),
            "Findings that are not shown: {count}.");
}

TEST(finding, an_argument_that_looks_like_a_placeholder_stays_as_it_is) {
  const finding found{severity::note, "diagnostics.not_kept", {}, {}, argument("count", "{count}")};
  EXPECT_EQ(sentence(found), "Findings that are not shown: {count}.");
}

TEST(finding, the_sentence_of_a_programs_own_code_is_its_text) {
  EXPECT_EQ(sentence(own("The lamp is {red}.")), "The lamp is {red}.");
  EXPECT_EQ(sentence({severity::error, "app.own", {}, {}, {}}), "app.own");
}

TEST(finding, is_written_as_compilers_write) {
  finding found = own("Too dark.");
  EXPECT_EQ(line_of(found), "warning: Too dark. [app.own]");
  found.file = "a.cfg";
  EXPECT_EQ(line_of(found), "a.cfg: warning: Too dark. [app.own]");
  found.at.line = 3;
  EXPECT_EQ(line_of(found), "a.cfg:3: warning: Too dark. [app.own]");
  found.at.column = 14;
  EXPECT_EQ(line_of(found), "a.cfg:3:14: warning: Too dark. [app.own]");
  found.file.clear();
  EXPECT_EQ(line_of(found), "3:14: warning: Too dark. [app.own]");
  found.level = severity::note;
  found.code.clear();
  found.at = {};
  found.arguments = {};
  EXPECT_EQ(line_of(found), "note: ");
}

TEST(finding, is_not_shaped_by_the_stream) {
  std::ostringstream line;
  line.width(60);
  line.fill('*');
  line << own("x");
  EXPECT_EQ(line.str(), "warning: x [app.own]");
}

TEST(finding, hides_what_could_harm_a_terminal) {
  // An escape sequence, a line feed, a C1 control character, an override of direction, a malformed byte.
  finding found =
      own("a\x1B[2Jb\nc\xC2\x9B"
          "d\xE2\x80\xAE"
          "e\xFF"
          "f\tg");
  found.file = "x\ry";
  EXPECT_EQ(line_of(found),
            "x\xEF\xBF\xBDy: warning: a\xEF\xBF\xBD[2Jb\xEF\xBF\xBD"
            "c\xEF\xBF\xBD"
            "d\xEF\xBF\xBD"
            "e\xEF\xBF\xBD"
            "f g [app.own]");
}

TEST(finding, levels_have_names) {
  EXPECT_EQ(name_of(severity::note), "note");
  EXPECT_EQ(name_of(severity::warning), "warning");
  EXPECT_EQ(name_of(severity::error), "error");
}

struct value_text {
  orva::types::variant value;
  std::string_view expected;
};

TEST(finding, malformed_wide_arguments_lose_only_what_is_malformed) {
  using orva::strings::ustring16;
  using orva::strings::ustring32;
  using orva::strings::wide_string;
  const orva::strings::code_unit16 units16[] = {'a', 0xD800, 'b'};
  const orva::strings::code_unit32 units32[] = {'a', 0x110000, 'b', 0xDC00};
  const value_text examples[] = {
      {ustring16(units16, 3),
       "a\xEF\xBF\xBD"
       "b"},
      {wide_string(units16, 3),
       "a\xEF\xBF\xBD"
       "b"},
      {ustring32(units32, 4),
       "a\xEF\xBF\xBD"
       "b\xEF\xBF\xBD"},
  };
  for (const value_text& each : examples) {
    const finding found{severity::note, "app.own", {}, {}, argument("text", each.value)};
    EXPECT_EQ(sentence(found), each.expected);
  }
}

TEST(finding, arguments_of_every_type_are_shown_exactly) {
  const value_text examples[] = {
      {true, "true"},
      {static_cast<signed char>(-65), "-65"},
      {static_cast<unsigned char>(200), "200"},
      {static_cast<short>(-300), "-300"},
      {-2147483647, "-2147483647"},
      {9223372036854775807LL, "9223372036854775807"},
      {18446744073709551615ULL, "18446744073709551615"},
      {0.1, "0.1"},
      {0.1f, "0.1"},
      {3.141592653589793, "3.141592653589793"},
      {1e300, "1e+300"},
      {"text", "text"},
      {orva::strings::utf8_to_utf16("w\xC3\xA4"), "w\xC3\xA4"},
      {orva::strings::utf8_to_utf32("w\xC3\xA4"), "w\xC3\xA4"},
      {false, "false"},
      {std::numeric_limits<double>::infinity(), "inf"},
      {orva::types::variant(), ""},
  };
  for (const value_text& each : examples) {
    const finding found{severity::note, "app.own", {}, {}, argument("text", each.value)};
    EXPECT_EQ(sentence(found), each.expected);
  }
}

}  // namespace
