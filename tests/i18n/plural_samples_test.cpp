// Plural rules and the sample numbers that the Common Locale Data Repository has for each of them.
#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "orva/i18n/plural_rules.hpp"

namespace {

using namespace ORVA_NAMESPACE::i18n;

std::vector<std::string> split(const std::string& text, const std::string& separator) {
  std::vector<std::string> parts;
  std::size_t begin = 0;
  for (std::size_t end; (end = text.find(separator, begin)) != text.npos; begin = end + separator.size()) {
    parts.push_back(text.substr(begin, end - begin));
  }
  parts.push_back(text.substr(begin));
  return parts;
}

/// A sample is a number or a range such as 0.5~1.5, whose ends have as many digits after the point.
std::vector<std::string> numbers_of(const std::string& sample) {
  const std::vector<std::string> ends = split(sample, "~");
  if (ends.size() == 1) return ends;
  const std::size_t point = ends[0].find('.');
  const std::size_t digits = point == sample.npos ? 0 : ends[0].size() - point - 1;
  const auto without_point = [](std::string text) {
    std::erase(text, '.');
    return std::stoul(text);
  };
  std::vector<std::string> numbers;
  for (auto number = without_point(ends[0]); number <= without_point(ends[1]); ++number) {
    std::string text = std::to_string(number);
    if (text.size() <= digits) text.insert(0, digits + 1 - text.size(), '0');
    if (digits != 0) text.insert(text.size() - digits, ".");
    numbers.push_back(text);
  }
  return numbers;
}

TEST(plural_samples, ranges_keep_their_digits) {
  EXPECT_EQ(numbers_of("7"), std::vector<std::string>{"7"});
  EXPECT_EQ(numbers_of("9~11"), (std::vector<std::string>{"9", "10", "11"}));
  EXPECT_EQ(numbers_of("0.9~1.1"), (std::vector<std::string>{"0.9", "1.0", "1.1"}));
  EXPECT_EQ(numbers_of("0.00~0.02"), (std::vector<std::string>{"0.00", "0.01", "0.02"}));
}

TEST(plural_samples, each_sample_is_in_its_category) {
  std::ifstream lines(PLURAL_SAMPLES);
  std::size_t count = 0;
  for (std::string line; std::getline(lines, line);) {
    const std::vector<std::string> fields = split(line, " | ");
    ASSERT_EQ(fields.size(), 4U) << line;
    const plural_kind kind = fields[1] == "ordinal" ? plural_kind::ordinal : plural_kind::cardinal;
    for (const std::string& language : split(fields[0], " ")) {
      std::istringstream samples(fields[3]);
      for (std::string sample; samples >> sample;) {
        for (const std::string& number : numbers_of(sample)) {
          ++count;
          EXPECT_EQ(name_of(plural_category_of(language, plural_number::read(number).value(), kind)),
                    fields[2])
              << language << ' ' << fields[1] << ' ' << number;
        }
      }
    }
  }
  EXPECT_GT(count, 10000U);
}

/// A category of the rules is one of the language, and no other.
TEST(plural_samples, languages_have_the_categories_of_their_rules) {
  std::map<std::pair<std::string, bool>, std::set<std::string>> expected;
  std::ifstream lines(PLURAL_SAMPLES);
  for (std::string line; std::getline(lines, line);) {
    const std::vector<std::string> fields = split(line, " | ");
    for (const std::string& language : split(fields.at(0), " ")) {
      expected[{language, fields.at(1) == "ordinal"}].insert(fields.at(2));
    }
  }
  EXPECT_GT(expected.size(), 300U);
  for (const auto& [language, categories] : expected) {
    std::set<std::string> found;
    const plural_kind kind = language.second ? plural_kind::ordinal : plural_kind::cardinal;
    for (const plural_category each : plural_categories_of(language.first, kind))
      found.emplace(name_of(each));
    EXPECT_EQ(found, categories) << language.first;
  }
}

}  // namespace
