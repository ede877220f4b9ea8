/// Runs of a program with declared settings: a command line, an environment, and what `settings` reads of
/// them.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "orva/config/settings.hpp"
#include "orva/diagnostics/finding.hpp"

namespace orva_test {

/// Words that live as long as the object, as `main` gets them.
class word_list {
 public:
  explicit word_list(std::vector<std::string> words) : words_(std::move(words)) {
    for (const std::string& word : words_) pointers_.push_back(word.c_str());
    pointers_.push_back(nullptr);
  }
  word_list(const word_list&) = delete;
  word_list& operator=(const word_list&) = delete;

  int size() const { return static_cast<int>(words_.size()); }
  const char* const* data() const { return pointers_.data(); }

 private:
  std::vector<std::string> words_;
  std::vector<const char*> pointers_;
};

inline std::vector<std::string> with_program(std::vector<std::string> words) {
  words.insert(words.begin(), "tool");
  return words;
}

/// A declaration, a command line and an environment, and the settings that were read.
struct program_run {
  explicit program_run(const ORVA_NAMESPACE::config::declaration& declared,
                       std::vector<std::string> arguments = {}, std::vector<std::string> variables = {},
                       const ORVA_NAMESPACE::config::settings_options& options = {})
      : words(with_program(std::move(arguments))),
        environment(std::move(variables)),
        settings(declared, words.size(), words.data(), environment.data(), options) {}

  /// The findings, each with its place, severity and code, as "command line:1 error config.unknown_option".
  std::vector<std::string> codes() const {
    std::vector<std::string> result;
    for (const auto& each : settings.report().findings()) {
      std::string place = each.file;
      if (each.at.line != 0) place += ':' + std::to_string(each.at.line);
      if (each.at.column != 0) place += ':' + std::to_string(each.at.column);
      if (!place.empty()) place += ' ';
      result.push_back(place + std::string(ORVA_NAMESPACE::diagnostics::name_of(each.level)) + ' ' +
                       each.code);
    }
    return result;
  }

  /// The sentences of the findings.
  std::vector<std::string> sentences() const {
    std::vector<std::string> result;
    for (const auto& each : settings.report().findings()) {
      result.push_back(ORVA_NAMESPACE::diagnostics::sentence(each));
    }
    return result;
  }

  word_list words;
  word_list environment;
  ORVA_NAMESPACE::config::settings settings;
};

}  // namespace orva_test
