#include "orva/config/config_token.hpp"

#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/config_item.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/single_byte_locale.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::config::config_token;
using ORVA_NAMESPACE::strings::ustring8;

struct token_row {
  const char* source;
  int type;
  const char* text;
  const char* name;
};

std::ostream& operator<<(std::ostream& out, const token_row& row) { return out << test_name(row.name); }

class config_token_table : public testing::TestWithParam<token_row> {};

TEST_P(config_token_table, has_type_text_and_name) {
  const std::string source = GetParam().source;
  const plain_item item;
  config_token token;
  token.text = "before";
  unsigned int position = 0;
  const int result = item.get_token(source, position, token);
  EXPECT_EQ(token.type, GetParam().type);
  EXPECT_EQ(result, token.type == 24 ? 16 : token.type);
  EXPECT_EQ(token.text, GetParam().text);
  EXPECT_EQ(token.CvtTokStr(), GetParam().name);
  EXPECT_EQ(token.start_position, 0u);
  EXPECT_EQ(token.end_position, source.size());
  EXPECT_EQ(position, source.size());
}

INSTANTIATE_TEST_SUITE_P(
    vocabulary, config_token_table,
    testing::Values(token_row{"abc", 0, "abc", "T_VAR :[abc]"}, token_row{"0129", 1, "0129", "T_NUM"},
                    token_row{"\n", 2, "\n", "T_NEWLINE"}, token_row{"\r\n", 2, "\n", "T_NEWLINE"},
                    token_row{"\t", 3, "\t", "T_TABCHAR"}, token_row{"\r", 4, "\r", "T_UNKNOWN:[\r]"},
                    token_row{"   ", 6, "before", "T_SPACE"}, token_row{"=", 7, "=", "T_EQ"},
                    token_row{"==", 8, "==", "T_EQEQ"}, token_row{">", 9, ">", "T_GT"},
                    token_row{">=", 10, ">=", "T_GTEQ"}, token_row{"<", 11, "<", "T_LT"},
                    token_row{"<=", 12, "<=", "T_LTEQ"}, token_row{":", 13, ":", "T_COLON"},
                    token_row{":=", 14, ":=", "T_COLONEQ"}, token_row{"#", 15, "#", "T_POUND"},
                    token_row{"//", 16, "//", "T_FSFS"}, token_row{".", 17, ".", "T_DOT"},
                    token_row{"[", 18, "[", "T_SBRACKET"}, token_row{"]", 19, "]", "T_EBRACKET"},
                    token_row{"+", 20, "+", "T_PLUS"}, token_row{"-", 21, "-", "T_MINUS"},
                    token_row{"+=", 22, "+=", "T_PLUSEQ"}, token_row{"-=", 23, "-=", "T_MINUSEQ"},
                    token_row{"*/", 24, "*/", "unknown type"}, token_row{"*", 26, "*", "T_TIMES"},
                    token_row{"/", 27, "/", "T_DIV"}, token_row{"*=", 28, "*=", "T_TIMESEQ"},
                    token_row{"/=", 29, "/=", "T_DIVEQ"}, token_row{"\"a b\"", 30, "a b", "T_STRING:[a b]"},
                    token_row{"\"\"", 30, "", "T_STRING:[]"}, token_row{"_", 31, "_", "T_NON_ALPHA_NUM:[_]"},
                    token_row{",", 31, ",", "T_NON_ALPHA_NUM:[,]"},
                    token_row{"\\", 31, "\\", "T_NON_ALPHA_NUM:[\\]"},
                    token_row{"\xC3", 31, "\xC3", "T_NON_ALPHA_NUM:[\xC3]"}));

TEST(config_token, end_has_a_name_and_numbers_outside_the_vocabulary_do_not) {
  config_token token;
  token.type = config_token::T_END;
  EXPECT_EQ(token.CvtTokStr(), "T_END");
  for (const int number : {24, 25, 32, 1000, -1}) {
    token.type = static_cast<config_token::tok_types>(number);
    EXPECT_EQ(token.CvtTokStr(), "unknown type") << number;
  }
}

TEST(config_token, starts_without_text) { EXPECT_EQ(config_token().text, ""); }

TEST(config_token, is_copied_moved_and_assigned_member_by_member) {
  const plain_item item;
  config_token token;
  unsigned int position = 0;
  item.get_token("[", position, token);
  item.get_token("[abc", position, token);
  const auto expect_abc = [](const config_token& each) {
    EXPECT_EQ(each.text, "abc");
    EXPECT_EQ(each.start_position, 1u);
    EXPECT_EQ(each.end_position, 4u);
    EXPECT_EQ(each.type, config_token::T_VAR);
  };
  config_token copy(token);
  expect_abc(copy);
  const config_token& same = copy;
  copy = same;
  expect_abc(copy);
  config_token moved(std::move(copy));
  expect_abc(moved);
  config_token assigned;
  assigned = moved;
  expect_abc(assigned);
  config_token move_assigned;
  move_assigned = std::move(moved);
  expect_abc(move_assigned);
}

/// Types and texts, as "0[a] 8[==]".
std::string summary(const std::string& source) {
  std::string result;
  for (const auto& token : tokens_of(source)) {
    if (!result.empty()) result += ' ';
    result += std::to_string(token.type) + '[' + token.text + ']';
  }
  return result;
}

TEST(config_token, pairs_are_tried_before_single_characters) {
  EXPECT_EQ(summary("a==b"), "0[a] 8[==] 0[b]");
  EXPECT_EQ(summary("a= =b"), "0[a] 7[=] 6[=] 7[=] 0[b]");
  EXPECT_EQ(summary("==="), "8[==] 7[=]");
  EXPECT_EQ(summary("///"), "16[//] 27[/]");
  EXPECT_EQ(summary(":=="), "14[:=] 7[=]");
}

TEST(config_token, slash_and_star_are_never_one_token) {
  EXPECT_EQ(summary("/*"), "27[/] 26[*]");
  EXPECT_EQ(summary("/*/"), "27[/] 24[*/]");
  EXPECT_EQ(summary("/*="), "27[/] 28[*=]");
}

TEST(config_token, there_are_no_numbers_but_runs_of_digits) {
  EXPECT_EQ(summary("1.5"), "1[1] 17[.] 1[5]");
  EXPECT_EQ(summary("-5"), "21[-] 1[5]");
  EXPECT_EQ(summary("abc123"), "0[abc] 1[123]");
  EXPECT_EQ(summary("a_b"), "0[a] 31[_] 0[b]");
}

TEST(config_token, line_feed_is_the_text_of_both_line_ends) {
  const auto tokens = tokens_of("x\r\ny");
  ASSERT_EQ(tokens.size(), 3u);
  EXPECT_EQ(tokens[1], (reference_token{2, "\n", 1, 3}));
  EXPECT_EQ(summary("x\ry"), "0[x] 4[\r] 0[y]");
  EXPECT_EQ(summary("\r\r\n"), "4[\r] 2[\n]");
}

TEST(config_token, bytes_of_a_character_are_tokens_whose_texts_make_it_again) {
  std::string whole;
  for (const auto& token : tokens_of("\xE2\x82\xAC")) {
    EXPECT_EQ(token.type, 31);
    whole += token.text;
  }
  EXPECT_EQ(whole, "\xE2\x82\xAC");
}

TEST(config_token, zero_bytes_are_like_any_other_byte) {
  EXPECT_EQ(tokens_of(std::string("=\0\"\0\"", 5)),
            (std::vector<reference_token>{
                {7, "=", 0, 1}, {31, std::string(1, '\0'), 1, 2}, {30, std::string(1, '\0'), 2, 5}}));
}

TEST(config_token, backslash_keeps_a_quote_in_the_text_and_stays) {
  EXPECT_EQ(summary("\"a\\\"b\"c"), "30[a\\\"b] 0[c]");
  EXPECT_EQ(summary("\"a\\\\\"c"), "30[a\\\\] 0[c]");
  EXPECT_EQ(summary("\"a\\n\""), "30[a\\n]");
  EXPECT_EQ(summary("\"a\nb\""), "30[a\nb]");
}

TEST(config_token, quote_that_is_not_closed_takes_the_rest) {
  for (const std::string source : {"\"abc", "\"", "\"abc\\", "\"abc\\\""}) {
    const plain_item item;
    config_token token;
    unsigned int position = 0;
    EXPECT_EQ(item.get_token(source, position, token), config_token::T_STRING);
    EXPECT_EQ(token.text, source.substr(1));
    EXPECT_EQ(position, source.size() + 1);
    EXPECT_EQ(token.end_position, source.size() + 1);
    EXPECT_EQ(item.get_token(source, position, token), config_token::T_END);
    EXPECT_EQ(position, source.size() + 1);
  }
}

TEST(config_token, end_leaves_all_but_the_type) {
  const plain_item item;
  config_token token;
  token.text = "kept";
  token.start_position = 3;
  token.end_position = 7;
  unsigned int position = 0;
  EXPECT_EQ(item.get_token("", position, token), config_token::T_END);
  EXPECT_EQ(token.type, config_token::T_END);
  EXPECT_EQ(token.text, "kept");
  EXPECT_EQ(token.start_position, 3u);
  EXPECT_EQ(token.end_position, 7u);
  EXPECT_EQ(position, 0u);
}

TEST(config_token, blanks_keep_the_text_of_the_token_before) {
  const plain_item item;
  config_token token;
  unsigned int position = 0;
  item.get_token("ab   c", position, token);
  EXPECT_EQ(item.get_token("ab   c", position, token), config_token::T_SPACE);
  EXPECT_EQ(token.text, "ab");
  EXPECT_EQ(token.start_position, 2u);
  EXPECT_EQ(token.end_position, 5u);
}

TEST(config_token, result_and_type_disagree_on_the_end_of_a_comment_only) {
  const plain_item item;
  config_token token;
  unsigned int position = 0;
  EXPECT_EQ(item.get_token("*/", position, token), config_token::T_FSFS);
  EXPECT_EQ(token.type, config_token::T_ENDCOMMENT);
  EXPECT_EQ(token.CvtTokStr(), "unknown type");
}

TEST(config_token, scan_may_begin_anywhere) {
  const plain_item item;
  config_token token;
  unsigned int position = 100;
  EXPECT_EQ(item.get_token("abc", position, token), config_token::T_END);
  EXPECT_EQ(position, 100u);
  position = 0xFFFFFFFF;
  EXPECT_EQ(item.get_token("abc", position, token), config_token::T_END);
  position = 1;
  EXPECT_EQ(item.get_token(ustring8("abc"), position, token), config_token::T_VAR);
  EXPECT_EQ(token.text, "bc");
}

TEST(config_token, agrees_with_the_plain_reading_on_all_pairs_of_bytes) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const std::string source{static_cast<char>(first), static_cast<char>(second)};
      ASSERT_EQ(tokens_of(source), reference_tokens(source)) << first << ' ' << second;
    }
  }
}

TEST(config_token, agrees_with_the_plain_reading_on_all_short_texts_of_marks) {
  const std::string marks = "=*/:+\r\n\"\\ a";
  std::vector<std::string> texts{""};
  for (int length = 1; length <= 4; ++length) {
    std::vector<std::string> longer;
    for (const std::string& text : texts) {
      for (const char mark : marks) longer.push_back(text + mark);
    }
    texts.swap(longer);
    for (const std::string& text : texts) ASSERT_EQ(tokens_of(text), reference_tokens(text)) << text;
  }
}

TEST(config_token, agrees_with_the_plain_reading_on_random_texts) {
  random_engine random;
  const std::string marks = "#<>*/+.:-[]=\n\t\r\"\\ ,$_ab01\xC3";
  for (int run = 0; run < 3000; ++run) {
    std::string text;
    for (auto length = random() % 40; length > 0; --length) text += marks[random() % marks.size()];
    ASSERT_EQ(tokens_of(text), reference_tokens(text)) << text;
  }
}

TEST(config_token, tokens_cover_the_source_without_gaps) {
  const std::string source = "a.b[] := \"x\\\"y\" // */ 12\r\n\t$\xC3\xA4";
  std::size_t end = 0;
  for (const auto& token : tokens_of(source)) {
    EXPECT_EQ(token.start, end);
    EXPECT_GT(token.end, token.start);
    end = token.end;
  }
  EXPECT_EQ(end, source.size());
}

TEST(config_token, letters_are_those_of_the_current_locale) {
  const single_byte_locale locale("ISO-8859-1", "de_DE");
  if (!locale.made()) GTEST_SKIP() << "no single-byte locale can be made here";
  EXPECT_EQ(summary("a\xE4z"), "0[a\xE4z]");
  for (int byte = 0; byte < 256; ++byte) {
    const std::string source{'x', static_cast<char>(byte)};
    ASSERT_EQ(tokens_of(source), reference_tokens(source)) << byte;
  }
}

}  // namespace
