/// `token_events`: the events of a walk as tokens, for `xml_token_stream` and `xml_view_tokens`.
///
/// Internal: not installed.
#pragma once

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal::xml {

/// Calls `add(type, text)` for each token of an event. `Token` names the types.
///
/// A start tag is closed by the first event that is no attribute: that is where a `start_tag_end` is added. A
/// comment may come anywhere and leaves the start tag open.
template <typename Token, typename Add>
class token_events {
 public:
  /// `start_tag_closed` is the state between two events; it is true at first.
  token_events(bool& start_tag_closed, Add add) : start_tag_closed_(start_tag_closed), add_(add) {}

  template <typename Text>
  void element_start(const Text& name) {
    close_start_tag<Text>();
    add_(Token::element_start, name);
    start_tag_closed_ = false;
  }

  template <typename Text>
  void element_end(const Text& name) {
    close_start_tag<Text>();
    add_(Token::element_end, name);
  }

  template <typename Text>
  void attribute(const Text& name, const Text& value) {
    add_(Token::attribute_name, name);
    add_(Token::attribute_value, value);
  }

  template <typename Text>
  void character(const Text& text) {
    close_start_tag<Text>();
    add_(Token::character, text);
  }

  template <typename Text>
  void space(const Text& text) {
    close_start_tag<Text>();
    add_(Token::space, text);
  }

  template <typename Text>
  void comment(const Text& text) {
    add_(Token::comment, text);
  }

 private:
  template <typename Text>
  void close_start_tag() {
    if (start_tag_closed_) return;
    add_(Token::start_tag_end, Text());
    start_tag_closed_ = true;
  }

  bool& start_tag_closed_;
  Add add_;
};

}  // namespace ORVA_NAMESPACE::internal::xml
