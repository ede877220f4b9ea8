// disk_free: reports the free space on each file system, in the language of its user.
//
//     disk_free [--language TAG] [--path PATH,...] [--form short] [--messages DIRECTORY] [--sizes FILE]
//               [--cfg_file FILE] [--dump]
//
// See README.md beside this file.

#include <algorithm>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "language.hpp"
#include "machine.hpp"
#include "orva/orva.hpp"
#include "settings.hpp"

using orva::config::asked_for;
using orva::generic::varg_list;
using orva::i18n::message_catalogs;

namespace {

enum exit_code { all_is_well = 0, failure = 1, wrong_usage = 2 };

constexpr char catalog[] = "disk_free";

class report {
 public:
  explicit report(const message_catalogs& catalogs) : catalogs_(catalogs) {}

  /// The sentence of this name, with its placeholders filled in, in UTF-8.
  std::string text(const char* name, const varg_list& args) const {
    return catalogs_.message(catalog, name).as_utf8(args);
  }

  void print(const disk_free::machine& machine, bool is_short) const {
    if (!is_short) print_title(machine.seconds_up);
    for (const auto& file_system : machine.file_systems) print(file_system);
    if (!is_short) print_summary(machine);
  }

 private:
  /// The time is given twice, as a whole and in parts, so that a translator can choose.
  void print_title(std::uint64_t seconds_up) const {
    varg_list args;
    args.push_back("uptime", seconds_up);
    args.push_back("up_days", seconds_up / 86400);
    args.push_back("up_hours", seconds_up / 3600 % 24);
    args.push_back("up_minutes", seconds_up / 60 % 60);
    std::cout << text("title", args) << '\n';
  }

  void print(const disk_free::file_system& file_system) const {
    const auto total = static_cast<double>(file_system.total_bytes);
    const auto free = static_cast<double>(file_system.free_bytes);
    varg_list args;
    args.push_back("path", file_system.path);
    args.push_back("free", file_system.free_bytes);
    args.push_back("total", file_system.total_bytes);
    args.push_back("percent", total == 0 ? 0 : 100 * free / total);
    args.push_back("files", file_system.free_files);
    std::cout << text(file_system.total_files == 0 ? "disk_free" : "disk_free_files", args) << '\n';
  }

  void print_summary(const disk_free::machine& machine) const {
    std::uint64_t files = 0;
    for (const auto& file_system : machine.file_systems)
      files += file_system.total_files - file_system.free_files;
    varg_list args;
    args.push_back("count", machine.file_systems.size());
    args.push_back("files", files);
    std::cout << text("summary", args) << '\n';
  }

  const message_catalogs& catalogs_;
};

/// "de (Deutsch), en (English), ...". Each file of messages adds its language to the catalog "languages".
std::string known_languages(const message_catalogs& catalogs) {
  std::string result;
  for (auto language = catalogs.begin("languages"); language != catalogs.end("languages"); ++language) {
    if (!result.empty()) result += ", ";
    result += language->first + " (" + language->second.as_utf8() + ")";
  }
  return result;
}

int fail(const std::string& text) {
  std::cerr << text << '\n';
  return failure;
}

/// The text of --help or --version, in the user's language.
orva::strings::ustring8 information(const orva::config::settings& values, const message_catalogs& catalogs) {
  if (values.asks_for() == asked_for::version) return version_text(values.declared());
  orva::config::help_options options;
  options.width = orva::config::help_width(std::cout);
  options.texts = [&](std::string_view name, std::string_view english) {
    return orva::i18n::translate(name, english, catalogs, catalog);
  };
  return help_text(values.declared(), options);
}

/// Writes what is wrong with the settings, in the user's language.
void write_findings(const orva::diagnostics::report& found, const message_catalogs& catalogs) {
  orva::diagnostics::text_options options;
  options.colour = orva::diagnostics::shows_colour(std::cerr);
  options.sentence = [&](const auto& each) { return orva::i18n::describe(each, catalogs); };
  write_text(std::cerr, found, options);
}

/// Removes the file systems that are not in `paths`, unless that is empty.
void select_paths(disk_free::machine& machine, const std::vector<std::string>& paths) {
  if (paths.empty()) return;
  std::erase_if(machine.file_systems, [&](const disk_free::file_system& each) {
    return std::find(paths.begin(), paths.end(), each.path) == paths.end();
  });
}

int report_disks(const disk_free::settings& settings, const message_catalogs& catalogs) {
  const report report(catalogs);
  varg_list args;
  // A language that the user set must be there. That of the environment may fall back to English.
  const std::string language = settings.language();
  if (settings.sets_language() && !disk_free::speaks(catalogs, catalog, language)) {
    args.push_back("language", language);
    args.push_back("known", known_languages(catalogs));
    return fail(report.text("unknown_language", args));
  }

  disk_free::machine machine;
  int bad_line = 0;
  const std::string sizes = settings.sizes();
  if (sizes.empty()) {
    machine = disk_free::this_machine();
  } else if (!disk_free::read_machine(sizes, machine, bad_line)) {
    args.push_back("file", sizes);
    args.push_back("line", bad_line);
    return fail(report.text(bad_line == 0 ? "cannot_read" : "bad_line", args));
  }
  select_paths(machine, settings.paths());
  if (machine.file_systems.empty()) return fail(report.text("no_disks", args));
  report.print(machine, settings.is_short());
  return all_is_well;
}

int run(const disk_free::settings& settings) {
  const orva::config::settings& values = settings.all();
  message_catalogs catalogs;
  const auto loaded = catalogs.load(settings.messages(), settings.language());
  if (values.asks_for() != asked_for::nothing) {
    std::cout << information(values, catalogs);
    return all_is_well;
  }
  write_findings(values.report(), catalogs);
  if (values.report().has_errors()) return wrong_usage;
  if (settings.dump()) {
    std::cout << values.manager();
    return all_is_well;
  }
  if (loaded != message_catalogs::no_error) return fail(loaded.message());
  return report_disks(settings, catalogs);
}

}  // namespace

int main(int argc, char** argv, char** environment) {
  try {
    const orva::system::program_arguments arguments(argc, argv);
    const int code = run(disk_free::settings(arguments.count(), arguments.values(), environment,
                                             disk_free::program_directory()));
    return std::cout.flush() ? code : failure;
  } catch (const orva::exceptions::exception& failure) {
    return fail(failure.message());
  } catch (const std::exception& failure) {
    return fail(failure.what());
  }
}
