#include "settings.hpp"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace disk_free {

namespace config = orva::config;
using orva::strings::ustring8;
using orva::types::variant;

namespace {

std::string utf8_of(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

/// "-language de" as well as "--language de".
config::settings_options single_dash() {
  config::settings_options options;
  options.style = config::command_line_style::single_dash;
  return options;
}

/// The environment has names of its own for the language. LANGUAGE is not used: it is a list.
std::string language_of_environment() {
  std::string language;
  for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* const value = std::getenv(name);
    if (value == nullptr || *value == '\0') continue;
    language = value;
    break;
  }
  language.erase(std::min(language.find_first_of(".@"), language.size()));
  return language.empty() || language == "C" || language == "POSIX" ? "en" : language;
}

}  // namespace

config::declaration declared(const std::filesystem::path& directory) {
  using config::setting;
  const std::string beside = utf8_of(directory);
  config::declaration program("disk_free");
  program.version(DISK_FREE_VERSION)
      .description("Reports the free space on each file system, in your language.");
  program.add(setting("language", config::text())
                  .value_name("TAG")
                  .help("Language tag, such as de or de_AT. Otherwise, the language of the environment."));
  program.add(setting("path", config::list_of(config::text()))
                  .value_name("PATH,...")
                  .help("The file systems to show. Otherwise, all."));
  program.add(setting("form", config::one_of({"full", "short"}))
                  .by_default("full")
                  .environment("FORM")
                  .value_name("FORM")
                  .help("Short leaves out the heading and the summary."));
  program.add(setting("messages", config::file_path())
                  .by_default(beside + "/messages")
                  .environment("MESSAGES")
                  .value_name("PATH")
                  .help("A directory with the texts of the program, or a file."));
  program.add(setting("sizes", config::file_path())
                  .environment("SIZES")
                  .value_name("FILE")
                  .help("A file that describes another machine."));
  program.add(setting("cfg_file", config::file_path())
                  .by_default(beside + "/disk_free.cfg")
                  .value_name("FILE")
                  .help("A file with settings."));
  program.add(setting("dump", config::flag()).help("Prints all settings, by source, and nothing else."));
  program.allow_section("links");
  program.allow_section("office");
  return program;
}

settings::settings(int argc, const char* const* argv, const char* const* environment,
                   const std::filesystem::path& directory)
    : values_(declared(directory), argc, argv, environment, single_dash()) {
  make_links();
}

/// The format has no notation for links, so each key in the section "links" becomes a link.
void settings::make_links() {
  const config::config_manager& manager = values_.manager();
  std::vector<std::pair<ustring8, variant>> links;
  manager.get_key_value_array("links", links, false);
  const auto file = manager.get_config_item("standard file");
  for (const auto& [key, target] : links) file->set(key, target, config::config_tree::NODE_LINK);
}

std::string settings::language() const {
  return sets_language() ? text("language") : language_of_environment();
}

}  // namespace disk_free
