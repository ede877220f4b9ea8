#include "orva/parser/xml_token_stream.hpp"

#include "orva/functor/member_function.hpp"
#include "orva/internal/xml/token_events.hpp"

namespace ORVA_NAMESPACE::parser {

xml_token_stream::xml_token_stream() {
  using text_handler = functor::member_function_t<xml_token_stream, void(const ustring8&)>;
  using attribute_handler =
      functor::member_function_t<xml_token_stream, void(const ustring8&, const ustring8&)>;

  parser_.on_element_start = text_handler(this, &xml_token_stream::on_element_start);
  parser_.on_element_end = text_handler(this, &xml_token_stream::on_element_end);
  parser_.on_attribute = attribute_handler(this, &xml_token_stream::on_attribute);
  parser_.on_character = text_handler(this, &xml_token_stream::on_character);
  parser_.on_space = text_handler(this, &xml_token_stream::on_space);
  parser_.on_comment = text_handler(this, &xml_token_stream::on_comment);
}

xml_token_stream::xml_token_stream(const xml_token_stream& other)
    : start_tag_closed_(other.start_tag_closed_), tokens_(other.tokens_, &memory_), parser_(other.parser_) {}

xml_token_stream& xml_token_stream::operator=(const xml_token_stream& other) {
  if (this == &other) return *this;
  start_tag_closed_ = other.start_tag_closed_;
  tokens_.clear();
  memory_.release();
  tokens_ = other.tokens_;
  parser_ = other.parser_;
  return *this;
}

xml_token_stream::~xml_token_stream() = default;

xml_parser::parse_error xml_token_stream::parse(const ustring8& text) {
  return parse(text.begin(), text.end());
}

xml_parser::parse_error xml_token_stream::parse(xml_parser::iterator first, xml_parser::iterator last) {
  start_tag_closed_ = true;
  return parser_.parse(first, last);
}

/// The rule for tokens, which writes to this list.
auto xml_token_stream::events() {
  const auto add = [this](token::token_type type, const ustring8& text) { tokens_.emplace_back(type, text); };
  return internal::xml::token_events<token, decltype(add)>(start_tag_closed_, add);
}

void xml_token_stream::on_element_start(const ustring8& name) { events().element_start(name); }
void xml_token_stream::on_element_end(const ustring8& name) { events().element_end(name); }
void xml_token_stream::on_space(const ustring8& text) { events().space(text); }
void xml_token_stream::on_character(const ustring8& text) { events().character(text); }
void xml_token_stream::on_comment(const ustring8& text) { events().comment(text); }
void xml_token_stream::on_attribute(const ustring8& name, const ustring8& value) {
  events().attribute(name, value);
}

}  // namespace ORVA_NAMESPACE::parser
