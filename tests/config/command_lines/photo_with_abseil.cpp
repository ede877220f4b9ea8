// `photo`, with the flags of Abseil, as its manual shows it. They have no short options; types with a
// parser of their own have the range and the choice.
#include <absl/flags/flag.h>
#include <absl/flags/parse.h>
#include <absl/flags/usage.h>
#include <absl/flags/usage_config.h>
#include <absl/strings/numbers.h>

#include <iostream>
#include <string>
#include <vector>

#include "tests/config/command_lines/photo_values.hpp"

struct thread_count {
  int number = 0;
};

bool AbslParseFlag(absl::string_view text, thread_count* threads, std::string* error) {
  if (!absl::ParseFlag(text, &threads->number, error)) return false;
  if (threads->number >= 1 && threads->number <= 64) return true;
  *error = "not in range 1 to 64";
  return false;
}

std::string AbslUnparseFlag(thread_count threads) { return absl::UnparseFlag(threads.number); }

struct scaling {
  std::string word;
};

bool AbslParseFlag(absl::string_view text, scaling* mode, std::string* error) {
  mode->word = std::string(text);
  if (text == "fast" || text == "small") return true;
  *error = "not one of fast, small";
  return false;
}

std::string AbslUnparseFlag(const scaling& mode) { return mode.word; }

ABSL_FLAG(thread_count, threads, thread_count{4}, "Number of threads.");
ABSL_FLAG(bool, verbose, false, "Shows more.");
ABSL_FLAG(bool, all, false, "Shows hidden files.");
ABSL_FLAG(bool, colour, true, "Shows colours.");
ABSL_FLAG(int, shift, 0, "Moves the picture.");
ABSL_FLAG(double, zoom, 1, "Scale.");
ABSL_FLAG(scaling, mode, scaling{"fast"}, "How to scale.");
ABSL_FLAG(std::string, output, "out", "Folder for copies.");
ABSL_FLAG(std::string, title, "Photo", "Title of the window.");
ABSL_FLAG(std::vector<std::string>, tags, {}, "Pictures with these tags.");

int main(int argc, char** argv) {
  absl::SetProgramUsageMessage("Shows pictures.");
  absl::FlagsUsageConfig config;
  config.version_string = [] { return "photo 1.0\n"; };
  absl::SetFlagsUsageConfig(config);
  const std::vector<char*> words = absl::ParseCommandLine(argc, argv);
  photo::values read{
      absl::GetFlag(FLAGS_threads).number, absl::GetFlag(FLAGS_verbose),    absl::GetFlag(FLAGS_all),
      absl::GetFlag(FLAGS_colour),         absl::GetFlag(FLAGS_shift),      absl::GetFlag(FLAGS_zoom),
      absl::GetFlag(FLAGS_mode).word,      absl::GetFlag(FLAGS_output),     absl::GetFlag(FLAGS_title),
      absl::GetFlag(FLAGS_tags),           {words.begin() + 1, words.end()}};
  if (read.files.empty()) {
    std::cerr << "files is required\n";
    return 2;
  }
  photo::write(std::cout, read);
}
