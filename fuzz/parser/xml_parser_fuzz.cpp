// Any bytes through xml_parser, compared with the plain reference parser, twice with one object, so that the
// names that a failed parse leaves open are compared too; where each parse stopped, and in which element; and
// through xml_token_stream, whose tokens must follow the events.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

#include "fuzz/require.hpp"
#include "orva/exceptions/exception.hpp"
#include "orva/parser/xml_parser.hpp"
#include "orva/parser/xml_token_stream.hpp"
#include "tests/support/reference_xml.hpp"
#include "tests/support/xml_events.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_token_stream;
using token = xml_token_stream::token;
using orva_fuzz::require;
using orva_test::xml_outcome;

void require_equal(const xml_outcome& actual, const xml_outcome& expected, const char* what) {
  if (actual == expected) return;
  std::cerr << what << "\nthe parser:\n" << actual << "\nthe reference:\n" << expected << std::endl;
  std::abort();
}

/// The event that a token was made of; none for a marker.
std::string event_of(const token& from, const std::string& attribute_name) {
  static constexpr const char* kinds[] = {"start ", "end ", "", "", "", "comment ", "space ", "character "};
  if (from.type() == token::attribute_value) return "attribute " + attribute_name + '=' + from.value();
  return kinds[from.type()] + from.value();
}

void require_tokens_follow_events(const xml_token_stream& stream, const xml_outcome& outcome) {
  auto event = outcome.events.begin();
  bool start_tag_open = false;
  std::string attribute_name;
  for (const auto& each : stream) {
    switch (each.type()) {
      case token::attribute_name:
        attribute_name = each.value();
        continue;
      case token::start_tag_end:
        require(start_tag_open && each.value().empty(), "a marker without a start tag");
        start_tag_open = false;
        continue;
      case token::attribute_value:
      case token::comment:
        break;
      default:
        require(!start_tag_open, "no marker after a start tag");
        start_tag_open = each.type() == token::element_start;
    }
    require(event != outcome.events.end() && *event == event_of(each, attribute_name), "a token is no event");
    ++event;
  }
  require(event == outcome.events.end(), "an event gave no token");
}

void check_tokens(const std::string& text, const xml_outcome& outcome) {
  xml_token_stream stream;
  try {
    const auto error = stream.parse(text.begin(), text.end());
    require(!outcome.overflowed && error.type == outcome.type && error.line == outcome.line &&
                error.data == outcome.data,
            "the token stream ends otherwise than its parser");
  } catch (const ORVA_NAMESPACE::exceptions::overflow_error&) {
    require(outcome.overflowed, "the token stream throws and its parser does not");
  }
  require_tokens_follow_events(stream, outcome);
}

void check_place(const std::string& text, const orva_test::reference_xml& reference) {
  const ORVA_NAMESPACE::parser::xml_parser parser;
  try {
    const auto error = parser.parse(text);
    require(error.offset == parser.offset(), "the parser and its error have two places");
    require(error.open_element == reference.open_element(), "another element is open");
  } catch (const ORVA_NAMESPACE::exceptions::overflow_error&) {
  }
  require(parser.offset() <= text.size(), "the place is not in the text");
  require(parser.offset() == reference.offset(), "the parse stopped elsewhere");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  for (const std::string& text : {bytes, "<?xml?>" + bytes}) {
    ORVA_NAMESPACE::parser::xml_parser parser;
    orva_test::reference_xml reference;
    const auto outcome = reference.parse(text);
    require_equal(orva_test::parse_with(parser, text), outcome, "first parse");
    check_place(text, reference);
    require_equal(orva_test::parse_with(parser, text), reference.parse(text), "second parse");
    check_tokens(text, outcome);
  }
  return 0;
}
