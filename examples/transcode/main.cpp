// transcode: converts a text file of any size from one encoding to another, and reports what is lost.
//
//     transcode --from ENCODING [--to ENCODING] [OPTION...] [INPUT [OUTPUT]]
//
// See README.md beside this file.

#include <csignal>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <variant>

#include "conversion.hpp"
#include "files.hpp"
#include "options.hpp"
#include "progress_bar.hpp"
#include "report.hpp"
#include "terminal.hpp"

namespace {

using orva::config::asked_for;

enum exit_code {
  nothing_lost = 0,
  something_lost = 1,
  wrong_command_line = 2,
  file_failure = 3,
  interrupted = 4
};

constexpr std::size_t piece_size = 1 << 16;

volatile std::sig_atomic_t was_interrupted = 0;

/// A second signal ends the program at once.
extern "C" void interrupt(int signal) {
  was_interrupted = 1;
  std::signal(signal, SIG_DFL);
}

int fail(exit_code code, const std::string& text) {
  std::cerr << "transcode: " << text << '\n';
  return code;
}

void print_list() {
  for (const auto& encoding : transcode::all_encodings()) {
    std::cout << encoding.name << ':';
    for (const auto label : encoding.labels) std::cout << ' ' << label;
    std::cout << '\n';
  }
}

transcode::progress_mode progress_of(const transcode::options& options) {
  using transcode::progress_mode;
  const bool is_shown = options.progress == progress_mode::always || transcode::error_is_terminal();
  return is_shown ? options.progress : progress_mode::never;
}

std::string name_in_report(const transcode::options& options) {
  return options.input == "-" ? "standard input" : options.input;
}

/// Copies all of `from` through `conversion` into `to`, if there is one.
int copy(const transcode::options& options, transcode::input& from, transcode::output* to,
         transcode::conversion& conversion, transcode::progress_bar& bar) {
  const auto stop = [&bar](exit_code code, const std::string& text) {
    bar.clear();
    return fail(code, text);
  };
  std::string piece(piece_size, '\0');
  std::string result;
  std::uint64_t done = 0;
  for (bool at_end = false; !at_end; result.clear()) {
    const std::size_t size = from.read(piece);
    if (was_interrupted != 0) return stop(interrupted, "interrupted");
    if (from.failed()) return stop(file_failure, options.input + " cannot be read");
    at_end = size < piece.size();
    conversion.convert({piece.data(), size}, result);
    if (at_end) conversion.finish(result);
    if (to != nullptr && !to->write(result)) return stop(file_failure, options.output + " cannot be written");
    bar.show(done += size);
  }
  return nothing_lost;
}

int convert(const transcode::options& options) {
  transcode::input from(options.input);
  if (!from.is_open()) return fail(file_failure, options.input + " cannot be opened");
  std::optional<transcode::output> to;
  if (!options.only_checks) {
    to.emplace(options.output);
    if (!to->is_open()) return fail(file_failure, options.output + " cannot be opened");
  }
  transcode::progress_bar bar(progress_of(options), from.size());
  transcode::report report(name_in_report(options), options.report_limit, [&bar] { bar.clear(); });
  transcode::conversion conversion(options.from, options.to, options.with_mark, report);
  const int failed = copy(options, from, to ? &*to : nullptr, conversion, bar);
  bar.end();
  if (failed != 0) return failed;
  if (to && !to->commit()) return fail(file_failure, options.output + " cannot be written");
  report.summarize();
  return report.losses() == 0 ? nothing_lost : something_lost;
}

int fail_usage() {
  std::cerr << "try transcode --help\n";
  return wrong_command_line;
}

int run(const orva::config::settings& values) {
  if (values.asks_for() == asked_for::help) {
    std::cout << help_text(values.declared(), {.width = orva::config::help_width(std::cout)});
    return nothing_lost;
  }
  if (values.asks_for() == asked_for::version) {
    std::cout << version_text(values.declared());
    return nothing_lost;
  }
  orva::diagnostics::write_text(std::cerr, values.report());
  if (values.report().has_errors()) return fail_usage();
  if (values.get<bool>("list")) {
    print_list();
    return nothing_lost;
  }
  const auto read = transcode::read_options(values);
  if (const auto* const options = std::get_if<transcode::options>(&read)) return convert(*options);
  fail(wrong_command_line, std::get<transcode::usage_error>(read).text);
  return fail_usage();
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  std::signal(SIGINT, interrupt);
  std::signal(SIGTERM, interrupt);
  try {
    const orva::system::program_arguments arguments(argc, argv);
    const int code = run({transcode::declared(), arguments.count(), arguments.values()});
    return std::cout.flush() ? code : file_failure;
  } catch (const std::exception& failure) {
    return fail(file_failure, failure.what());
  }
}
