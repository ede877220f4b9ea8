/// Reads any bytes as a command line, its words separated by zero bytes. The first word is the program's
/// name. Reads the same words as an environment.
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <sstream>

#include "fuzz/config/fuzz_input.hpp"
#include "fuzz/require.hpp"
#include "orva/config/commandline_item.hpp"
#include "orva/config/enviroment_item.hpp"
#include "tests/support/config_item.hpp"

namespace {

using namespace orva_fuzz;
using namespace orva_test;
using ORVA_NAMESPACE::config::commandline_item;
using ORVA_NAMESPACE::config::enviroment_item;

std::vector<std::string> words_of(std::string_view text) {
  std::vector<std::string> words;
  for (;;) {
    const auto end = text.find('\0');
    words.emplace_back(text.substr(0, end));
    if (end == text.npos) return words;
    text.remove_prefix(end + 1);
  }
}

/// Loads the item, and returns the text that it writes to standard output.
std::string load(commandline_item& item) {
  std::ostringstream captured;
  auto* const before = std::cout.rdbuf(captured.rdbuf());
  require(item.load());
  std::cout.rdbuf(before);
  return captured.str();
}

/// Compares all keys except those of the program's name, which options may overwrite.
void compare(const std::vector<std::string>& words, commandline_item& item) {
  const std::string warnings = load(item);
  const reference_command_line reference({words.begin() + 1, words.end()});
  require(warnings == reference.warnings);
  auto found = listing_of(item);
  auto expected = reference.tree.listing();
  const auto is_name = [](const std::string& line) { return line.starts_with("application"); };
  std::erase_if(found, is_name);
  std::erase_if(expected, is_name);
  require(found == expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > longest_input) return 0;
  const auto words = words_of(text_of(data, size));
  std::vector<const char*> argv;
  for (const std::string& word : words) argv.push_back(word.c_str());
  argv.push_back(nullptr);

  commandline_item item(static_cast<unsigned int>(words.size()), argv.data());
  compare(words, item);

  enviroment_item environment(argv.data());
  require(environment.load());
  plain_item expressions;
  for (const std::string& word : words) expressions.set(word, 0);
  require(listing_of(environment) == listing_of(expressions));
  return 0;
}
