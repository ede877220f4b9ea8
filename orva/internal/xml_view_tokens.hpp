/// `xml_view_tokens`: the tokens that `xml_token_stream` makes of a text, as views of the text.
///
/// Internal: not installed. For a reader that keeps the text as long as it uses the tokens: a token takes two
/// words, and only values with entities are copied. One object reads one text.
///
///     xml_view_tokens tokens;
///     if (tokens.parse(text).type != parser::xml_parser::parse_error::no_error) return;
///     for (const view_token& token : tokens) take(token.type(), token.value());
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string_view>
#include <vector>

#include "orva/internal/xml/name_list.hpp"
#include "orva/internal/xml/token_events.hpp"
#include "orva/internal/xml/walk.hpp"
#include "orva/parser/xml_parser.hpp"
#include "orva/parser/xml_token_stream.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::internal {

/// Like a token of `xml_token_stream`.
class view_token {
 public:
  using token_type = parser::xml_token_stream::token::token_type;
  using enum parser::xml_token_stream::token::token_type;

  view_token(token_type type, std::string_view value) noexcept
      : text_(value.data()), size_(value.size() & largest_size), type_(static_cast<std::uint8_t>(type)) {}

  token_type type() const noexcept { return static_cast<token_type>(type_); }
  std::string_view value() const noexcept { return {text_, static_cast<std::size_t>(size_)}; }

 private:
  static constexpr unsigned int size_bits = 56;
  static constexpr std::uint64_t largest_size = (std::uint64_t{1} << size_bits) - 1;

  const char* text_;
  std::uint64_t size_ : size_bits;
  std::uint64_t type_ : 8;
};

class xml_view_tokens {
 public:
  using iterator = std::vector<view_token>::const_iterator;

  /// Reads the tokens of `text`, which must outlive them, up to its end or the first error. Throws what
  /// `xml_parser::parse` throws. The error does not name the open element.
  [[nodiscard]] parser::xml_parser::parse_error parse(std::string_view text) {
    text_ = text;
    tokens_.reserve(text.size() / bytes_for_each_token);
    bool start_tag_closed = true;
    const auto add = [this](view_token::token_type type, std::string_view value) {
      const bool may_be_in_a_buffer = type == view_token::attribute_value || type == view_token::character;
      tokens_.emplace_back(type, may_be_in_a_buffer ? lasting(value) : value);
    };
    xml::token_events<view_token, decltype(add)> events(start_tag_closed, add);
    types::uint32 line = 0;
    xml::basic_name_list<std::string_view> open;
    xml::basic_name_set<std::string_view> seen_attributes;
    xml::document_walk walk(text.data(), text.data() + text.size(), line, open, seen_attributes, events);
    return walk.document().as<parser::xml_parser::parse_error>(text.data());
  }

  iterator begin() const noexcept { return tokens_.begin(); }
  iterator end() const noexcept { return tokens_.end(); }

 private:
  /// Few documents have more tokens than one for so many bytes.
  static constexpr std::size_t bytes_for_each_token = 7;

  /// A value with entities is in a buffer that the next event overwrites; it is copied.
  std::string_view lasting(std::string_view value) {
    const std::less<const char*> before;
    const bool is_in_text = !before(value.data(), text_.data()) &&
                            !before(text_.data() + text_.size(), value.data() + value.size());
    if (is_in_text) return value;
    return expanded_.emplace_back(value);
  }

  std::string_view text_;
  std::vector<view_token> tokens_;
  // A deque: its strings stay where they are when it grows.
  std::deque<strings::ustring8> expanded_;
};

}  // namespace ORVA_NAMESPACE::internal
