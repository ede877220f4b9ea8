/// The options that the benchmarks of declared settings declare, and a command line that gives each a value:
/// 600 integers with a range, 300 texts and 100 flags, some with a short option.
#pragma once

#include <string>
#include <vector>

namespace config_bench {

inline constexpr int option_count = 1000;

enum class option_kind { integer, text, flag };

constexpr option_kind kind_of(int number) {
  if (number % 10 == 9) return option_kind::flag;
  return number % 10 < 6 ? option_kind::integer : option_kind::text;
}

inline std::string option_name(int number) {
  static const char* const words[] = {"width", "height", "threads", "colour", "title", "cache", "path"};
  return std::string(words[number % 7]) + "-of-" + std::to_string(number);
}

/// The sum of all values, texts counted by their lengths: each program must read the same.
constexpr long long expected_sum() {
  long long sum = 0;
  for (int number = 0; number < option_count; ++number) {
    if (kind_of(number) == option_kind::integer) sum += number;
    if (kind_of(number) == option_kind::text) sum += 8;
    if (kind_of(number) == option_kind::flag) sum += 1;
  }
  return sum;
}

/// The arguments of the program, as `main` gets them.
class command_line {
 public:
  command_line() {
    words_.push_back("program");
    for (int number = 0; number < option_count; ++number) add(number);
    for (const std::string& word : words_) pointers_.push_back(word.c_str());
    pointers_.push_back(nullptr);
  }
  command_line(const command_line&) = delete;
  command_line& operator=(const command_line&) = delete;

  int argc() const { return static_cast<int>(words_.size()); }
  const char* const* argv() const { return pointers_.data(); }

 private:
  void add(int number) {
    const std::string option = "--" + option_name(number);
    switch (kind_of(number)) {
      case option_kind::integer:
        words_.push_back(option);
        words_.push_back(std::to_string(number));
        break;
      case option_kind::text:
        words_.push_back(option + "=" + std::to_string(10000000 + number));
        break;
      case option_kind::flag:
        words_.push_back(option);
        break;
    }
  }

  std::vector<std::string> words_;
  std::vector<const char*> pointers_;
};

}  // namespace config_bench
