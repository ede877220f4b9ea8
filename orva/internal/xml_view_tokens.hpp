/// `xml_view_tokens`: the tokens that `xml_token_stream` makes of a text, as views into the text.
///
/// Internal: not installed. For a reader that keeps the text for as long as it walks the tokens: a token is
/// two words here, and nothing is copied but what entities are expanded in. One object reads one text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string_view>
#include <vector>

#include "orva/internal/xml/walk.hpp"
#include "orva/internal/xml/name_list.hpp"
#include "orva/parser/xml_parser.hpp"
#include "orva/parser/xml_token_stream.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::parser::_private {

/// Like a token of `xml_token_stream`.
class view_token {
 public:
  using token_type = xml_token_stream::token::token_type;
  using enum xml_token_stream::token::token_type;

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

  /// The tokens of `text`, which must outlive them, up to its end or the first error. What
  /// `xml_parser::parse` throws passes through.
  xml_parser::parse_error parse(std::string_view text) {
    text_ = text;
    tokens_.reserve(text.size() / likely_distance);
    types::uint32 line = 0;
    basic_name_list<std::string_view> open;
    basic_name_set<std::string_view> seen_attributes;
    return xml_walk(text.data(), text.data() + text.size(), line, open, seen_attributes, *this).document();
  }

  iterator begin() const noexcept { return tokens_.begin(); }
  iterator end() const noexcept { return tokens_.end(); }

  // What the walk finds. The mark that ends a start tag is placed as in `xml_token_stream`.

  void element_start(std::string_view name) {
    close_start_tag();
    add(view_token::element_start, name);
    start_tag_closed_ = false;
  }

  void element_end(std::string_view name) {
    close_start_tag();
    add(view_token::element_end, name);
  }

  void attribute(std::string_view name, std::string_view value) {
    add(view_token::attribute_name, name);
    add(view_token::attribute_value, kept(value));
  }

  void character(std::string_view text) {
    close_start_tag();
    add(view_token::character, kept(text));
  }

  void space(std::string_view text) {
    close_start_tag();
    add(view_token::space, text);
  }

  void comment(std::string_view text) { add(view_token::comment, text); }

 private:
  /// A token for every so many bytes is more than most documents have.
  static constexpr std::size_t likely_distance = 7;

  void add(view_token::token_type type, std::string_view value) { tokens_.emplace_back(type, value); }

  void close_start_tag() {
    if (start_tag_closed_) return;
    add(view_token::start_tag_end, {});
    start_tag_closed_ = true;
  }

  /// What does not stand in the text is gone with the next event.
  std::string_view kept(std::string_view value) {
    const std::less<const char*> before;
    const bool is_in_text = !before(value.data(), text_.data()) &&
                            !before(text_.data() + text_.size(), value.data() + value.size());
    if (is_in_text) return value;
    return expanded_.emplace_back(value);
  }

  std::string_view text_;
  bool start_tag_closed_ = true;
  std::vector<view_token> tokens_;
  // Stays where it is when it grows.
  std::deque<strings::ustring8> expanded_;
};

}  // namespace ORVA_NAMESPACE::parser::_private
