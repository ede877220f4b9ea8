/// `describe`: what is wrong with a document, in words, with line and column.
///
///     const auto error = parser.parse(text);
///     if (error.type != xml_parser::parse_error::no_error) std::cerr << describe(error, text, "menu.xml");
///         =>  menu.xml:4:3: error: The end tag </menu> does not match <entry>, which is open.
///             [xml.mismatched_end_element]
///
///     feed.parse();
///     if (feed.error() > xml_stream_parser::end_of_document) std::cerr << describe(feed, "planet.osm");
///
/// The codes are "xml." and the name of an error of `xml_parser`, where one name says enough; the others are
/// in docs/diagnostic_codes.md. Errors of `xml_stream_parser` that mean the same have the same codes.
///
/// `file` is the name that the user knows, and only passed on. Without an error, the result is a note without
/// a code.
#pragma once

#include <cstddef>
#include <string_view>

#include "orva/diagnostics/finding.hpp"
#include "orva/exceptions/exception.hpp"
#include "orva/export.hpp"
#include "orva/parser/xml_parser.hpp"
#include "orva/parser/xml_stream_parser.hpp"

namespace ORVA_NAMESPACE::parser {

/// `text` is what was parsed, by `xml_parser` or `xml_token_stream`. It is read up to the place of the error.
[[nodiscard]] ORVA_API diagnostics::finding describe(const xml_parser::parse_error& error,
                                                     std::string_view text, std::string_view file = {});

/// A character reference above 255, for which `parse` throws. `offset` is that of the parser.
[[nodiscard]] ORVA_API diagnostics::finding describe(const exceptions::overflow_error& thrown,
                                                     std::size_t offset, std::string_view text,
                                                     std::string_view file = {});

/// What stopped the parser last. Reads the file as `xml_stream_parser::place_of` does; that is once in all,
/// however many errors there are.
[[nodiscard]] ORVA_API diagnostics::finding describe(const xml_stream_parser& parser,
                                                     std::string_view file = {});

}  // namespace ORVA_NAMESPACE::parser
