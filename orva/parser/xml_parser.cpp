#include "orva/parser/xml_parser.hpp"

#include <memory>
#include <string_view>

#include "orva/internal/xml/scanner.hpp"
#include "orva/internal/xml/walk.hpp"

namespace ORVA_NAMESPACE::parser {

/// What a walk finds, told to the parser's delegates. The text of an event is a copy, which costs no
/// allocation once the strings have grown.
class xml_parser::delegate_events {
 public:
  explicit delegate_events(const xml_parser& parser) : parser_(parser) {}

  void element_start(std::string_view name) { tell(parser_.on_element_start, name); }
  void element_end(std::string_view name) { tell(parser_.on_element_end, name); }
  void character(std::string_view text) { tell(parser_.on_character, text); }
  void space(std::string_view text) { tell(parser_.on_space, text); }
  void comment(std::string_view text) { tell(parser_.on_comment, text); }

  void attribute(std::string_view name, std::string_view value) {
    if (!parser_.on_attribute) return;
    name_.assign(name);
    text_.assign(value);
    parser_.on_attribute(name_, text_);
  }

 private:
  void tell(const text_delegate& delegate, std::string_view text) {
    if (!delegate) return;
    text_.assign(text);
    delegate(text_);
  }

  const xml_parser& parser_;
  ustring8 name_;
  ustring8 text_;
};

namespace {

/// Lets `scan` take what stands at `it`, and moves `it` behind it.
template <typename Scan>
strings::ustring8 take(xml_parser::iterator& it, xml_parser::iterator end, types::uint32& line, Scan scan) {
  const char* const first = std::to_address(it);
  _private::xml_scanner scanner(first, std::to_address(end), line);
  strings::ustring8 taken;
  scan(scanner, taken);
  it += scanner.position() - first;
  return taken;
}

}  // namespace

xml_parser::xml_parser() = default;
xml_parser::xml_parser(const xml_parser& other) = default;
xml_parser& xml_parser::operator=(const xml_parser& other) = default;
xml_parser::~xml_parser() = default;

xml_parser::parse_error xml_parser::parse(const ustring8& text) const {
  return parse(text.begin(), text.end());
}

xml_parser::parse_error xml_parser::parse(iterator first, iterator last) const {
  return do_parse(first, last);
}

xml_parser::parse_error xml_parser::do_parse(iterator& it, iterator& end) const {
  line_ = 0;
  const char* const first = std::to_address(it);
  delegate_events events(*this);
  _private::xml_walk walk(first, std::to_address(end), line_, open_elements_, seen_attributes_, events);
  parse_error result = walk.document();
  it += walk.position() - first;
  return result;
}

xml_parser::ustring8 xml_parser::parse_name(iterator& it, iterator& end) const {
  auto name = take(it, end, line_, [](auto& scanner, ustring8& taken) { taken = scanner.name(); });
  --it;
  return name;
}

xml_parser::ustring8 xml_parser::parse_attrib_value(iterator& it, iterator& end) const {
  return take(it, end, line_, [](auto& scanner, ustring8& taken) {
    ustring8 expanded;
    taken = scanner.attribute_value(expanded);
  });
}

xml_parser::ustring8 xml_parser::parse_character(iterator& it, iterator& end) const {
  auto character = take(it, end, line_, [](auto& scanner, ustring8& taken) { taken = scanner.character(); });
  --it;
  return character;
}

xml_parser::ustring8 xml_parser::parse_whitespace(iterator& it, iterator& end) const {
  return take(it, end, line_, [](auto& scanner, ustring8& taken) { taken = scanner.white_space(); });
}

bool xml_parser::is_white_space(const iterator& it) const {
  return _private::xml_scanner::is_white_space(*it);
}

}  // namespace ORVA_NAMESPACE::parser
