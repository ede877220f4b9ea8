#include "orva/parser/xml_parser.hpp"

#include <memory>
#include <string_view>

#include "orva/parser/xml_scanner.hpp"

namespace ORVA_2_18::parser {

/// One walk over a document: the scanners, and what they find told to the parser's delegates.
class xml_parser::walk : public _private::xml_scanner {
 public:
  walk(const xml_parser& parser, const char* first, const char* last)
      : xml_scanner(first, last, parser.line_),
        parser_(parser),
        open_(parser.open_elements_),
        seen_attributes_(parser.seen_attributes_) {}

  parse_error document() {
    try {
      skip_byte_order_mark();
      header();
      while (!at_end()) construct();
    } catch (const parse_error& error) {
      return error;
    }
    return {open_.empty() ? parse_error::no_error : parse_error::unexpected_eof, 0, {}};
  }

 private:
  /// Whatever the three bytes are: only what follows them is looked at.
  void skip_byte_order_mark() {
    if (rest().size() >= 4 && rest()[3] == '<') step(3);
  }

  void header() {
    constexpr std::string_view opener = "<?xml";
    if (!starts_with(opener)) fail(parse_error::bad_header);
    step(opener.size());
    while (!starts_with("?>")) {
      if (at_end()) fail(parse_error::no_root_element);
      if (current() == '<' || current() == '>') fail(parse_error::bad_header);
      step();
    }
    step(2);
    white_space();
    if (at_end()) fail(parse_error::no_root_element);
  }

  void construct() {
    const auto space = white_space();
    if (!space.empty() && !in_tag_) tell(parser_.on_space, space);
    if (at_end()) return;
    if (current() == '<') return markup();
    if (current() == '>') return end_of_tag();
    if (!in_tag_) return text();
    if (current() == '/') return end_of_empty_element();
    attribute();
  }

  void markup() {
    if (in_tag_) fail_at(position());
    in_tag_ = true;
    if (starts_with("</")) return end_tag();
    if (starts_with("<!--")) return section(4, "-->", parser_.on_comment);
    if (starts_with("<![CDATA[")) return section(9, "]]>", parser_.on_character);
    start_tag();
  }

  /// The closing > is left to `end_of_tag`, so that white space may stand before it.
  void end_tag() {
    step(2);
    const auto closed = name();
    if (open_.empty() || open_.back() != closed) fail(parse_error::mismatched_end_element, closed);
    open_.pop_back();
    if (at_end()) fail(parse_error::unexpected_eof);
    tell(parser_.on_element_end, closed);
  }

  /// A comment or a CDATA section: whatever stands between an opener of that length and the closer.
  void section(std::size_t opener, std::string_view closer, const text_delegate& delegate) {
    const auto inner = rest().substr(opener);
    const auto length = inner.find(closer);
    if (length == inner.npos) fail(parse_error::unexpected_eof);
    step(opener + length + closer.size());
    in_tag_ = false;
    tell(delegate, inner.substr(0, length));
  }

  void start_tag() {
    if (open_.empty() && root_seen_) fail(parse_error::data_after_root);
    step();
    const auto opened = name();
    open_.push_back(opened);
    seen_attributes_.clear();
    tell(parser_.on_element_start, opened);
    root_seen_ = true;
  }

  void end_of_tag() {
    if (!in_tag_) fail_at(position());
    in_tag_ = false;
    step();
  }

  void end_of_empty_element() {
    step();
    if (at_end() || current() != '>') fail_at(position());
    if (open_.empty()) fail(parse_error::mismatched_end_element);
    tell(parser_.on_element_end, open_.back());
    in_tag_ = false;
    open_.pop_back();
    seen_attributes_.clear();
    step();
  }

  /// A value that the end of the text cuts off is delivered before it fails.
  void attribute() {
    name_ = name();
    if (!seen_attributes_.insert(name_)) fail(parse_error::attribute_redefined, name_);
    white_space();
    if (at_end() || current() != '=') fail(parse_error::missing_equals, name_);
    step();
    white_space();
    attribute_value(text_);
    if (parser_.on_attribute) parser_.on_attribute(name_, text_);
    if (at_end()) fail(parse_error::missing_quote, name_);
    step();
  }

  void text() {
    text_run(text_);
    if (parser_.on_character) parser_.on_character(text_);
  }

  void tell(const text_delegate& delegate, std::string_view text) {
    if (!delegate) return;
    text_.assign(text);
    delegate(text_);
  }

  const xml_parser& parser_;
  _private::name_list& open_;
  _private::name_set& seen_attributes_;
  bool in_tag_ = false;
  bool root_seen_ = false;
  // Filled anew for each event, so that an event costs no allocation once they have grown.
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
  walk document(*this, first, std::to_address(end));
  parse_error result = document.document();
  it += document.position() - first;
  return result;
}

xml_parser::ustring8 xml_parser::parse_name(iterator& it, iterator& end) const {
  auto name = take(it, end, line_, [](auto& scanner, ustring8& taken) { taken = scanner.name(); });
  --it;
  return name;
}

xml_parser::ustring8 xml_parser::parse_attrib_value(iterator& it, iterator& end) const {
  return take(it, end, line_, [](auto& scanner, ustring8& taken) { scanner.attribute_value(taken); });
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

}  // namespace ORVA_2_18::parser
