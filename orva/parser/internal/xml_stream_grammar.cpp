// What xml_stream_parser makes of the bytes in its window: one function for each construct of the grammar.
// Each leaves the cursor behind what it took, and throws what stopped it; nothing is changed for good before
// a token is whole.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <utility>

#include "orva/generic/convert/str_to_x.hpp"
#include "orva/internal/text/character_class.hpp"
#include "orva/parser/xml_stream_parser.hpp"

namespace ORVA_NAMESPACE::parser {

namespace {

enum byte_class : std::uint8_t {
  in_name = 1,
  ends_plain_text = 2,
  ends_plain_value_in_single_quotes = 4,
  ends_plain_value_in_double_quotes = 8,
};

constexpr std::uint8_t classify(unsigned int byte) {
  const bool is_letter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
  // Every byte of a multi-byte character belongs to a name, whatever the locale calls it.
  if (is_letter || (byte >= '0' && byte <= '9') || byte == '_' || byte >= 128) return in_name;
  if (byte == '\'') return ends_plain_value_in_single_quotes;
  if (byte == '"') return ends_plain_value_in_double_quotes;
  if (byte != '<' && byte != '&') return 0;
  return ends_plain_text | ends_plain_value_in_single_quotes | ends_plain_value_in_double_quotes;
}

constexpr auto byte_classes = [] {
  std::array<std::uint8_t, 256> table{};
  for (unsigned int byte = 0; byte < table.size(); ++byte) table[byte] = classify(byte);
  return table;
}();

bool is(char c, std::uint8_t wanted) { return (byte_classes[static_cast<unsigned char>(c)] & wanted) != 0; }

}  // namespace

bool xml_stream_parser::parse_next() {
  cursor_ = mark_;
  line_ = mark_line_;
  try {
    if (in_comment_ && !finish_comment()) throw incomplete;
    while (cursor_ != data_end_) {
      const step taken = next_token();
      if (taken != step::taken) return taken == step::paused;
      mark_ = cursor_;
      mark_line_ = line_;
      if (finished()) break;
    }
  } catch (error_type stopped_by) {
    error_ = stopped_by;
  } catch (...) {
    error_ = fatal_error;
  }
  return false;
}

xml_stream_parser::step xml_stream_parser::next_token() {
  const char c = *cursor_;
  if (c == '<') return markup();
  if (is_whitespace(c)) {
    skip_whitespace();
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

xml_stream_parser::step xml_stream_parser::markup() {
  if (in_tag_) throw unexpected_character;
  if (left() < 2) throw incomplete;
  if (cursor_[1] != '/' && cursor_[1] != '!') return start_tag();
  cursor_[1] == '/' ? end_tag() : comment();
  return step::taken;
}

xml_stream_parser::step xml_stream_parser::start_tag() {
  if (node_queue_.size() > enough_nodes && !queue_size_less_than(2)) return step::paused;
  ++cursor_;
  const std::string_view name = parse_name();
  if (name.empty()) throw unexpected_character;
  const bool is_open_level = open_names_.size() < open_depth_ && name != "include";
  if (is_open_level) {
    if (root_.empty()) root_ = name;
    open_names_.emplace_back(name);
  }
  new_node(name, incomplete, is_open_level);
  seen_attributes_.clear();
  in_tag_ = true;
  return step::taken;
}

void xml_stream_parser::end_tag() {
  cursor_ += 2;
  const std::string_view name = parse_name();
  // Without a name it is told as cut off, wherever it stands.
  if (name.empty()) throw incomplete;
  if (open_tags_.size() <= open_depth_) {
    close_open_level(name);
  } else {
    if (open_tags_.back().name != name) throw mismatched_tag;
    close_tag();
  }
  awaiting_close_ = true;
}

/// The root is known by its name alone: an open level within it that bears the same name ends the document.
void xml_stream_parser::close_open_level(std::string_view name) {
  if (open_names_.empty() || open_names_.back() != name) throw mismatched_tag;
  const bool is_root = name == root_;
  end_of_open_node(name, is_root ? end_of_document : no_error);
  root_closed_ = root_closed_ || is_root;
  pop_open_tag();
  open_names_.pop_back();
}

void xml_stream_parser::comment() {
  if (left() < 4) throw incomplete;
  if (cursor_[2] != '-' || cursor_[3] != '-') {
    // No other declaration is known: the bracket is passed over, and what follows is read as text.
    ++cursor_;
    return;
  }
  cursor_ += 4;
  in_comment_ = !finish_comment();
  if (in_comment_) throw incomplete;
}

/// Four bytes are looked at where three would do: a comment ends in front of something.
bool xml_stream_parser::finish_comment() {
  for (; left() >= 4; ++cursor_) {
    if (*cursor_ == '\n') ++line_;
    if (*cursor_ != '-' || cursor_[1] != '-') continue;
    if (cursor_[2] != '>') throw unexpected_character;
    cursor_ += 3;
    in_comment_ = false;
    mark_ = cursor_;
    mark_line_ = line_;
    return true;
  }
  mark_ = cursor_;
  mark_line_ = line_;
  return false;
}

xml_stream_parser::step xml_stream_parser::self_close() {
  if (left() < 2) return step::cut_off;
  if (*++cursor_ != '>') throw unexpected_character;
  if (open_tags_.empty()) throw mismatched_tag;
  ++cursor_;
  in_tag_ = false;
  // The name of an open level stays open: open levels are closed by end tags only.
  close_tag();
  return step::taken;
}

void xml_stream_parser::closing_bracket() {
  if (!in_tag_ && !awaiting_close_) throw unexpected_character;
  ++cursor_;
  if (in_tag_) {
    in_tag_ = false;
    return;
  }
  awaiting_close_ = false;
  if (root_closed_) error_ = end_of_document;
}

void xml_stream_parser::attribute() {
  const std::string_view name = parse_name();
  if (name.empty()) throw unexpected_character;
  if (*cursor_ != '=') throw missing_equals;
  ++cursor_;
  ustring8 value = parse_attrib_value();
  if (!seen_attributes_.insert(name)) throw duplicate_attribute;
  if (node* const owner = innermost_node()) owner->attribs_.emplace_back(name, std::move(value));
}

void xml_stream_parser::text() {
  ustring8 content;
  expand_up_to(ends_plain_text, content);
  if (open_tags_.size() < 2) throw unexpected_character;
  if (node* const owner = innermost_node()) owner->data_ = std::move(content);
}

std::string_view xml_stream_parser::parse_name() {
  std::string_view name;
  if (!scan_name(name)) throw incomplete;
  return name;
}

/// False if the name may go on behind the data.
bool xml_stream_parser::scan_name(std::string_view& name) noexcept {
  skip_whitespace();
  const char* last = cursor_;
  for (const char* const end = data_end_; last != end && is(*last, in_name); ++last) {
  }
  name = std::string_view(cursor_, static_cast<std::size_t>(last - cursor_));
  cursor_ = last;
  return last != data_end_;
}

xml_stream_parser::ustring8 xml_stream_parser::parse_attrib_value() {
  skip_whitespace();
  if (left() == 0) throw incomplete;
  const char quote = *cursor_;
  if (quote != '\'' && quote != '"') throw missing_quote;
  ++cursor_;
  ustring8 value;
  expand_up_to(quote == '"' ? ends_plain_value_in_double_quotes : ends_plain_value_in_single_quotes, value);
  if (*cursor_ == '<') throw unexpected_character;
  ++cursor_;
  return value;
}

/// Appends what stands in front of the first byte that ends it, entities expanded, and stops on that byte.
void xml_stream_parser::expand_up_to(std::uint8_t ending, ustring8& to) {
  for (;;) {
    const char* last = cursor_;
    for (const char* const end = data_end_; last != end && !is(*last, ending); ++last) {
    }
    to.append(cursor_, last);
    cursor_ = last;
    if (cursor_ == data_end_) throw incomplete;
    if (*cursor_ != '&') return;
    to.push_back(parse_entity());
  }
}

char xml_stream_parser::parse_entity() {
  struct entity {
    std::string_view opener;
    std::string_view text;
    char value;
  };
  static constexpr std::array<entity, 6> entities{{{"&l", "&lt;", '<'},
                                                   {"&g", "&gt;", '>'},
                                                   {"&am", "&amp;", '&'},
                                                   {"&ap", "&apos;", '\''},
                                                   {"&q", "&quot;", '"'},
                                                   {"&n", "&nbsp;", ' '}}};
  if (left() < 5) throw incomplete;
  const std::string_view data(cursor_, left());
  if (data[1] == '#') return character_reference();
  for (const auto& [opener, text, value] : entities) {
    if (!data.starts_with(opener)) continue;
    if (data.size() < text.size()) throw incomplete;
    if (!data.starts_with(text)) throw unexpected_character;
    cursor_ += text.size();
    return value;
  }
  throw unexpected_character;
}

char xml_stream_parser::character_reference() {
  const bool is_hexadecimal = cursor_[2] == 'x';
  const char* const digits = cursor_ + (is_hexadecimal ? 3 : 2);
  const char* last = digits;
  const auto is_digit = [is_hexadecimal](char c) {
    return is_hexadecimal ? internal::character_class::isxdigit(c) : internal::character_class::isdigit(c);
  };
  while (last != data_end_ && is_digit(*last)) ++last;
  if (last == data_end_) throw incomplete;
  if (*last != ';') throw unexpected_character;
  const auto radix = is_hexadecimal ? types::radix_t::hexadecimal : types::radix_t::decimal;
  const auto value =
      generic::convert::str_to_uint8(digits, static_cast<std::size_t>(last - digits), radix, true);
  cursor_ = last + 1;
  return static_cast<char>(value);
}

void xml_stream_parser::skip_whitespace() noexcept {
  const char* at = cursor_;
  types::uint32 feeds = 0;
  for (const char* const end = data_end_; at != end && is_whitespace(*at); ++at) feeds += *at == '\n' ? 1 : 0;
  cursor_ = at;
  line_ += feeds;
}

void xml_stream_parser::new_node(std::string_view name, error_type status, bool available) {
  node& made = node_queue_.emplace_back();
  made.status_ = status;
  made.available_ = available;
  made.line_ = line_;
  made.id_ = next_id_++;
  made.parent_id_ = id_stack_.back();
  made.tag_ = name;
  id_stack_.push_back(made.id_);
  open_tags_.push_back({made.tag_, std::prev(node_queue_.end())});
}

void xml_stream_parser::close_tag() {
  if (node* const closed = innermost_node()) {
    closed->status_ = no_error;
    closed->available_ = true;
  }
  pop_open_tag();
  seen_attributes_.clear();
  pop_id();
}

void xml_stream_parser::end_of_open_node(std::string_view name, error_type status) {
  node& made = node_queue_.emplace_back();
  made.status_ = status;
  made.available_ = true;
  made.line_ = line_;
  made.id_ = static_cast<types::uint32>(open_names_.size());
  made.tag_ = name;
  pop_id();
}

/// None if it was taken from the queue while its element is open: what comes late for it is dropped.
xml_stream_parser::node* xml_stream_parser::innermost_node() noexcept {
  return open_tags_.size() > open_tags_without_node_ ? &*open_tags_.back().position : nullptr;
}

/// An open level that was closed by /> leaves less tags than names, so that there may be none.
void xml_stream_parser::pop_open_tag() noexcept {
  if (!open_tags_.empty()) open_tags_.pop_back();
  open_tags_without_node_ = std::min(open_tags_without_node_, open_tags_.size());
}

/// The 0 at its bottom stays, for the same reason.
void xml_stream_parser::pop_id() noexcept {
  if (id_stack_.size() > 1) id_stack_.pop_back();
}

}  // namespace ORVA_NAMESPACE::parser
