/// Reads the lines of a golden file, split into columns at the bars. Lines that begin with # are comments.
#pragma once

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace orva_test {

inline std::string without_outer_blanks(const std::string& text) {
  const auto begin = text.find_first_not_of(' ');
  if (begin == std::string::npos) return {};
  return text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

inline std::vector<std::vector<std::string>> golden_lines(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("no golden file " + path);
  std::vector<std::vector<std::string>> lines;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::vector<std::string> columns;
    std::istringstream stream(line);
    for (std::string column; std::getline(stream, column, '|');)
      columns.push_back(without_outer_blanks(column));
    if (line.back() == '|') columns.emplace_back();
    lines.push_back(columns);
  }
  return lines;
}

}  // namespace orva_test
