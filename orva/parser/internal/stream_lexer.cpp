#include "orva/parser/internal/stream_lexer.hpp"

namespace ORVA_NAMESPACE::parser::_private {

namespace xml = internal::xml;
using strings::ustring8;

namespace {

/// No entity is recognised while fewer bytes than this are there, though &lt; and &gt; have only four.
constexpr std::size_t bytes_to_recognise_an_entity = 5;

/// A comment ends before another byte: the byte after --> must be there.
constexpr std::size_t bytes_to_recognise_the_end_of_a_comment = 4;

}  // namespace

ustring8 stream_lexer::value() {
  skip_white_space();
  if (at_end()) throw xml_stream_parser::incomplete;
  if (!xml::is_quote(current())) throw xml_stream_parser::missing_quote;
  const auto quote = current() == '"' ? xml::double_quote : xml::single_quote;
  step();
  ustring8 value;
  expand_up_to(xml::markup | quote, value);
  if (current() == '<') throw xml_stream_parser::unexpected_character;
  step();
  return value;
}

ustring8 stream_lexer::text() {
  ustring8 text;
  expand_up_to(xml::markup, text);
  return text;
}

/// Stops on the first byte of one of these classes that does not begin an entity.
void stream_lexer::expand_up_to(unsigned int ending, ustring8& to) {
  for (;;) {
    const char* last = at_;
    for (const char* const end = end_; last != end && !xml::is_in(*last, ending); ++last) {
    }
    to.append(at_, last);
    at_ = last;
    if (at_end()) throw xml_stream_parser::incomplete;
    if (current() != '&') return;
    to.push_back(character());
  }
}

char stream_lexer::character() {
  if (left() < bytes_to_recognise_an_entity) throw xml_stream_parser::incomplete;
  return current(1) == '#' ? numbered_character() : named_character();
}

char stream_lexer::numbered_character() {
  const xml::character_reference reference(rest());
  if (reference.is_cut_off()) throw xml_stream_parser::incomplete;
  if (!reference.is_closed()) throw xml_stream_parser::unexpected_character;
  const char value = reference.value();
  at_ = reference.end_of_digits() + 1;
  return value;
}

char stream_lexer::named_character() {
  for (const auto& [text, value, letters] : xml::named_entities) {
    if (!rest().starts_with(letters)) continue;
    if (left() < text.size()) throw xml_stream_parser::incomplete;
    if (!rest().starts_with(text)) break;
    step(text.size());
    return value;
  }
  throw xml_stream_parser::unexpected_character;
}

bool stream_lexer::skip_comment() {
  for (; left() >= bytes_to_recognise_the_end_of_a_comment; step()) {
    if (current() == '\n') ++line_;
    if (current() != '-' || current(1) != '-') continue;
    if (current(2) != '>') throw xml_stream_parser::unexpected_character;
    step(3);
    return true;
  }
  return false;
}

}  // namespace ORVA_NAMESPACE::parser::_private
