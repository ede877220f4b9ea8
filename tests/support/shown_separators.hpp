/// The byte 0x01, which separates the parts of the text forms, as the documentation shows it: as ~.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace orva_test {

inline std::string shown(std::string bytes) {
  std::replace(bytes.begin(), bytes.end(), '\x01', '~');
  return bytes;
}

/// The inverse of `shown`.
inline std::string bytes(std::string_view shown_text) {
  std::string text(shown_text);
  std::replace(text.begin(), text.end(), '~', '\x01');
  return text;
}

}  // namespace orva_test
