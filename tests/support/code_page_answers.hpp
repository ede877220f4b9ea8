/// The answers of the platform that defined the code pages, for every unit and every pair of bytes, as
/// recorded by tools/code_page_tables. tools/code_pages/ask.cpp describes the format.
///
/// Texts are converted from the answers byte by byte, without the library's tables.
#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>

#include "orva/strings/ustring.hpp"

namespace reference {

inline std::string answers_in(const std::string& name) {
  std::ifstream file(ORVA_CODE_PAGE_ANSWERS "/" + name, std::ios::binary);
  std::string content{std::istreambuf_iterator<char>(file), {}};
  if (content.empty()) throw std::runtime_error("no answers in " + name);
  return content;
}

inline unsigned number_at(const std::string& content, std::size_t at) {
  return static_cast<unsigned char>(content[at]) + 256u * static_cast<unsigned char>(content[at + 1]);
}

/// Appends as many of `count` numbers at `at` as are not 0.
inline void append_units(ORVA_NAMESPACE::strings::ustring16& text, const std::string& content, std::size_t at,
                         std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const unsigned unit = number_at(content, at + 2 * i);
    if (unit != 0) text.push_back(static_cast<ORVA_NAMESPACE::strings::code_unit16>(unit));
  }
}

class code_page_answers {
 public:
  explicit code_page_answers(int page) : content_(answers_in(std::to_string(page) + ".answers")) {}

  std::string encoded(ORVA_NAMESPACE::strings::code_unit16 unit) const {
    const std::size_t at = 4 * static_cast<std::size_t>(static_cast<std::uint16_t>(unit));
    const unsigned long number = number_at(content_, at) + 65536ul * number_at(content_, at + 2);
    std::string bytes;
    for (unsigned long shift = 16777216; shift > 0; shift /= 256) {
      const unsigned long byte = number / shift % 256;
      if (byte != 0) bytes.push_back(static_cast<char>(byte));
    }
    return bytes;
  }

  /// A pair; of a single byte, where the second is 0.
  ORVA_NAMESPACE::strings::ustring16 decoded(char first, char second) const {
    ORVA_NAMESPACE::strings::ustring16 text;
    const std::size_t pair = 256u * static_cast<unsigned char>(first) + static_cast<unsigned char>(second);
    append_units(text, content_, 262144 + 4 * pair, 2);
    return text;
  }

  std::string encoded(const ORVA_NAMESPACE::strings::ustring16& text) const {
    std::string bytes;
    for (const auto unit : text) bytes += encoded(unit);
    return bytes;
  }

  /// For all pages but UTF-8, whose sequences may have more than two bytes.
  ORVA_NAMESPACE::strings::ustring16 decoded(const std::string& bytes) const {
    ORVA_NAMESPACE::strings::ustring16 text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      const char next = i + 1 < bytes.size() ? bytes[i + 1] : '\0';
      const bool is_pair = next != '\0' && decoded(bytes[i], next).size() == 1;
      text += decoded(bytes[i], is_pair ? next : '\0');
      if (is_pair) ++i;
    }
    return text;
  }

 private:
  std::string content_;
};

}  // namespace reference
