// Counts the records of a feed of any size, with a progress bar, and passes over the damaged ones.
#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iomanip>
#include <iostream>
#include <optional>
#include <string>

#include "generate.hpp"
#include "statistics.hpp"

namespace {

struct options {
  std::string file;
  bool show_progress = true;
  /// Set: a feed is written and not read.
  std::optional<std::uint64_t> megabytes;
  std::uint64_t damage_one_of = 0;
};

std::optional<std::uint64_t> read_number(const std::string& word) {
  const orva::strings::ustring8 text(word);
  if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != text.npos)
    return std::nullopt;
  return orva::generic::convert::str_to_uint32(text.data(), text.size(), orva::types::radix_t::decimal,
                                               false);
}

std::optional<options> read_options(int argc, char** argv) {
  options result;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word == "--no-progress") {
      result.show_progress = false;
    } else if ((word == "--generate" || word == "--damage") && i + 1 < argc) {
      const auto number = read_number(argv[++i]);
      if (!number) return std::nullopt;
      if (word == "--generate") {
        result.megabytes = number;
      } else {
        result.damage_one_of = *number;
      }
    } else if (word.starts_with('-') || !result.file.empty()) {
      return std::nullopt;
    } else {
      result.file = word;
    }
  }
  if (result.file.empty()) return std::nullopt;
  return result;
}

/// [##########..............................]  25 %
class progress_bar {
 public:
  explicit progress_bar(bool is_shown) : is_shown_(is_shown) {}

  void show(long long offset, long long length) {
    if (!is_shown_ || offset == 0 || length <= 0) return;
    // A feed that was cut in the meantime is shorter than the part that was read.
    const int percent = static_cast<int>(100 * std::min(offset, length) / length);
    if (percent == percent_) return;
    percent_ = percent;
    const auto filled = static_cast<std::size_t>(percent) * width / 100;
    std::cerr << "\r[" << std::string(filled, '#') << std::string(width - filled, '.') << "] " << std::setw(3)
              << percent << " %" << std::flush;
  }

  /// Ends the line of the bar, so that a line of text can follow.
  void end_line() {
    if (percent_ >= 0) std::cerr << '\n';
    percent_ = -1;
  }

 private:
  static constexpr std::size_t width = 40;

  bool is_shown_;
  int percent_ = -1;
};

void print(const feed_stats::statistics& found) {
  std::cout << std::left << std::setw(16) << "record" << std::right << std::setw(12) << "records"
            << std::setw(12) << "elements" << std::setw(12) << "attributes" << '\n';
  for (const auto& [kind, count] : found.kinds) {
    std::cout << std::left << std::setw(16) << kind << std::right << std::setw(12) << count.records
              << std::setw(12) << count.elements << std::setw(12) << count.attributes << '\n';
  }
  std::cout << "root: " << found.root << ", damaged places: " << found.damages << '\n';
}

int count_records(const options& options) {
  progress_bar bar(options.show_progress);
  feed_stats::observer observer;
  observer.progress = [&bar](long long offset, long long length) { bar.show(offset, length); };
  observer.damage = [&bar](auto error, long long offset, unsigned long line) {
    bar.end_line();
    std::cerr << "damaged at byte " << offset << ", line " << line
              << " or later: " << feed_stats::words(error) << '\n';
  };
  const auto found = feed_stats::gather(options.file, observer);
  // The text after the root is not read.
  if (found.ended_by == orva::parser::xml_stream_parser::end_of_document) bar.show(1, 1);
  bar.end_line();
  if (!found.root.empty()) print(found);
  if (found.ended_by == orva::parser::xml_stream_parser::end_of_document) return EXIT_SUCCESS;
  std::cerr << options.file << ": " << feed_stats::words(found.ended_by) << '\n';
  return EXIT_FAILURE;
}

int fail(const std::string& text) {
  std::cerr << text << '\n';
  return EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const auto options = read_options(argc, argv);
    if (!options)
      return fail(
          "usage: feed_stats [--no-progress] FILE\n       feed_stats --generate MEGABYTES [--damage N] FILE");
    if (!options->megabytes) return count_records(*options);
    if (feed_stats::generate(options->file, *options->megabytes << 20, options->damage_one_of))
      return EXIT_SUCCESS;
    return fail(options->file + " cannot be written");
  } catch (const std::exception& failure) {
    return fail(failure.what());
  }
}
