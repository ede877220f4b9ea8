#include "orva/internal/xml_view_tokens.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "orva/exceptions/exception.hpp"
#include "tests/support/random_engine.hpp"

namespace {

using ORVA_NAMESPACE::internal::view_token;
using ORVA_NAMESPACE::internal::xml_view_tokens;
using ORVA_NAMESPACE::parser::xml_parser;
using ORVA_NAMESPACE::parser::xml_token_stream;

/// How a parse ended, and the tokens before that.
struct outcome {
  int error = -1;
  unsigned long line = 0;
  std::string data;
  std::vector<std::pair<int, std::string>> tokens;

  friend bool operator==(const outcome&, const outcome&) = default;
};

template <typename Tokens>
outcome outcome_of(const std::string& text) {
  Tokens tokens;
  outcome result;
  try {
    const xml_parser::parse_error error = tokens.parse(text);
    result.error = error.type;
    result.line = error.line;
    result.data = error.data;
  } catch (const ORVA_NAMESPACE::exceptions::overflow_error&) {
  }
  for (const auto& token : tokens) result.tokens.emplace_back(token.type(), token.value());
  return result;
}

void expect_as_the_stream(const std::string& text) {
  ASSERT_EQ(outcome_of<xml_view_tokens>(text), outcome_of<xml_token_stream>(text))
      << testing::PrintToString(text);
}

const char* const document =
    "<?xml version='1.0'?>\n<a b=\"1\" c='x &amp; y'>text &lt;&#65;  \n <!-- note --><d/>\t <e f = "
    "''>&nbsp;</e >"
    "<![CDATA[<raw> &amp;]]><!----><g><h i='&quot;'><!-- k --></h></g></a>\n";

TEST(xml_view_tokens, are_those_of_the_token_stream) {
  const outcome expected = outcome_of<xml_token_stream>(document);
  EXPECT_EQ(expected.error, xml_parser::parse_error::no_error);
  EXPECT_EQ(outcome_of<xml_view_tokens>(document), expected);
}

TEST(xml_view_tokens, texts_without_entities_are_parts_of_the_document) {
  const std::string text = "<?xml?><a b='plain' c='&amp;'>run</a>";
  xml_view_tokens tokens;
  ASSERT_EQ(tokens.parse(text).type, xml_parser::parse_error::no_error);
  for (const view_token& token : tokens) {
    const std::string_view value = token.value();
    const bool expanded = value == "&";
    const bool inside =
        value.empty() || (value.data() >= text.data() && value.data() < text.data() + text.size());
    EXPECT_EQ(inside, !expanded) << value;
  }
}

TEST(xml_view_tokens, end_where_the_stream_ends_when_the_document_is_cut_anywhere) {
  const std::string whole(document);
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    ASSERT_NO_FATAL_FAILURE(expect_as_the_stream(whole.substr(0, size)));
  }
}

TEST(xml_view_tokens, changed_documents_are_read_as_the_stream_reads_them) {
  orva_test::random_engine random;
  const std::string pieces = "<>/=&;'\"!-[]?# \n\tax1_\xC3";
  for (int run = 0; run < 3000; ++run) {
    std::string text(document);
    for (int changes = 1 + static_cast<int>(random() % 3); changes > 0; --changes) {
      const std::size_t at = random() % text.size();
      const char piece = pieces[random() % pieces.size()];
      if (random() % 2 == 0) {
        text[at] = piece;
      } else {
        text.insert(at, 1 + random() % 3, piece);
      }
    }
    ASSERT_NO_FATAL_FAILURE(expect_as_the_stream(text));
  }
}

}  // namespace
