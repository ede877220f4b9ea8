#include "orva/parser/internal/parse_error_output.hpp"

#include <ostream>
#include <string>

namespace ORVA_NAMESPACE::parser::_private {

namespace {

/// The bytes are of a document that may come from anywhere, and of any part of a character.
std::string quoted(std::string_view bytes) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string result = "\"";
  for (const char c : bytes) {
    const auto value = static_cast<unsigned char>(c);
    if (value >= ' ' && value < 0x7F) {
      result += c;
    } else {
      result.append("\\x").append(1, digits[value / 16]).append(1, digits[value % 16]);
    }
  }
  return result + '"';
}

}  // namespace

std::ostream& write_error(std::ostream& stream, std::string_view name, long long offset,
                          std::string_view data, std::string_view open_element) {
  std::string line(name);
  line.append(" at byte ").append(std::to_string(offset));
  if (!data.empty()) line.append(": ").append(quoted(data));
  if (!open_element.empty()) line.append(", open element ").append(quoted(open_element));
  return stream << line;
}

}  // namespace ORVA_NAMESPACE::parser::_private
