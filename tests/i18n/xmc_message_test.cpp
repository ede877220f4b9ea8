// The content of a `msg` element, and the pieces that it becomes.
#include <gtest/gtest.h>

#include <string>

#include "tests/i18n/xmc_reading.hpp"

namespace {

using namespace orva_test;

TEST(xmc_message, content_becomes_pieces) {
  const struct {
    const char* construct;
    const char* content;
    const char* pieces;
  } rows[] = {
      {"nothing", "", ""},
      {"text", "Free", "T[Free]"},
      {"line break", "a<br/>b", "T[a\nb]"},
      {"line break with end tag", "a<br></br>b", "T[a\nb]"},
      {"line break alone", "<br/>", "T[\n]"},
      {"two blanks before a placeholder", "Free:  <arg name='n'/>", "T[Free: ]P[n]"},
      {"one blank before a placeholder", "Free: <arg name='n'/>", "T[Free: ]P[n]"},
      {"white space at the start", "  \n\t a", "T[a]"},
      {"one blank at the start", " a", "T[a]"},
      {"white space at the end", "a  \n ", "T[a ]"},
      {"a run of white space", "a \n\t  b", "T[a b]"},
      {"blank, then a run", "a <!-- --> \n b", "T[a b]"},
      {"runs on both sides of a comment", "a  <!-- -->  b", "T[a b]"},
      {"run directly after a placeholder", "<arg name='n'/>  b", "P[n]T[ b]"},
      {"run between placeholders", "<arg name='n'/>  <arg name='m'/>", "P[n]T[ ]P[m]"},
      {"blank between placeholders", "<arg name='n'/> <arg name='m'/>", "P[n]T[ ]P[m]"},
      {"run at the end after a placeholder", "<arg name='n'/>\n  ", "P[n]T[ ]"},
      {"run after a line break at the start", "<br/>  b", "T[\n b]"},
      {"run before a line break", "a  <br/>b", "T[a \nb]"},
      {"line break after a placeholder", "<arg name='n'/><br/>", "P[n]T[\n]"},
      {"white space only", "  \n ", ""},
      {"one blank only", " ", ""},
      {"comment only", "<!-- note -->", ""},
      {"comment in the middle", "a<!-- note -->b", "T[ab]"},
      {"character data", "a<![CDATA[<b>  ]]>", "T[a<b>  ]"},
      {"run after character data that ends in a blank", "<![CDATA[a ]]>  b", "T[a b]"},
      {"empty character data", "<![CDATA[]]>  a", "T[a]"},
      {"entities", "&lt;&amp;&gt;", "T[<&>]"},
      {"placeholder alone", "<arg name='n'/>", "P[n]"},
      {"long form", "<argument name='n'/>", "P[n]"},
      {"end tag", "<arg name='n'></arg>", "P[n]"},
      {"no name", "<arg/>", "P[]"},
      {"attributes in their order", "<arg name='n' fieldsize='8' base='hex'/>", "P[n|fieldsize|8|base|hex]"},
      {"name after the attributes", "<arg base='hex' type='int' fieldsize='8' name='n'/>",
       "P[n|base|hex|fieldsize|8]"},
      {"empty value", "<arg name='n' base=''/>", "P[n|base|]"},
      {"type value gives text", "<arg name='n' type='value' a='b'/>", "T[n|a|b]"},
      {"run after type value", "<arg name='n' type='value'/>  b", "T[n]T[ b]"},
      {"text around", "a<arg name='n'/>b<arg name='m'/>c", "T[a]P[n]T[b]P[m]T[c]"},
  };
  for (const auto& row : rows) EXPECT_EQ(pieces(read_message(row.content)), row.pieces) << row.construct;
}

TEST(xmc_message, free_with_two_blanks_keeps_one) {
  EXPECT_EQ(pieces(read_message("Free:  <arg name=\"n\"/>")), "T[Free: ]P[n]");
}

TEST(xmc_message, line_break_gives_one_text_with_a_line_feed) {
  const message_t message = read_message("one<br/>two");
  EXPECT_EQ(message.size(), 1u);
  EXPECT_EQ(message.as_utf8(), "one\ntwo");
}

TEST(xmc_message, type_is_string_if_missing_or_unknown) {
  EXPECT_EQ(read_message("<arg name='n'/>").begin()->type(), message_item::string);
  EXPECT_EQ(read_message("<arg name='n' type='colour'/>").begin()->type(), message_item::string);
}

TEST(xmc_message, name_and_note_may_be_missing_or_swapped) {
  const reading result = read(xmc(app("de", "<msg>x</msg><msg meta='note' name='m'>y</msg>")));
  EXPECT_EQ(words(result.error), "No Error");
  EXPECT_EQ(result.message("").as_utf8(), "x");
  EXPECT_EQ(result.message("m").meta(), "note");
  EXPECT_EQ(result.message("m").name(), "m");
}

TEST(xmc_message, text_keeps_its_bytes) {
  EXPECT_EQ(read_message("Gr\xC3\xB6\xC3\x9F"
                         "e \xFF")
                .as_utf8(),
            "Gr\xC3\xB6\xC3\x9F"
            "e \xFF");
  EXPECT_EQ(read_message("&#233;").as_utf8(), "\xE9");
}

}  // namespace
