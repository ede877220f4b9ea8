// Counts the records of a feed of any size, with a progress bar, and passes over the damaged ones.
#include <algorithm>
#include <exception>
#include <iomanip>
#include <iostream>
#include <string>

#include "generate.hpp"
#include "options.hpp"
#include "statistics.hpp"

namespace {

using orva::config::asked_for;

enum exit_code { all_is_well = 0, failure = 1, wrong_usage = 2 };

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

int count_records(const std::string& file, bool shows_progress) {
  progress_bar bar(shows_progress);
  feed_stats::observer observer;
  observer.progress = [&bar](long long offset, long long length) { bar.show(offset, length); };
  observer.damage = [&bar](auto error, long long offset, unsigned long line) {
    bar.end_line();
    std::cerr << "damaged at byte " << offset << ", line " << line
              << " or later: " << feed_stats::words(error) << '\n';
  };
  const auto found = feed_stats::gather(file, observer);
  // The text after the root is not read.
  if (found.ended_by == orva::parser::xml_stream_parser::end_of_document) bar.show(1, 1);
  bar.end_line();
  if (!found.root.empty()) print(found);
  if (found.ended_by == orva::parser::xml_stream_parser::end_of_document) return all_is_well;
  std::cerr << file << ": " << feed_stats::words(found.ended_by) << '\n';
  return failure;
}

int fail(const std::string& text) {
  std::cerr << text << '\n';
  return failure;
}

int write_feed(const std::string& file, std::uint64_t megabytes, std::uint64_t damage_one_of) {
  if (feed_stats::generate(file, megabytes << 20, damage_one_of)) return all_is_well;
  return fail(file + " cannot be written");
}

int run(const orva::config::settings& values) {
  if (values.asks_for() == asked_for::help) {
    std::cout << help_text(values.declared(), {.width = orva::config::help_width(std::cout)});
    return all_is_well;
  }
  if (values.asks_for() == asked_for::version) {
    std::cout << version_text(values.declared());
    return all_is_well;
  }
  orva::diagnostics::write_text(std::cerr, values.report());
  if (values.report().has_errors()) return wrong_usage;

  const auto file = values.get<std::string>("file");
  const auto megabytes = values.find<std::uint64_t>("generate");
  if (megabytes) return write_feed(file, *megabytes, values.get<std::uint64_t>("damage"));
  return count_records(file, values.get<bool>("progress"));
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const orva::system::program_arguments arguments(argc, argv);
    const int code = run({feed_stats::declared(), arguments.count(), arguments.values()});
    return std::cout.flush() ? code : failure;
  } catch (const std::exception& failure) {
    return fail(failure.what());
  }
}
