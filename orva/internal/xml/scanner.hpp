/// The scanners of the grammar that `xml_parser` reads, each under the name of its construct.
///
/// Internal: not installed. A scanner stands on a position of the text and moves behind what it took. It
/// never reads at the end of the text: where a construct is cut off there, it fails with no character to
/// show.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

#include "orva/generic/convert/str_to_x.hpp"
#include "orva/internal/text/character_class.hpp"
#include "orva/internal/xml/byte_block.hpp"
#include "orva/parser/xml_parser.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::parser::_private {

class xml_scanner {
 public:
  using ustring8 = strings::ustring8;
  using parse_error = xml_parser::parse_error;

  /// `line` is counted on, and told by failures.
  xml_scanner(const char* first, const char* last, types::uint32& line) noexcept
      : at_(first), end_(last), line_(line) {}

  const char* position() const noexcept { return at_; }

  static constexpr bool is_white_space(char c) { return is(white, c); }

  std::string_view white_space() {
    const char* at = at_;
    if (at == end_ || !is_white_space(*at)) return {};
    types::uint32 feeds = 0;
    for (; at != end_ && is_white_space(*at); ++at) feeds += *at == '\n' ? 1 : 0;
    line_ += feeds;
    return between(std::exchange(at_, at), at);
  }

  std::string_view name() {
    const char* at = at_;
    if (at == end_ || !internal::character_class::isalpha(*at)) fail_at(at);
    while (++at != end_ && is_name_character(*at)) {
    }
    return between(std::exchange(at_, at), at);
  }

  // What entities are expanded in is put together in `expanded`; what has none is shown where it stands.

  /// From the opening quote to the closing one, or to the end of the text.
  std::string_view attribute_value(ustring8& expanded) {
    if (at_end() || !is_quote(*at_)) fail(parse_error::missing_quote);
    const char quote = *at_++;
    const std::string_view plain = plain_value(quote);
    if (at_end() || *at_ == quote) return plain;
    expanded.assign(plain);
    while (!at_end() && *at_ != quote) {
      if (*at_ == '<') fail_at(at_);
      expanded.push_back(character());
      expanded.append(plain_value(quote));
    }
    return expanded;
  }

  /// A run of text: up to the next tag, or to the first of two white-space characters in a row.
  std::string_view text_run(ustring8& expanded) {
    const std::string_view plain = plain_text();
    if (at_end() || *at_ != '&') return plain;
    expanded.assign(plain);
    while (!at_end() && *at_ == '&') {
      expanded.push_back(character());
      expanded.append(plain_text());
    }
    return expanded;
  }

  /// The byte that an entity or a character reference stands for.
  char character() {
    if (at_end() || *at_ != '&') fail_at(at_);
    if (starts_with("&#x")) return character_reference(3, types::radix_t::hexadecimal);
    if (starts_with("&#")) return character_reference(2, types::radix_t::decimal);
    return named_entity();
  }

  [[noreturn]] void fail(parse_error::error_type type, std::string_view data = {}) const {
    throw parse_error{type, line_, ustring8(data)};
  }

  /// An unexpected character, which is none if the text ended instead.
  [[noreturn]] void fail_at(const char* place) const {
    fail(parse_error::unexpected_character, {place, place < end_ ? 1u : 0u});
  }

 protected:
  bool at_end() const noexcept { return at_ == end_; }
  char current() const noexcept { return *at_; }
  void step(std::size_t count = 1) noexcept { at_ += count; }
  std::string_view rest() const noexcept { return between(at_, end_); }
  /// With a literal the comparison is one of constants.
  bool starts_with(std::string_view opener) const noexcept {
    return remaining(at_) >= opener.size() && std::memcmp(at_, opener.data(), opener.size()) == 0;
  }

 private:
  static std::string_view between(const char* first, const char* last) noexcept {
    return {first, static_cast<std::size_t>(last - first)};
  }

  enum byte_class : std::uint8_t { white = 1, in_name = 2, may_end_text = 4, may_end_value = 8 };

  static constexpr auto classes = [] {
    std::array<std::uint8_t, 256> table{};
    const auto add = [&table](std::string_view bytes, unsigned int in) {
      for (const char byte : bytes) table[static_cast<unsigned char>(byte)] |= static_cast<std::uint8_t>(in);
    };
    add(" \t\r\n", white | may_end_text);
    add("<&", may_end_text | may_end_value);
    add("'\"", may_end_value);
    add("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_", in_name);
    return table;
  }();

  static constexpr bool is(byte_class expected, char c) {
    return (classes[static_cast<unsigned char>(c)] & expected) != 0;
  }

  /// Below 128 the table answers; the rest is the locale's.
  static bool is_name_character(char c) {
    return is(in_name, c) || (static_cast<unsigned char>(c) >= 128 && internal::character_class::isalnum(c));
  }

  /// Up to the closing quote, a < or an &.
  std::string_view plain_value(char quote) {
    const char* at = at_;
    for (; remaining(at) >= byte_block::size; at += byte_block::size) {
      const byte_block block(at);
      const auto ends = block.of(quote) | block.of('<') | block.of('&');
      if (!ends.empty()) return between(std::exchange(at_, at + ends.first()), at + ends.first());
    }
    while (at != end_ && (!is(may_end_value, *at) || (*at != quote && is_quote(*at)))) ++at;
    return between(std::exchange(at_, at), at);
  }

  /// Up to a <, an & or the first of two white-space characters.
  std::string_view plain_text() {
    const char* at = at_;
    // The last byte of a block is looked at again as the first of the next: a pair may lie across both.
    for (; remaining(at) >= byte_block::size; at += byte_block::size - 1) {
      const byte_block block(at);
      const auto ends = block.of('<') | block.of('&') | block.of_two_blanks_in_a_row();
      if (ends.empty()) continue;
      at += ends.first();
      break;
    }
    while (at != end_ && (!is(may_end_text, *at) || is_lone_white_space(at))) ++at;
    return between(std::exchange(at_, at), at);
  }

  std::size_t remaining(const char* at) const noexcept { return static_cast<std::size_t>(end_ - at); }

  static constexpr bool is_quote(char c) { return c == '\'' || c == '"'; }
  bool is_lone_white_space(const char* at) const {
    return is_white_space(*at) && (remaining(at) == 1 || !is_white_space(at[1]));
  }

  char character_reference(std::size_t opener, types::radix_t::base radix) {
    const char* const digits = at_ + opener;
    const char* const last = std::find_if_not(digits, end_, [radix](char c) {
      return radix == types::radix_t::hexadecimal ? internal::character_class::isxdigit(c)
                                                  : internal::character_class::isdigit(c);
    });
    if (last == end_ || *last != ';') fail_at(last);
    // Without digits the reader takes the semicolon for the first unit, and no digit reads as 0.
    const auto value =
        generic::convert::str_to_uint8(digits, static_cast<std::size_t>(last - digits), radix, true);
    at_ = last + 1;
    return static_cast<char>(value);
  }

  char named_entity() {
    struct entity {
      std::string_view text;
      char value;
    };
    static constexpr std::array<entity, 6> entities{
        {{"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&apos;", '\''}, {"&quot;", '"'}, {"&nbsp;", ' '}}};
    bool opens_one = false;
    for (const auto& [text, value] : entities) {
      if (starts_with(text)) {
        step(text.size());
        return value;
      }
      opens_one = opens_one || starts_with(text.substr(0, 2));
    }
    if (!opens_one) fail(parse_error::unknown_entity);
    fail_at(at_ + 2);
  }

  const char* at_;
  const char* end_;
  types::uint32& line_;
};

}  // namespace ORVA_NAMESPACE::parser::_private
