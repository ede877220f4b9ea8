/// Bytes as hexadecimal text and back: two upper-case digits for each byte, with blanks between.
///
///     to_hex("\r\n")     =>  "0D 0A"
///     from_hex("0D 0A")  =>  "\r\n"
#pragma once

#include <sstream>
#include <string>
#include <string_view>

namespace orva_test {

inline std::string to_hex(std::string_view bytes) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    if (!text.empty()) text += ' ';
    text += digits[value / 16];
    text += digits[value % 16];
  }
  return text;
}

inline std::string from_hex(const std::string& text) {
  std::istringstream stream(text);
  std::string bytes;
  for (unsigned int value = 0; stream >> std::hex >> value;) bytes += static_cast<char>(value);
  return bytes;
}

}  // namespace orva_test
