#include <ostream>
#include <string>

#include "orva/diagnostics/internal/argument_text.hpp"
#include "orva/diagnostics/internal/not_kept.hpp"
#include "orva/diagnostics/write.hpp"
#include "orva/internal/text/json_string.hpp"

namespace ORVA_NAMESPACE::diagnostics {

namespace {

using internal::text::append_json_string;

void append_name(std::string& output, std::string_view name) {
  if (output.back() != '{') output += ',';
  append_json_string(output, name);
  output += ':';
}

void append_member(std::string& output, std::string_view name, std::string_view text) {
  append_name(output, name);
  append_json_string(output, text);
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
      append_json_string(output, shown.text);
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
