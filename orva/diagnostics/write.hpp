/// Findings as text for people and as JSON for programs.
///
///     text_options options;
///     options.colour = shows_colour(std::cerr);
///     options.source = [&](const auto& file) { return file == "a.xml" ? std::string_view(text) : ""; };
///     write_text(std::cerr, found, options);
///
///     a.xml:3:12: error: The attribute width has no = after its name. [xml.missing_equals]
///         3 | <img x="1" width "7"/>
///           |            ^
///
///     write_json(std::cout, found);
///
///     {"severity":"error","code":"xml.missing_equals","file":"a.xml","line":3,"column":12,
///      "text":"The attribute width has no = after its name.","arguments":{"name":"width"}}
///
/// Each call writes whole lines; the JSON of a finding is one line. Text is UTF-8. What a finding or a source
/// has from outside cannot harm the terminal: see `operator<<`. A stream that fails shows it by its state.
#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string_view>

#include "orva/diagnostics/finding.hpp"
#include "orva/diagnostics/report.hpp"
#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::diagnostics {

struct text_options {
  /// With the colours of ECMA-48, which all terminals know.
  bool colour = false;
  /// The text of a finding. Bind `i18n::describe` for the user's language.
  std::function<strings::ustring8(const finding&)> sentence = diagnostics::sentence;
  /// The text of a file, to show the line of a finding; empty if it is not at hand. The view is used until
  /// the next call or the end of the writing.
  std::function<std::string_view(const strings::ustring8& file)> source;
};

/// A source line is shown up to this many columns of the terminal, around the place of the finding.
inline constexpr std::size_t max_source_columns = 100;
/// A source line with more bytes is not shown.
inline constexpr std::size_t max_source_line = 16384;

ORVA_API void write_text(std::ostream& stream, const finding& found, const text_options& options = {});
/// All findings, and how many more there were.
ORVA_API void write_text(std::ostream& stream, const report& findings, const text_options& options = {});

/// Parts that a finding does not have are left out. Integers and finite floating values are JSON's numbers,
/// `bool` is true or false, nil is null, all others are texts. Malformed bytes become U+FFFD.
ORVA_API void write_json(std::ostream& stream, const finding& found, const text_options& options = {});
/// One line for each finding.
ORVA_API void write_json(std::ostream& stream, const report& findings, const text_options& options = {});

/// Whether the stream writes to a terminal that knows colours: it has the buffer of `std::cout`, `std::cerr`
/// or `std::clog`, and that output of the process is such a terminal. On Windows the console is asked to take
/// colours. A program that gives one of these streams another buffer decides itself.
[[nodiscard]] ORVA_API bool shows_colour(const std::ostream& stream);

}  // namespace ORVA_NAMESPACE::diagnostics
