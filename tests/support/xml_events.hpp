/// What a parse of XML delivers, in a form that tests can compare and print.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "orva/exceptions/exception.hpp"
#include "orva/functor/member_function.hpp"
#include "orva/parser/xml_parser.hpp"

namespace orva_test {

/// The events in their order, each as its kind and its text: `start a`, `attribute b=1`; then how the parse
/// ended.
struct xml_outcome {
  using error_type = ORVA_NAMESPACE::parser::xml_parser::parse_error::error_type;

  std::vector<std::string> events;
  error_type type = ORVA_NAMESPACE::parser::xml_parser::parse_error::no_error;
  unsigned long line = 0;
  std::string data;
  /// A character reference was out of range, and the parse threw.
  bool overflowed = false;

  friend bool operator==(const xml_outcome&, const xml_outcome&) = default;

  friend std::ostream& operator<<(std::ostream& out, const xml_outcome& outcome) {
    for (const auto& event : outcome.events) out << "  " << event << '\n';
    if (outcome.overflowed) return out << "  overflow";
    return out << "  error " << outcome.type << " line " << outcome.line << " data '" << outcome.data << '\'';
  }
};

/// Records the events of a parser that it is connected to. It must not be moved while it is connected.
class xml_recorder {
 public:
  using ustring8 = ORVA_NAMESPACE::strings::ustring8;

  void connect(ORVA_NAMESPACE::parser::xml_parser& parser) {
    parser.on_element_start = text_handler(this, &xml_recorder::start);
    parser.on_element_end = text_handler(this, &xml_recorder::end);
    parser.on_attribute = attribute_handler(this, &xml_recorder::attribute);
    parser.on_character = text_handler(this, &xml_recorder::character);
    parser.on_space = text_handler(this, &xml_recorder::space);
    parser.on_comment = text_handler(this, &xml_recorder::comment);
  }

  std::vector<std::string> events;

 private:
  using text_handler = ORVA_NAMESPACE::functor::member_function_t<xml_recorder, void(const ustring8&)>;
  using attribute_handler =
      ORVA_NAMESPACE::functor::member_function_t<xml_recorder, void(const ustring8&, const ustring8&)>;

  void start(const ustring8& name) { events.push_back("start " + name); }
  void end(const ustring8& name) { events.push_back("end " + name); }
  void attribute(const ustring8& name, const ustring8& value) {
    events.push_back("attribute " + name + "=" + value);
  }
  void character(const ustring8& text) { events.push_back("character " + text); }
  void space(const ustring8& text) { events.push_back("space " + text); }
  void comment(const ustring8& text) { events.push_back("comment " + text); }
};

/// Parses the first `length` bytes with a parser that is already there, whose delegates this sets.
inline xml_outcome parse_with(ORVA_NAMESPACE::parser::xml_parser& parser, const std::string& text,
                              std::size_t length) {
  xml_recorder recorder;
  recorder.connect(parser);
  xml_outcome outcome;
  try {
    const auto error = parser.parse(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length));
    outcome.type = error.type;
    outcome.line = error.line;
    outcome.data = error.data;
  } catch (const ORVA_NAMESPACE::exceptions::overflow_error&) {
    outcome.overflowed = true;
  }
  outcome.events = recorder.events;
  return outcome;
}

inline xml_outcome parse_with(ORVA_NAMESPACE::parser::xml_parser& parser, const std::string& text) {
  return parse_with(parser, text, text.size());
}

inline xml_outcome parse_xml(const std::string& text) {
  ORVA_NAMESPACE::parser::xml_parser parser;
  return parse_with(parser, text);
}

}  // namespace orva_test
