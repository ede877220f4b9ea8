/// Texts of many scripts in UTF-8, for benchmarks of text operations.
///
/// With ORVA_BENCH_TEXTS set to a folder, each file "<Script>-Lipsum.utf8.txt" there is one; without it they
/// are made of random words in each script's letters. ASCII is always made.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <string>

#include "orva/orva.hpp"

namespace bench {

struct letters {
  const char* script;
  char32_t first;
  char32_t last;
  unsigned longest_word;
};

inline constexpr letters scripts[] = {
    {"Arabic", 0x627, 0x64A, 8},   {"Chinese", 0x4E00, 0x9FA5, 30}, {"Emoji", 0x1F600, 0x1F64F, 60},
    {"Hebrew", 0x5D0, 0x5EA, 8},   {"Hindi", 0x905, 0x939, 7},      {"Japanese", 0x3041, 0x30FE, 30},
    {"Korean", 0xAC00, 0xD7A3, 4}, {"Latin", 'a', 'z', 9},          {"Russian", 0x410, 0x44F, 10},
};

inline orva::strings::ustring8 made_text(const letters& of, std::size_t bytes) {
  std::mt19937 random(20261121);
  std::uniform_int_distribution<std::uint32_t> letter(of.first, of.last);
  std::uniform_int_distribution<unsigned> word(1, of.longest_word);
  orva::strings::ustring32 text;
  for (std::size_t i = 0; i < bytes; ++i) {
    for (unsigned left = word(random); left > 0; --left) {
      text.push_back(static_cast<orva::strings::code_unit32>(letter(random)));
    }
    text.push_back(' ');
    if (text.size() >= bytes) break;
  }
  return orva::strings::utf32_to_utf8(text);
}

/// At most `bytes` bytes, cut between two characters.
inline orva::strings::ustring8 cut(orva::strings::ustring8 text, std::size_t bytes) {
  if (text.size() <= bytes) return text;
  while ((static_cast<unsigned char>(text[bytes]) & 0xC0) == 0x80) --bytes;
  text.resize(bytes);
  return text;
}

inline std::string file_content(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Script => text of nearly `bytes` bytes.
inline std::map<std::string, orva::strings::ustring8> texts(std::size_t bytes) {
  std::map<std::string, orva::strings::ustring8> result;
  result["Ascii"] = cut(made_text({"Ascii", 'a', 'z', 9}, bytes), bytes);
  const char* const folder = std::getenv("ORVA_BENCH_TEXTS");
  for (const letters& of : scripts) {
    const auto file = std::filesystem::path(folder == nullptr ? "" : folder) /
                      (std::string(of.script) + "-Lipsum.utf8.txt");
    result[of.script] =
        cut(folder == nullptr ? made_text(of, bytes) : orva::strings::ustring8(file_content(file)), bytes);
  }
  return result;
}

}  // namespace bench
