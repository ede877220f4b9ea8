// What the declared settings make of the command lines that docs/command_lines.md shows. The answers of this
// library and of others are recorded beside this file; tools/command_lines makes the page of them.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/config/command_lines/photo_with_orva.hpp"
#include "tests/support/declared_program.hpp"

namespace {

const std::string folder = COMMAND_LINES;

/// The command lines of lines.txt.
std::vector<std::string> command_lines() {
  std::ifstream file(folder + "/lines.txt");
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("photo")) lines.push_back(line);
  }
  return lines;
}

/// The answers of a file as tools/command_lines writes it: a command line, and lines after two blanks.
std::vector<std::string> recorded_answers() {
  std::ifstream file(folder + "/answers/orva.txt");
  std::vector<std::string> answers;
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with("  ")) answers.emplace_back();
    answers.back() += line + '\n';
  }
  return answers;
}

/// The words of a command line of the shell, in which '...' and $'...' quote, the latter with \xe9 for a
/// byte.
std::vector<std::string> words_of(const std::string& line) {
  std::vector<std::string> words(1);
  bool is_quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '\'') {
      is_quoted = !is_quoted;
    } else if (line[i] == ' ' && !is_quoted) {
      words.emplace_back();
    } else if (line[i] == '\\') {
      words.back() += static_cast<char>(std::stoi(line.substr(i + 2, 2), nullptr, 16));
      i += 3;
    } else if (line.compare(i, 2, "$'") != 0) {
      words.back() += line[i];
    }
  }
  return words;
}

/// As tools/command_lines records them.
void add_lines(std::string& answer, const std::string& mark, const std::string& text) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) answer += "  " + mark + line + '\n';
}

std::string escaped(std::string text) {
  for (std::size_t at; (at = text.find('\xE9')) != text.npos;) text.replace(at, 1, "\\xe9");
  return text;
}

std::string answer_to(const std::string& line) {
  const orva_test::word_list words(words_of(line));
  std::ostringstream output;
  std::ostringstream errors;
  const int code = photo::run(words.size(), words.data(), output, errors);
  const bool is_help = output.str().find("Shows pictures.") != std::string::npos;
  std::string answer = line + '\n';
  add_lines(answer, "", is_help ? "shows the help" : escaped(output.str()));
  add_lines(answer, "! ", errors.str());
  if (code != 0) answer += "  exit code " + std::to_string(code) + '\n';
  return answer;
}

TEST(command_lines, are_answered_as_the_page_shows) {
  const std::vector<std::string> answers = recorded_answers();
  const std::vector<std::string> lines = command_lines();
  ASSERT_EQ(lines.size(), 60U);
  ASSERT_EQ(answers.size(), lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) EXPECT_EQ(answer_to(lines[i]), answers[i]);
}

}  // namespace
