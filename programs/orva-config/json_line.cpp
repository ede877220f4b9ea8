#include "json_line.hpp"

#include "orva/strings/well_formed.hpp"

namespace orva_config {

namespace {

/// `text` is well-formed.
void append_escaped(std::string& output, std::string_view text) {
  constexpr std::string_view figures = "0123456789abcdef";
  for (const char unit : text) {
    const auto value = static_cast<unsigned char>(unit);
    if (value < 0x20 || value == 0x7F) {
      output += "\\u00";
      output += figures[value >> 4];
      output += figures[value & 15];
      continue;
    }
    if (unit == '"' || unit == '\\') output += '\\';
    output += unit;
  }
}

}  // namespace

void json_line::append(std::string_view text) {
  text_ += '"';
  while (const auto bad = orva::strings::first_malformed(text)) {
    append_escaped(text_, text.substr(0, bad->offset));
    text_ += "\xEF\xBF\xBD";
    text.remove_prefix(bad->offset + bad->length);
  }
  append_escaped(text_, text);
  text_ += '"';
}

void json_line::add_name(std::string_view name) {
  if (text_.size() > 1) text_ += ',';
  append(name);
  text_ += ':';
}

json_line& json_line::add(std::string_view name, std::string_view text) {
  add_name(name);
  append(text);
  return *this;
}

json_line& json_line::add(std::string_view name, const std::vector<orva::strings::ustring8>& texts) {
  add_name(name);
  text_ += '[';
  for (const auto& each : texts) {
    if (text_.back() != '[') text_ += ',';
    append(each);
  }
  text_ += ']';
  return *this;
}

json_line& json_line::add(std::string_view name, std::size_t number) {
  add_name(name);
  text_ += std::to_string(number);
  return *this;
}

json_line& json_line::add_truth(std::string_view name, bool truth) {
  add_name(name);
  text_ += truth ? "true" : "false";
  return *this;
}

}  // namespace orva_config
