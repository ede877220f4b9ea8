/// Text and bytes for the tests of code pages: the numbers of all pages, random bytes that each page reads in
/// part, and random characters.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "orva/strings/code_page.hpp"
#include "orva/strings/code_page_names.hpp"
#include "orva/strings/ustring.hpp"

namespace orva_test {

inline std::vector<ORVA_NAMESPACE::strings::code_page::encoding_type> all_code_pages() {
  std::vector<ORVA_NAMESPACE::strings::code_page::encoding_type> types;
  for (const auto& page : ORVA_NAMESPACE::strings::known_code_pages()) types.push_back(page.type);
  return types;
}

/// ASCII, zeros, any bytes, and the bytes of characters that the page has, in turns.
template <typename Random>
std::string random_page_bytes(Random& random, const ORVA_NAMESPACE::strings::code_page& page,
                              std::size_t runs) {
  using ORVA_NAMESPACE::strings::code_unit16;
  std::string bytes;
  for (; runs > 0; --runs) {
    const auto kind = random() % 8;
    for (auto left = random() % 40; left > 0; --left) {
      if (kind < 2) bytes.push_back(static_cast<char>(random() % 0x80));
      if (kind == 2) bytes.push_back(static_cast<char>(random() % 0x100));
      if (kind == 3) bytes.push_back(static_cast<char>(0x80 + random() % 0x80));
      if (kind > 3)
        bytes +=
            page.encode(ORVA_NAMESPACE::strings::ustring16(1, static_cast<code_unit16>(random() % 0x10000)));
    }
    if (random() % 4 == 0) bytes.push_back('\0');
  }
  return bytes;
}

}  // namespace orva_test
