#include <cstdint>
#include <ostream>
#include <string>

#include "orva/diagnostics/internal/argument_text.hpp"
#include "orva/diagnostics/internal/not_kept.hpp"
#include "orva/diagnostics/write.hpp"
#include "orva/internal/text/visible_text.hpp"
#include "orva/internal/text/well_formed_utf8.hpp"

namespace ORVA_NAMESPACE::diagnostics {

namespace {

/// Control characters above 0x1F are escaped too, since a terminal may act on them.
void append_control(std::string& output, std::uint32_t code_point) {
  constexpr std::string_view figures = "0123456789abcdef";
  output += "\\u00";
  output += figures[code_point >> 4];
  output += figures[code_point & 15];
}

/// A string of JSON, as RFC 8259 defines it.
void append_string(std::string& output, std::string_view text) {
  constexpr std::string_view replacement = "\xEF\xBF\xBD";
  output += '"';
  while (!text.empty()) {
    const auto character = internal::text::decode_well_formed(text);
    if (character.code_point == '"' || character.code_point == '\\') output += '\\';
    if (internal::text::is_control(character.code_point)) {
      append_control(output, character.code_point);
    } else {
      output += character.well_formed ? text.substr(0, character.units) : replacement;
    }
    text.remove_prefix(character.units);
  }
  output += '"';
}

void append_name(std::string& output, std::string_view name) {
  if (output.back() != '{') output += ',';
  append_string(output, name);
  output += ':';
}

void append_member(std::string& output, std::string_view name, std::string_view text) {
  append_name(output, name);
  append_string(output, text);
}

void append_number(std::string& output, std::string_view name, std::size_t number) {
  if (number == 0) return;
  append_name(output, name);
  output += std::to_string(number);
}

void append_value(std::string& output, const types::variant& value) {
  const _private::argument_text shown = _private::text_of(value);
  switch (shown.kind) {
    case _private::argument_kind::nothing:
      output += "null";
      return;
    case _private::argument_kind::truth:
    case _private::argument_kind::number:
      output += shown.text;
      return;
    case _private::argument_kind::text:
      append_string(output, shown.text);
  }
}

void append_arguments(std::string& output, const generic::varg_list& arguments) {
  append_name(output, "arguments");
  output += '{';
  for (const generic::argument& argument : arguments) {
    if (!argument.has_name()) continue;
    append_name(output, argument.name());
    append_value(output, argument.value());
  }
  output += '}';
}

}  // namespace

void write_json(std::ostream& stream, const finding& found, const text_options& options) {
  std::string output = "{";
  append_member(output, "severity", name_of(found.level));
  append_member(output, "code", found.code);
  if (!found.file.empty()) append_member(output, "file", found.file);
  append_number(output, "line", found.at.line);
  append_number(output, "column", found.at.column);
  append_member(output, "text", options.sentence(found));
  append_arguments(output, found.arguments);
  output += "}\n";
  stream.write(output.data(), static_cast<std::streamsize>(output.size()));
}

void write_json(std::ostream& stream, const report& findings, const text_options& options) {
  for (const finding& found : findings.findings()) write_json(stream, found, options);
  if (const std::size_t count = findings.not_kept(); count != 0) {
    write_json(stream, _private::not_kept(count), options);
  }
}

}  // namespace ORVA_NAMESPACE::diagnostics
