#include <algorithm>
#include <array>
#include <ostream>
#include <string>

#include "orva/config/explain.hpp"
#include "orva/internal/text/display_width.hpp"
#include "orva/internal/text/json_string.hpp"
#include "orva/internal/text/visible_text.hpp"
#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::config {

namespace {

constexpr std::size_t column_count = 4;
using table_row = std::array<std::string, column_count>;

std::string visible(std::string_view text) {
  std::string shown;
  internal::text::append_visible(shown, text);
  return shown;
}

std::string shown_value(const explained_step& step) {
  if (step.kind == node_kind::array) return std::to_string(step.elements) + " elements";
  if (step.kind == node_kind::section) return "section";
  return visible(step.value.as_string());
}

table_row row_of(const explained_step& step) {
  return {visible(step.key), visible(describe(step.origin)), shown_value(step),
          std::string(name_of(step.result))};
}

void append_row(std::string& output, const table_row& row,
                const std::array<std::size_t, column_count>& widths) {
  for (std::size_t i = 0; i < column_count; ++i) {
    output += row[i];
    const bool is_last = i + 1 == column_count;
    if (!is_last) output.append(widths[i] - internal::text::display_width(row[i]) + 2, ' ');
  }
  output += '\n';
}

void append_name(std::string& output, std::string_view name) {
  if (output.back() != '{') output += ',';
  internal::text::append_json_string(output, name);
  output += ':';
}

void append_text(std::string& output, std::string_view name, std::string_view text) {
  append_name(output, name);
  internal::text::append_json_string(output, text);
}

void append_number(std::string& output, std::string_view name, std::size_t number) {
  append_name(output, name);
  output += std::to_string(number);
}

void append_origin(std::string& output, const value_origin& origin) {
  append_text(output, "source", name_of(origin.kind));
  if (!origin.source.empty()) append_text(output, "id", origin.source);
  if (!origin.name.empty()) append_text(output, "name", origin.name);
  // Argument 0 is the name of the program, the origin of a few keys.
  if (origin.kind == origin_kind::argument && !origin.name.empty())
    append_number(output, "argument", origin.argument);
  if (origin.at.line == 0) return;
  append_number(output, "line", origin.at.line);
  append_number(output, "column", origin.at.column);
}

void append_step(std::string& output, const explained_step& step) {
  output += '{';
  append_text(output, "key", step.key);
  append_origin(output, step.origin);
  append_text(output, "kind", name_of(step.kind));
  if (step.kind == node_kind::array) {
    append_number(output, "elements", step.elements);
  } else if (step.value == types::nil) {
    append_name(output, "value");
    output += "null";
  } else if (step.kind != node_kind::section) {
    append_text(output, "value", step.value.as_string());
  }
  append_text(output, "result", name_of(step.result));
  output += "}\n";
}

void write(std::ostream& stream, const std::string& output) {
  stream.write(output.data(), static_cast<std::streamsize>(output.size()));
}

}  // namespace

std::string_view name_of(origin_kind kind) noexcept {
  constexpr std::string_view names[] = {"default", "argument", "file", "variable", "program", "other"};
  return names[static_cast<std::size_t>(kind)];
}

std::string_view name_of(node_kind kind) noexcept {
  constexpr std::string_view names[] = {"none", "value", "link", "array", "section"};
  return names[static_cast<std::size_t>(kind)];
}

std::string_view name_of(step_result result) noexcept {
  constexpr std::string_view names[] = {"used",          "hidden",        "followed",
                                        "closes circle", "first element", "default"};
  return names[static_cast<std::size_t>(result)];
}

void write_text(std::ostream& stream, const explanation& explained) {
  std::vector<table_row> rows = {{"key", "source", "value", "result"}};
  for (const explained_step& step : explained.steps) rows.push_back(row_of(step));
  std::array<std::size_t, column_count> widths{};
  for (const table_row& row : rows)
    for (std::size_t i = 0; i < column_count; ++i)
      widths[i] = std::max(widths[i], internal::text::display_width(row[i]));
  std::string output;
  for (const table_row& row : rows) append_row(output, row, widths);
  write(stream, output);
}

void write_json(std::ostream& stream, const explanation& explained) {
  std::string output;
  for (const explained_step& step : explained.steps) append_step(output, step);
  write(stream, output);
}

}  // namespace ORVA_NAMESPACE::config
