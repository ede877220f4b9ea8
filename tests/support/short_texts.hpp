/// Every text of a few characters, for exhaustive tests.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orva_test {

///     short_texts("ab", 2)   =>  "" "a" "b" "aa" "ba" "ab" "bb"
inline std::vector<std::string> short_texts(std::string_view alphabet, std::size_t longest) {
  std::vector<std::string> texts = {""};
  std::size_t shorter = 0;
  for (std::size_t length = 1; length <= longest; ++length) {
    const std::size_t end = texts.size();
    for (const char last : alphabet) {
      for (std::size_t i = shorter; i < end; ++i) texts.push_back(texts[i] + last);
    }
    shorter = end;
  }
  return texts;
}

}  // namespace orva_test
