/// The command line.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "encoding.hpp"
#include "orva/orva.hpp"
#include "progress_bar.hpp"

namespace transcode {

struct options {
  encoding from;
  encoding to;
  std::string input = "-";
  std::string output = "-";
  bool only_checks = false;
  bool with_mark = false;
  /// The number of losses to list; all are counted.
  std::uint64_t report_limit = 100;
  progress_mode progress = progress_mode::for_long_work;
};

/// What is wrong with the command line, in words.
struct usage_error {
  std::string text;
};

/// The options and arguments that there are.
orva::config::declaration declared();

/// What the values ask for. REQUIRES: their report has no errors.
std::variant<options, usage_error> read_options(const orva::config::settings& values);

}  // namespace transcode
