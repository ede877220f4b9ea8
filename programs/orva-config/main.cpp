// orva-config: checks, reads and edits configuration files. `orva-config --help` describes it.

#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

#include "commands.hpp"
#include "console.hpp"
#include "declared.hpp"
#include "orva/config/help_text.hpp"
#include "orva/config/settings.hpp"
#include "orva/exceptions/exception.hpp"
#include "orva/system/program_arguments.hpp"
#include "this_system.hpp"

using namespace orva_config;
using orva::config::asked_for;
using orva::config::settings;
using orva::diagnostics::severity;

namespace {

/// The text of --help or --version.
orva::strings::ustring8 information(const settings& values, const texts& words) {
  if (values.asks_for() == asked_for::version) return version_text(values.declared());
  orva::config::help_options options;
  options.width = orva::config::help_width(std::cout);
  options.command = values.command();
  options.texts = [&words](std::string_view name, std::string_view english) {
    return words.help(name, english);
  };
  return help_text(values.declared(), options);
}

exit_code run_command(const settings& values, console& shown) {
  const std::string_view command = values.command();
  if (command == "check") return check(values, shown);
  if (command == "get") return get(values, shown);
  if (command == "set") return set(values, shown);
  if (command == "unset") return unset(values, shown);
  if (command == "list") return list(values, shown);
  if (command == "explain") return explain(values, shown);
  return format(values, shown);
}

exit_code run(const settings& values, const texts& words, console& shown) {
  if (values.report().has_errors()) return wrong_usage;
  if (values.asks_for() == asked_for::nothing) return run_command(values, shown);
  shown.output() << information(values, words);
  return all_is_well;
}

void check_language(const std::string& language, const texts& words, console& shown) {
  if (words.speaks(language)) return;
  orva::generic::varg_list arguments;
  arguments.push_back("language", language);
  shown.complain(program_finding(severity::warning, "unknown_language", "",
                                 "There are no texts in the language {language}.", std::move(arguments)));
}

exit_code run(const orva::system::program_arguments& arguments) {
  const settings values(declared(), arguments.count(), arguments.values());
  const auto language = values.find<std::string>("language");
  const texts words(program_directory() / ORVA_CONFIG_SHARED, language.value_or(language_of_environment()));
  console shown(words, values.get<bool>("json"));
  if (language) check_language(*language, words, shown);
  shown.complain(values.report());

  const exit_code code = run(values, words, shown);
  if (code == wrong_usage && !shown.as_json()) {
    std::cerr << words.help("try_help", "Try orva-config --help for more.") << '\n';
  }
  if (shown.output().flush()) return code;
  shown.complain(
      program_finding(severity::error, "output_failed", "", "Standard output could not be written."));
  return code == wrong_usage ? wrong_usage : failure;
}

}  // namespace

int main(int argc, char** argv) {
  prepare_streams();
  try {
    return run({argc, argv});
  } catch (const std::exception& error) {
    std::cerr << "orva-config: " << error.what() << '\n';
  } catch (const orva::exceptions::exception& error) {
    std::cerr << "orva-config: " << error.message() << '\n';
  }
  return failure;
}
