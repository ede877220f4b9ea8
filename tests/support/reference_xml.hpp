/// A second implementation of the event parser, slow and plain, that the library's is compared with. It reads
/// one character at a time, with one line for each rule, and shares nothing with the library.
#pragma once

#include <cctype>
#include <deque>
#include <optional>
#include <set>
#include <string>

#include "tests/support/xml_events.hpp"

namespace orva_test {

class reference_xml {
 public:
  using parse_error = ORVA_NAMESPACE::parser::xml_parser::parse_error;

  /// The names that a failed parse left open stay for the next one.
  xml_outcome parse(const std::string& text) {
    text_ = text;
    at_ = offset_ = 0;
    outcome_ = {};
    in_tag_ = root_seen_ = false;
    try {
      document();
    } catch (const stop&) {
    }
    return outcome_;
  }

  /// Where the last parse stopped.
  std::size_t offset() const { return offset_; }
  std::string open_element() const { return open_.empty() ? "" : open_.back(); }

 private:
  struct stop {};

  /// Nothing where the text ends.
  std::optional<char> look(std::size_t ahead = 0) const {
    if (at_ + ahead >= text_.size()) return std::nullopt;
    return text_[at_ + ahead];
  }
  bool ended() const { return !look(); }
  bool at(const std::string& expected) const { return text_.compare(at_, expected.size(), expected) == 0; }
  static bool white(std::optional<char> c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
  static bool letter(std::optional<char> c) { return c && std::isalpha(static_cast<unsigned char>(*c)) != 0; }
  static bool name_unit(std::optional<char> c) {
    return c && (std::isalnum(static_cast<unsigned char>(*c)) != 0 || *c == '_');
  }

  void event(const std::string& kind, const std::string& text) {
    outcome_.events.push_back(kind + ' ' + text);
  }

  [[noreturn]] void fail(parse_error::error_type type, const std::string& data = "") {
    fail_at(at_, type, data);
  }
  [[noreturn]] void fail_at(std::size_t offset, parse_error::error_type type, const std::string& data = "") {
    offset_ = offset;
    outcome_.type = type;
    outcome_.data = data;
    throw stop();
  }
  [[noreturn]] void unexpected(std::size_t ahead) {
    fail_at(at_ + ahead, parse_error::unexpected_character, look(ahead) ? std::string(1, *look(ahead)) : "");
  }

  std::string white_space() {
    std::string result;
    for (; white(look()); ++at_) {
      if (look() == '\n') ++outcome_.line;
      result += *look();
    }
    return result;
  }

  std::string name() {
    if (!letter(look())) unexpected(0);
    std::string result;
    for (; name_unit(look()); ++at_) result += *look();
    return result;
  }

  char reference(int radix) {
    std::string digits;
    const auto is_digit = [radix](unsigned char c) {
      return radix == 16 ? std::isxdigit(c) : std::isdigit(c);
    };
    for (; look() && is_digit(static_cast<unsigned char>(*look())) != 0; ++at_) digits += *look();
    if (look() != ';') unexpected(0);
    ++at_;
    unsigned int value = 0;
    for (const char digit : digits) {
      value = value * static_cast<unsigned int>(radix) +
              static_cast<unsigned int>(std::stoi(std::string(1, digit), nullptr, 16));
      if (value > 255) {
        outcome_ = {outcome_.events, parse_error::no_error, 0, "", true};
        offset_ = ampersand_;
        throw stop();
      }
    }
    return static_cast<char>(value);
  }

  char entity(const std::string& name, char value) {
    if (!at('&' + name + ';')) unexpected(2);
    at_ += name.size() + 2;
    return value;
  }

  char character() {
    ampersand_ = at_;
    if (at("&#x")) return at_ += 3, reference(16);
    if (at("&#")) return at_ += 2, reference(10);
    if (look(1) == 'l') return entity("lt", '<');
    if (look(1) == 'g') return entity("gt", '>');
    if (look(1) == 'a' && look(2) == 'm') return entity("amp", '&');
    if (look(1) == 'a') return entity("apos", '\'');
    if (look(1) == 'q') return entity("quot", '"');
    if (look(1) == 'n') return entity("nbsp", ' ');
    fail(parse_error::unknown_entity);
  }

  std::string value() {
    if (look() != '\'' && look() != '"') fail(parse_error::missing_quote);
    const char quote = text_[at_++];
    std::string result;
    while (!ended() && look() != quote) {
      if (look() == '<') unexpected(0);
      result += look() == '&' ? character() : text_[at_++];
    }
    return result;
  }

  void document() {
    if (look(3) == '<') at_ += 3;
    if (!at("<?xml")) fail(parse_error::bad_header);
    for (at_ += 5; !at("?>"); ++at_) {
      if (ended()) fail(parse_error::no_root_element);
      if (look() == '<' || look() == '>') fail(parse_error::bad_header);
    }
    at_ += 2;
    white_space();
    if (ended()) fail(parse_error::no_root_element);
    while (!ended()) content();
    outcome_.line = 0;
    offset_ = at_;
    if (!open_.empty()) fail(parse_error::unexpected_eof);
  }

  void content() {
    const auto space = white_space();
    if (!space.empty() && !in_tag_) event("space", space);
    if (ended()) return;
    if (look() == '<') {
      if (in_tag_) unexpected(0);
      in_tag_ = true;
      if (at("</")) return end_tag();
      if (at("<!--")) return section("<!--", "-->", "comment");
      if (at("<![CDATA[")) return section("<![CDATA[", "]]>", "character");
      return start_tag();
    }
    if (look() == '>') {
      if (!in_tag_) unexpected(0);
      in_tag_ = false;
      ++at_;
    } else if (!in_tag_) {
      text();
    } else if (look() == '/') {
      self_close();
    } else {
      attribute();
    }
  }

  void end_tag() {
    const auto tag = at_ += 2;
    const auto closed = name();
    if (open_.empty() || open_.back() != closed) fail_at(tag, parse_error::mismatched_end_element, closed);
    open_.pop_back();
    if (ended()) fail_at(tag, parse_error::unexpected_eof);
    event("end", closed);
  }

  void section(const std::string& opener, const std::string& closer, const std::string& kind) {
    std::string inner;
    const auto section = at_;
    for (at_ += opener.size(); !at(closer); ++at_) {
      if (ended()) fail_at(section, parse_error::unexpected_eof);
      inner += *look();
    }
    at_ += closer.size();
    in_tag_ = false;
    event(kind, inner);
  }

  void start_tag() {
    if (open_.empty() && root_seen_) fail(parse_error::data_after_root);
    ++at_;
    open_.push_back(name());
    seen_.clear();
    event("start", open_.back());
    root_seen_ = true;
  }

  void self_close() {
    ++at_;
    if (look() != '>') unexpected(0);
    if (open_.empty()) fail(parse_error::mismatched_end_element);
    event("end", open_.back());
    in_tag_ = false;
    open_.pop_back();
    seen_.clear();
    ++at_;
  }

  void attribute() {
    const auto begin = at_;
    const auto attribute_name = name();
    if (!seen_.insert(attribute_name).second)
      fail_at(begin, parse_error::attribute_redefined, attribute_name);
    white_space();
    if (look() != '=') fail_at(begin, parse_error::missing_equals, attribute_name);
    ++at_;
    white_space();
    event("attribute", attribute_name + '=' + value());
    if (ended()) fail_at(begin, parse_error::missing_quote, attribute_name);
    ++at_;
  }

  void text() {
    std::string run;
    while (!ended() && look() != '<' && !(white(look()) && white(look(1)))) {
      run += look() == '&' ? character() : text_[at_++];
    }
    event("character", run);
  }

  std::string text_;
  std::size_t at_ = 0;
  std::size_t ampersand_ = 0;
  std::size_t offset_ = 0;
  bool in_tag_ = false;
  bool root_seen_ = false;
  std::deque<std::string> open_;
  std::set<std::string> seen_;
  xml_outcome outcome_;
};

}  // namespace orva_test
