#include "orva/parser/xml_parser.hpp"

#include <memory>
#include <ostream>
#include <string_view>
#include <utility>

#include "orva/internal/xml/failure.hpp"
#include "orva/internal/xml/lexical_rules.hpp"
#include "orva/internal/xml/scanner.hpp"
#include "orva/internal/xml/walk.hpp"
#include "orva/parser/internal/parse_error_output.hpp"

namespace ORVA_NAMESPACE::parser {

namespace xml = internal::xml;

/// Passes the events of a walk to the parser's delegates. The text of an event is a copy, which costs no
/// allocation once the strings have grown.
class xml_parser::delegate_events {
 public:
  explicit delegate_events(const xml_parser& parser) : parser_(parser) {}

  void element_start(std::string_view name) { call(parser_.on_element_start, name); }
  void element_end(std::string_view name) { call(parser_.on_element_end, name); }
  void character(std::string_view text) { call(parser_.on_character, text); }
  void space(std::string_view text) { call(parser_.on_space, text); }
  void comment(std::string_view text) { call(parser_.on_comment, text); }

  void attribute(std::string_view name, std::string_view value) {
    if (!parser_.on_attribute) return;
    name_.assign(name);
    text_.assign(value);
    parser_.on_attribute(name_, text_);
  }

 private:
  void call(const text_delegate& delegate, std::string_view text) {
    if (!delegate) return;
    text_.assign(text);
    delegate(text_);
  }

  const xml_parser& parser_;
  ustring8 name_;
  ustring8 text_;
};

namespace {

using parse_error = xml_parser::parse_error;

static_assert(int{parse_error::no_error} == xml::failure::no_error);
static_assert(int{parse_error::unexpected_eof} == xml::failure::unexpected_eof);
static_assert(int{parse_error::mismatched_end_element} == xml::failure::mismatched_end_element);
static_assert(int{parse_error::no_root_element} == xml::failure::no_root_element);
static_assert(int{parse_error::bad_header} == xml::failure::bad_header);
static_assert(int{parse_error::unexpected_character} == xml::failure::unexpected_character);
static_assert(int{parse_error::missing_quote} == xml::failure::missing_quote);
static_assert(int{parse_error::unknown_entity} == xml::failure::unknown_entity);
static_assert(int{parse_error::missing_equals} == xml::failure::missing_equals);
static_assert(int{parse_error::attribute_redefined} == xml::failure::attribute_redefined);
static_assert(int{parse_error::data_after_root} == xml::failure::data_after_root);

/// The name of the innermost open element, if there is one. Not inlined, because `do_parse` has the whole
/// walk inlined, and GCC would take parts of the walk out again.
[[gnu::noinline]] strings::ustring8 innermost(const xml::name_list& open) {
  return open.empty() ? strings::ustring8() : open.back();
}

/// Lets `scan` read a construct at `it`, and moves `it` to its end.
template <typename Scan>
strings::ustring8 take(xml_parser::iterator& it, xml_parser::iterator end, types::uint32& line, Scan scan) {
  const char* const first = std::to_address(it);
  xml::document_scanner scanner(first, std::to_address(end), line);
  strings::ustring8 taken;
  try {
    scan(scanner, taken);
  } catch (xml::failure& found) {
    throw std::move(found).as<parse_error>(first);
  }
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
  xml::document_walk walk(first, std::to_address(end), line_, open_elements_, seen_attributes_, events);
  offset_ = 0;
  try {
    parse_error result = walk.document().as<parse_error>(first);
    result.open_element = innermost(open_elements_);
    it += walk.position() - first;
    offset_ = result.offset;
    return result;
  } catch (...) {
    offset_ = static_cast<std::size_t>(walk.position() - first);
    throw;
  }
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

bool xml_parser::is_white_space(const iterator& it) const { return xml::is_white_space(*it); }

std::string_view name_of(parse_error::error_type type) noexcept {
  switch (type) {
    case parse_error::no_error:
      return "no_error";
    case parse_error::unexpected_eof:
      return "unexpected_eof";
    case parse_error::mismatched_end_element:
      return "mismatched_end_element";
    case parse_error::no_root_element:
      return "no_root_element";
    case parse_error::bad_header:
      return "bad_header";
    case parse_error::unexpected_character:
      return "unexpected_character";
    case parse_error::missing_quote:
      return "missing_quote";
    case parse_error::unknown_entity:
      return "unknown_entity";
    case parse_error::missing_equals:
      return "missing_equals";
    case parse_error::attribute_redefined:
      return "attribute_redefined";
    case parse_error::data_after_root:
      return "data_after_root";
  }
  return {};
}

std::ostream& operator<<(std::ostream& stream, const parse_error& error) {
  if (error.type == parse_error::no_error) return stream << name_of(error.type);
  return _private::write_error(stream, name_of(error.type), static_cast<long long>(error.offset), error.data,
                               error.open_element);
}

}  // namespace ORVA_NAMESPACE::parser
