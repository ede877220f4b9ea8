#include "orva/config/internal/file_line_checker.hpp"

#include <algorithm>
#include <utility>

#include "orva/config/internal/hidden_character.hpp"

namespace ORVA_NAMESPACE::config::_private {

using diagnostics::severity;

namespace {

placed_name placed(const checked_name& name) { return {name.text, name.raw, name.begin}; }

}  // namespace

void file_line_checker::check() {
  while (!text_.at_end()) {
    check_line();
    if (text_.at_line_end()) text_.skip_line_end();
  }
  if (open_line_ != nowhere) add_error("config.line_ignored", open_line_);
  keys_.finish();
  text_.finish();
}

void file_line_checker::check_line() {
  text_.skip_blanks();
  if (text_.at_line_end()) return;
  if (text_.at_comment()) return text_.read_comment();
  if (text_.next_is(";")) return check_semicolon();
  if (text_.next_is("/*")) return check_block_comment();
  if (text_.next_is("[")) return check_section();
  check_key();
}

/// Up to the line end, in any token: this is how the line looks.
bool file_line_checker::rest_has_equals() {
  const std::size_t begin = text_.position();
  const std::size_t length = text_.ahead().line_end(begin) - begin;
  return text_.text().substr(begin, length).find('=') != std::string_view::npos;
}

/// Without `=` it becomes a part of the next key, with `=` a key of its own.
void file_line_checker::check_semicolon() {
  keys_.section_is_used();
  text_.read_semicolon(rest_has_equals() ? severity::warning : severity::error);
}

void file_line_checker::check_block_comment() {
  const std::size_t begin = text_.position();
  keys_.section_is_used();
  add_error("config.block_comment", begin);
  const std::size_t end = text_.ahead().block_comment_end(begin + 2);
  if (end == text_.text().size()) return text_.skip_line();
  text_.go_to(end + 2);
}

void file_line_checker::check_section() {
  const std::size_t open = text_.position();
  after_array_ = false;
  text_.go_to(open + 1);
  const checked_name name = read_section_name(text_);
  keys_.open_section({name.text, name.raw, open});
  if (name.ended_by == checked_name::end::line_end) {
    keys_.section_is_used();
    if (!name.broken) add_error("config.unclosed_section", open);
    return;
  }
  check_section_spelling(name, text_);
  check_after_section();
}

void file_line_checker::check_after_section() {
  text_.skip_blanks();
  if (text_.at_line_end()) return;
  if (text_.at_comment()) return text_.read_comment();
  if (text_.next_is(";")) return check_semicolon();
  if (rest_has_equals()) {
    add_warning("config.text_after_section", text_.position());
    return check_key();
  }
  add_error("config.text_after_section", text_.position());
  text_.skip_line();
}

void file_line_checker::check_key() {
  const std::size_t begin = text_.position();
  keys_.section_is_used();
  const checked_name name = read_key_name(text_);
  if (name.broken) return;
  if (name.ended_by == checked_name::end::equals && name.pair == nowhere) {
    check_assignment(name, text_.position() - 1);
  } else {
    check_without_assignment(name, begin);
  }
}

/// Lines without `=` are joined with the next line that has one.
void file_line_checker::begin_open_line(std::size_t offset) { open_line_ = std::min(open_line_, offset); }

void file_line_checker::end_open_lines(std::size_t offset) {
  if (open_line_ == nowhere) return;
  text_.found().add(severity::error, "config.line_without_equals", open_line_, {}, offset);
  open_line_ = nowhere;
}

void file_line_checker::check_without_assignment(const checked_name& name, std::size_t line_begin) {
  if (name.pair != nowhere) {
    end_open_lines(name.pair);
    const std::string_view pair = text_.text().substr(name.pair, 2);
    add_error("config.operator_in_key", name.pair, generic::argument("operator", strings::ustring8(pair)));
    return text_.skip_line();
  }
  const bool has_comment = name.ended_by == checked_name::end::comment;
  if (has_comment && rest_has_equals()) {
    end_open_lines(line_begin);
    add_warning("config.comment_in_key", text_.position());
  } else if (name.colon != nowhere) {
    end_open_lines(line_begin);
    add_error("config.colon_for_equals", name.colon);
  } else if (name.hidden != nowhere && name.only_hidden) {
    check_key_spelling(name, text_);
  } else if (name.raw.starts_with(',') && after_array_) {
    add_error("config.array_ended", line_begin);
  } else {
    begin_open_line(line_begin);
  }
  after_array_ = false;
  if (has_comment) text_.read_comment();
}

void file_line_checker::check_assignment(const checked_name& key, std::size_t equals) {
  after_array_ = false;
  const bool joined = open_line_ != nowhere;
  end_open_lines(key.begin == nowhere ? equals : key.begin);
  if (key.empty() && !joined) {
    add_error("config.missing_key", key.begin == nowhere ? equals : key.begin);
    return text_.skip_line();
  }
  if (!key.empty()) check_key_spelling(key, text_);
  if (key.text.ends_with("[]")) {
    check_array(key, equals);
  } else {
    check_scalar(key, equals);
  }
}

void file_line_checker::check_scalar(const checked_name& key, std::size_t equals) {
  const checked_value value = read_value(text_, value_kind::scalar);
  if (!value.stored && value.cut) return;
  if (!value.stored && !value.broken) {
    return add_warning("config.empty_value", value.empty() ? equals : value.begin,
                       generic::argument("name", shortened(key.text)));
  }
  check_spelling(value, value_kind::scalar, text_);
  if (!key.empty()) keys_.add_value(placed(key));
}

void file_line_checker::check_array(const checked_name& key, std::size_t equals) {
  std::size_t count = 0;
  after_array_ = true;
  if (!read_elements(key, equals, count)) return;
  placed_name name = placed(key);
  name.text.resize(name.text.size() - 2);
  keys_.add_array(name, count);
}

/// False if the array is not stored. `count` is the number of elements.
bool file_line_checker::read_elements(const checked_name& key, std::size_t equals, std::size_t& count) {
  bool stored = true;
  for (std::size_t comma = nowhere;;) {
    const checked_value value = read_value(text_, value_kind::element);
    if (value.comma == nowhere && value.empty() && comma != nowhere) {
      if (array_continues(comma, stored)) continue;
      return stored;
    }
    check_spelling(value, value_kind::element, text_);
    ++count;
    comma = value.comma;
    if (comma != nowhere) continue;
    if (value.stored || value.broken) return true;
    if (value.cut) return false;
    if (count == 1) {
      add_warning("config.empty_value", value.empty() ? equals : value.begin,
                  generic::argument("name", shortened(key.text)));
    } else {
      add_error("config.array_not_stored", value.begin);
    }
    return false;
  }
}

/// After a comma at the end of a line: goes to the next line with text. False if that does not look like
/// elements; `stored` is false if there is none.
bool file_line_checker::array_continues(std::size_t comma, bool& stored) {
  for (;;) {
    text_.skip_line_end();
    const std::size_t begin = text_.position();
    text_.skip_blanks();
    if (text_.at_end()) {
      stored = false;
      add_error("config.array_not_stored", comma);
      return false;
    }
    if (text_.at_comment()) {
      text_.read_comment();
    } else if (!text_.at_line_end()) {
      const line_look look = look_of_line(text_.text(), begin);
      if (look == line_look::plain) return true;
      const auto level = look == line_look::section ? severity::error : severity::warning;
      text_.found().add(level, "config.array_takes_line", comma, {}, text_.position());
      return false;
    }
  }
}

}  // namespace ORVA_NAMESPACE::config::_private
