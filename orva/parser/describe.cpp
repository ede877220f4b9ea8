#include "orva/parser/describe.hpp"

#include <algorithm>
#include <exception>
#include <string>

#include "orva/internal/text/hexadecimal.hpp"
#include "orva/internal/text/well_formed_utf8.hpp"

namespace ORVA_NAMESPACE::parser {

namespace {

using diagnostics::finding;
using internal::text::hexadecimal;
using strings::ustring8;

/// A code with its arguments; the place and the file are added later.
template <typename... Arguments>
finding error_of(const char* code, const Arguments&... arguments) {
  return {diagnostics::severity::error, code, {}, {}, {arguments...}};
}

generic::argument named(const char* name, std::string_view value) { return {name, ustring8(value)}; }

/// The first character of a text, in a form that people can see.
std::string shown_character(std::string_view text) {
  const auto character = internal::text::decode_well_formed(text);
  if (!character.well_formed) return hexadecimal("0x", static_cast<unsigned char>(text.front()), 2);
  const bool is_blank =
      character.code_point <= ' ' || (character.code_point >= 0x7F && character.code_point <= 0xA0);
  if (is_blank) return hexadecimal("U+", character.code_point, 4);
  return std::string(text.substr(0, character.units));
}

finding mismatched(std::string_view found, std::string_view open) {
  if (open.empty()) return error_of("xml.end_without_start");
  return error_of("xml.mismatched_end_element", named("found", found), named("expected", open));
}

/// `from_there` is the text from the place of the error on.
finding described(const xml_parser::parse_error& error, std::string_view from_there) {
  using enum xml_parser::parse_error::error_type;
  switch (error.type) {
    case no_error:
      return {diagnostics::severity::note, {}, {}, {}, {}};
    case unexpected_eof:
      if (!from_there.empty() || error.open_element.empty()) return error_of("xml.unexpected_eof");
      return error_of("xml.unclosed_element", named("name", error.open_element));
    case mismatched_end_element:
      return mismatched(error.data, error.open_element);
    case no_root_element:
      return error_of("xml.no_root_element");
    case bad_header:
      return error_of("xml.bad_header");
    case unexpected_character:
      if (from_there.empty()) return error_of("xml.unexpected_eof");
      return error_of("xml.unexpected_character", named("character", shown_character(from_there)));
    case missing_quote:
      if (!error.data.empty()) return error_of("xml.unclosed_value", named("name", error.data));
      return error_of("xml.missing_quote");
    case unknown_entity:
      return error_of("xml.unknown_entity");
    case missing_equals:
      return error_of("xml.missing_equals", named("name", error.data));
    case attribute_redefined:
      return error_of("xml.attribute_redefined", named("name", error.data));
    case data_after_root:
      return error_of("xml.data_after_root");
  }
  return error_of("xml.unexpected_eof");
}

finding described(const std::exception_ptr& cause) {
  try {
    std::rethrow_exception(cause);
  } catch (const exceptions::overflow_error&) {
    return error_of("xml.reference_above_255");
  } catch (const std::exception& thrown) {
    return error_of("xml.reading_failed", named("reason", thrown.what()));
  } catch (...) {
    return error_of("xml.reading_failed", named("reason", "?"));
  }
}

finding described_incomplete(const xml_stream_parser& parser) {
  const long long length = parser.file_length();
  if (length >= xml_stream_parser::smallest_file || length < 0) return error_of("xml.incomplete");
  return error_of("xml.file_too_short", generic::argument("smallest", xml_stream_parser::smallest_file));
}

finding described(const xml_stream_parser& parser, const xml_stream_parser::parse_error& error) {
  switch (error.type) {
    case xml_stream_parser::no_error:
    case xml_stream_parser::end_of_document:
      return {diagnostics::severity::note, {}, {}, {}, {}};
    case xml_stream_parser::incomplete:
      return described_incomplete(parser);
    case xml_stream_parser::not_synchronized:
      return error_of("xml.not_synchronized");
    case xml_stream_parser::mismatched_tag:
      return mismatched(error.data, error.open_element);
    case xml_stream_parser::duplicate_attribute:
      return error_of("xml.attribute_redefined", named("name", error.data));
    case xml_stream_parser::unexpected_character:
      if (error.data == "&") return error_of("xml.unknown_entity");
      return error_of("xml.unexpected_character", named("character", shown_character(error.data)));
    case xml_stream_parser::missing_quote:
      return error_of("xml.missing_quote");
    case xml_stream_parser::missing_equals:
      return error_of("xml.missing_equals", named("name", error.data));
    case xml_stream_parser::fatal_error:
      return parser.cause() == nullptr ? error_of("xml.fatal_error") : described(parser.cause());
    case xml_stream_parser::cannot_open_file:
      return error_of("xml.cannot_open_file");
    case xml_stream_parser::bad_header:
      return error_of("xml.bad_header");
  }
  return error_of("xml.fatal_error");
}

finding with_place(finding found, std::string_view file, diagnostics::place at) {
  found.file = ustring8(file);
  found.at = at;
  return found;
}

}  // namespace

finding describe(const xml_parser::parse_error& error, std::string_view text, std::string_view file) {
  const std::size_t offset = std::min(error.offset, text.size());
  return with_place(described(error, text.substr(offset)), file, diagnostics::place_of(text, offset));
}

finding describe(const exceptions::overflow_error&, std::size_t offset, std::string_view text,
                 std::string_view file) {
  return with_place(error_of("xml.reference_above_255"), file, diagnostics::place_of(text, offset));
}

finding describe(const xml_stream_parser& parser, std::string_view file) {
  const auto error = parser.last_error();
  return with_place(described(parser, error), file, parser.place_of(error.offset));
}

}  // namespace ORVA_NAMESPACE::parser
