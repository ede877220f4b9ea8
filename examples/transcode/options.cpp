#include "options.hpp"

#include <limits>
#include <optional>

namespace transcode {

namespace config = orva::config;
using config::setting;

namespace {

void add_options(config::declaration& program) {
  program.add(setting("from", config::text())
                  .option('f', "from")
                  .value_name("ENCODING")
                  .help("The encoding of INPUT."));
  program.add(setting("to", config::text())
                  .option('t', "to")
                  .by_default("UTF-8")
                  .value_name("ENCODING")
                  .help("The encoding of OUTPUT."));
  program.add(setting("check", config::flag()).help("Only reports what would be lost, and writes nothing."));
  program.add(
      setting("mark", config::flag()).help("Begins OUTPUT with a byte order mark, if the encoding has one."));
  program.add(setting("report", config::integer_between(0, std::numeric_limits<std::int64_t>::max()))
                  .by_default(100)
                  .value_name("N")
                  .help("Lists the first N losses. All are counted."));
  program.add(setting("progress", config::flag())
                  .help("Shows the progress at once, even if standard error is no terminal; with no-, never. "
                        "Otherwise it is shown on a terminal, for work that takes long."));
  program.add(setting("list", config::flag()).help("Lists the encodings with their labels."));
}

}  // namespace

config::declaration declared() {
  config::declaration program("transcode");
  program.version(TRANSCODE_VERSION)
      .description(
          "Converts a text file of any size from one encoding to another, and reports each character that is "
          "lost.\n\n"
          "Exits with 0 if nothing was lost, 1 if something was lost, 2 if the command line is wrong, 3 if a "
          "file cannot be read or written, 4 if it was interrupted. With 2, 3 and 4 an existing OUTPUT is as "
          "it was before.");
  add_options(program);
  program.add_positional(setting("input", config::file_path())
                             .by_default("-")
                             .value_name("INPUT")
                             .help("A file, or - for standard input."));
  program.add_positional(setting("output", config::file_path())
                             .by_default("-")
                             .value_name("OUTPUT")
                             .help("A file, or - for standard output. It may be the same file."));
  program.example("transcode --from Shift_JIS --check old_notes.txt", "Reports what UTF-8 would lose.");
  program.example("transcode -f UTF-8 -t windows-1252 letter.txt letter_1252.txt", "Converts a file.");
  return program;
}

std::variant<options, usage_error> read_options(const config::settings& values) {
  const auto unknown = [](const std::string& label) {
    return usage_error{"unknown encoding \"" + label + "\", see --list"};
  };
  options result;
  const auto from = values.find<std::string>("from");
  if (!from) return usage_error{"the encoding of the input is missing: --from ENCODING"};
  const auto known_from = find_encoding(*from);
  if (!known_from) return unknown(*from);
  result.from = *known_from;
  const auto to = values.get<std::string>("to");
  const auto known_to = find_encoding(to);
  if (!known_to) return unknown(to);
  result.to = *known_to;

  result.input = values.get<std::string>("input");
  result.output = values.get<std::string>("output");
  result.only_checks = values.get<bool>("check");
  if (result.only_checks && values.is_set("output"))
    return usage_error{"--check writes no file: " + result.output};
  result.with_mark = values.get<bool>("mark");
  result.report_limit = values.get<std::uint64_t>("report");
  if (values.is_set("progress"))
    result.progress = values.get<bool>("progress") ? progress_mode::always : progress_mode::never;
  return result;
}

}  // namespace transcode
