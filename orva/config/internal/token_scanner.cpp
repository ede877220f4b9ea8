#include "orva/config/internal/token_scanner.hpp"

#include <cstddef>
#include <limits>

#include "orva/internal/text/character_class.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

using internal::character_class::isalpha;
using internal::character_class::isdigit;
using tok_types = config_token::tok_types;

/// The position after a quote that is not closed is one more than the length. It must not overflow, either.
constexpr std::size_t longest_source = std::numeric_limits<unsigned int>::max() - 1;

struct match {
  tok_types type;
  unsigned int length = 1;
};

match single_or_pair(char next, char second, tok_types single, tok_types pair) {
  return next == second ? match{pair, 2} : match{single};
}

match with_equals(char next, tok_types single, tok_types pair) {
  return single_or_pair(next, '=', single, pair);
}

/// The token of a byte that is neither a letter, a digit, a blank nor a quote. `next` is the byte after it,
/// or 0 at the end of the source. `/*` is two tokens: the language has no block comments.
match fixed_token(char first, char next) {
  switch (first) {
    case '=':
      return with_equals(next, tok_types::T_EQ, tok_types::T_EQEQ);
    case '<':
      return with_equals(next, tok_types::T_LT, tok_types::T_LTEQ);
    case '>':
      return with_equals(next, tok_types::T_GT, tok_types::T_GTEQ);
    case ':':
      return with_equals(next, tok_types::T_COLON, tok_types::T_COLONEQ);
    case '+':
      return with_equals(next, tok_types::T_PLUS, tok_types::T_PLUSEQ);
    case '-':
      return with_equals(next, tok_types::T_MINUS, tok_types::T_MINUSEQ);
    case '*':
      if (next == '=') return {tok_types::T_TIMESEQ, 2};
      return single_or_pair(next, '/', tok_types::T_TIMES, tok_types::T_ENDCOMMENT);
    case '/':
      if (next == '=') return {tok_types::T_DIVEQ, 2};
      return single_or_pair(next, '/', tok_types::T_DIV, tok_types::T_FSFS);
    case '\r':
      return single_or_pair(next, '\n', tok_types::T_UNKNOWN, tok_types::T_NEWLINE);
    case '\n':
      return {tok_types::T_NEWLINE};
    case '\t':
      return {tok_types::T_TABCHAR};
    case '#':
      return {tok_types::T_POUND};
    case '.':
      return {tok_types::T_DOT};
    case '[':
      return {tok_types::T_SBRACKET};
    case ']':
      return {tok_types::T_EBRACKET};
    default:
      return {tok_types::T_NON_ALPHA_NUM};
  }
}

/// The length of the run of bytes from `start` for which `belongs` is true.
template <typename Test>
unsigned int run_length(std::string_view source, unsigned int start, Test belongs) {
  std::size_t end = start + 1;
  while (end < source.size() && belongs(source[end])) ++end;
  return static_cast<unsigned int>(end - start);
}

/// The position of the quote that ends the text beginning at `start`, or the end of the source. A backslash
/// protects the next character; both stay in the text.
std::size_t closing_quote(std::string_view source, std::size_t start) {
  std::size_t position = start;
  while (position < source.size() && source[position] != '"') position += source[position] == '\\' ? 2 : 1;
  return position < source.size() ? position : source.size();
}

match any_token(std::string_view source, unsigned int start) {
  const char first = source[start];
  if (isalpha(first)) return {tok_types::T_VAR, run_length(source, start, isalpha<char>)};
  if (isdigit(first)) return {tok_types::T_NUM, run_length(source, start, isdigit<char>)};
  if (first == ' ') return {tok_types::T_SPACE, run_length(source, start, [](char c) { return c == ' '; })};
  if (first == '"') {
    const std::size_t end = closing_quote(source, std::size_t{start} + 1) + 1;
    return {tok_types::T_STRING, static_cast<unsigned int>(end - start)};
  }
  return fixed_token(first, std::size_t{start} + 1 < source.size() ? source[start + 1] : '\0');
}

/// The text of a token that is neither blank nor end.
std::string_view text_of(std::string_view source, unsigned int start, match found) {
  if (found.type == tok_types::T_STRING) return source.substr(start + 1, found.length - 2);
  if (found.type == tok_types::T_NEWLINE) return source.substr(start + found.length - 1, 1);
  return source.substr(start, found.length);
}

}  // namespace

tok_types scan_token(std::string_view source, unsigned int& position, scanned_token& token) {
  source = source.substr(0, longest_source);
  if (position >= source.size()) return token.type = tok_types::T_END;
  const match found = any_token(source, position);
  token.type = found.type;
  token.start_position = position;
  if (found.type != tok_types::T_SPACE) token.text = text_of(source, position, found);
  token.end_position = position += found.length;
  return found.type == tok_types::T_ENDCOMMENT ? tok_types::T_FSFS : found.type;
}

}  // namespace ORVA_NAMESPACE::config::_private
