/// A configuration file as a person reads it: line by line, each a section, a key with its value, a comment
/// or empty. Only arrays after a comma and text in quotes go on in the next line. A text in which
/// `config::check_text` finds neither error nor warning reads so.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/reference_config.hpp"

namespace orva_test {

class reference_line_reader {
 public:
  explicit reference_line_reader(std::string text) : text_(std::move(text)) {
    while (at_ < text_.size()) read_line();
  }

  reference_tree tree;

 private:
  bool blank() const { return at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t'); }
  bool is(const std::string& what) const { return text_.compare(at_, what.size(), what) == 0; }
  bool comment() const { return is("#") || is("//"); }
  bool line_ended() const { return at_ >= text_.size() || is("\n") || is("\r\n"); }
  void skip_blanks() {
    while (blank()) ++at_;
  }
  void skip_line() {
    while (!line_ended()) ++at_;
  }
  void skip_line_end() { at_ += is("\r\n") ? 2 : 1; }

  static std::string trimmed(std::string text) {
    const auto end = text.find_last_not_of(" \t");
    return text.substr(0, end == text.npos ? 0 : end + 1);
  }

  std::string quoted() {
    std::string text;
    for (++at_; at_ < text_.size() && text_[at_] != '"'; ++at_) {
      if (text_[at_] == '\\') text += text_[at_++];
      if (at_ < text_.size()) text += text_[at_];
    }
    ++at_;
    return text;
  }

  /// A text in quotes, and what follows it up to `end`, which is passed. Blanks count only in quotes.
  struct placed_name {
    std::string quoted;
    std::string plain;
    std::string text() const { return quoted + plain; }
  };
  placed_name name_up_to(char end) {
    skip_blanks();
    placed_name name;
    if (is("\"")) name.quoted = quoted();
    while (!line_ended() && text_[at_] != end) name.plain += text_[at_++];
    ++at_;
    name.plain = trimmed(name.plain);
    return name;
  }

  /// A text in quotes, or all up to a comment, the line end or, in an array, a comma.
  std::string value(bool is_element) {
    skip_blanks();
    if (is("\"")) {
      const std::string text = quoted();
      skip_blanks();
      return text;
    }
    std::string text;
    while (!line_ended() && !(is_element && is(","))) {
      const bool after_blank = text.empty() || text.back() == ' ' || text.back() == '\t';
      if (after_blank && comment()) break;
      text += text_[at_++];
    }
    return trimmed(text);
  }

  void read_line() {
    skip_blanks();
    if (is("[")) {
      ++at_;
      section_ = name_up_to(']').text();
      if (!section_.empty()) section_ += '.';
    } else if (!comment() && !line_ended()) {
      read_key();
    }
    skip_line();
    skip_line_end();
  }

  /// `[]` at the end, with blanks before and in it.
  static bool removed_array_mark(std::string& plain) {
    if (plain.empty() || plain.back() != ']') return false;
    const std::string rest = trimmed(plain.substr(0, plain.size() - 1));
    if (rest.empty() || rest.back() != '[') return false;
    plain = trimmed(rest.substr(0, rest.size() - 1));
    return true;
  }

  void read_key() {
    placed_name key = name_up_to('=');
    if (!removed_array_mark(key.plain)) {
      const std::string text = value(false);
      if (!text.empty()) tree.set(section_ + key.text(), text, 0);
      return;
    }
    std::vector<std::string> elements{value(true)};
    while (is(",")) {
      ++at_;
      go_to_element();
      elements.push_back(value(true));
    }
    tree.set_array(section_ + key.text(), elements);
  }

  /// Over line ends and comments.
  void go_to_element() {
    skip_blanks();
    while (at_ < text_.size() && (comment() || line_ended())) {
      skip_line();
      skip_line_end();
      skip_blanks();
    }
  }

  std::string text_;
  std::size_t at_ = 0;
  std::string section_;
};

}  // namespace orva_test
