// The grammar of `xml_stream_parser`: one function for each token. Each moves the lexer to the end of the
// token, or throws what stopped it. Nothing changes for good before a token is whole.
#include <string_view>
#include <utility>

#include "orva/internal/xml/lexical_rules.hpp"
#include "orva/parser/internal/xml_stream_implementation.hpp"

namespace ORVA_NAMESPACE::parser::_private {

bool xml_stream_implementation::parse_next() {
  lexer_.start(window_.first(), window_.last(), line_of_window_);
  try {
    if (in_comment_ && !finish_comment()) throw incomplete;
    while (!lexer_.at_end()) {
      const step taken = next_token();
      if (taken != step::taken) return taken == step::paused;
      consume();
      if (finished()) break;
    }
  } catch (error_type stopped_by) {
    error_ = stopped_by;
  } catch (...) {
    cause_ = std::current_exception();
    error_ = fatal_error;
  }
  return false;
}

xml_stream_implementation::step xml_stream_implementation::next_token() {
  const char c = lexer_.current();
  if (c == '<') return markup();
  if (internal::xml::is_white_space(c)) {
    lexer_.skip_white_space();
  } else if (c == '>') {
    closing_bracket();
  } else if (!in_tag_) {
    text();
  } else if (c == '/') {
    return self_close();
  } else {
    attribute();
  }
  return step::taken;
}

xml_stream_implementation::step xml_stream_implementation::markup() {
  if (in_tag_) throw unexpected_character;
  if (lexer_.left() < 2) throw incomplete;
  const char kind = lexer_.current(1);
  if (kind != '/' && kind != '!') return start_tag();
  kind == '/' ? end_tag() : declaration();
  return step::taken;
}

xml_stream_implementation::step xml_stream_implementation::start_tag() {
  if (queue_.is_overfull()) return step::paused;
  lexer_.step();
  const std::string_view name = lexer_.name();
  if (name.empty()) throw unexpected_character;
  const bool is_open_level = open_names_.size() < open_depth_ && name != "include";
  if (is_open_level) {
    if (root_.empty()) root_ = name;
    open_names_.emplace_back(name);
  }
  queue_.open_element(name, incomplete, is_open_level, lexer_.line());
  seen_attributes_.clear();
  in_tag_ = true;
  return step::taken;
}

void xml_stream_implementation::end_tag() {
  lexer_.step(2);
  const std::string_view name = lexer_.name();
  // An end tag without a name is reported as cut off, even if more follows.
  if (name.empty()) throw incomplete;
  if (queue_.open_elements() <= open_depth_) {
    close_open_level(name);
  } else {
    if (queue_.innermost_name() != name) throw mismatched_tag;
    close_element();
  }
  awaiting_close_ = true;
}

/// The root is recognised by its name alone: the end of an open level of the same name ends the document.
void xml_stream_implementation::close_open_level(std::string_view name) {
  if (open_names_.empty() || open_names_.back() != name) throw mismatched_tag;
  const bool is_root = name == root_;
  end_of_open_level(name, is_root ? end_of_document : no_error);
  root_closed_ = root_closed_ || is_root;
  queue_.forget_element();
  open_names_.pop_back();
}

/// A comment. No other declaration is known: of those the < is passed over, and the rest is read as text.
void xml_stream_implementation::declaration() {
  if (lexer_.left() < 4) throw incomplete;
  if (!lexer_.rest().starts_with("<!--")) return lexer_.step();
  lexer_.step(4);
  in_comment_ = !finish_comment();
  if (in_comment_) throw incomplete;
}

/// A comment is consumed as far as it was read, so that it may be longer than the window.
bool xml_stream_implementation::finish_comment() {
  const bool is_whole = lexer_.skip_comment();
  if (is_whole) in_comment_ = false;
  consume();
  return is_whole;
}

xml_stream_implementation::step xml_stream_implementation::self_close() {
  if (lexer_.left() < 2) return step::cut_off;
  lexer_.step();
  if (lexer_.current() != '>') throw unexpected_character;
  if (queue_.open_elements() == 0) throw mismatched_tag;
  lexer_.step();
  in_tag_ = false;
  // An open level is closed by an end tag only: its name stays in `open_names_`.
  close_element();
  return step::taken;
}

void xml_stream_implementation::closing_bracket() {
  if (!in_tag_ && !awaiting_close_) throw unexpected_character;
  lexer_.step();
  if (in_tag_) {
    in_tag_ = false;
    return;
  }
  awaiting_close_ = false;
  if (root_closed_) error_ = end_of_document;
}

void xml_stream_implementation::attribute() {
  const std::string_view name = lexer_.name();
  if (name.empty()) throw unexpected_character;
  if (lexer_.current() != '=') throw missing_equals;
  lexer_.step();
  ustring8 value = lexer_.value();
  if (!seen_attributes_.insert(name)) throw duplicate_attribute;
  queue_.add_attribute(name, std::move(value));
}

void xml_stream_implementation::text() {
  ustring8 content = lexer_.text();
  if (queue_.open_elements() < 2) throw unexpected_character;
  queue_.set_text(std::move(content));
}

void xml_stream_implementation::close_element() {
  queue_.close_element();
  seen_attributes_.clear();
}

void xml_stream_implementation::end_of_open_level(std::string_view name, error_type status) {
  queue_.add_end(name, status, lexer_.line(), static_cast<types::uint32>(open_names_.size()));
}

}  // namespace ORVA_NAMESPACE::parser::_private
