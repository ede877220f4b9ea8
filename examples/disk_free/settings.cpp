#include "settings.hpp"

#include <algorithm>
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

}  // namespace

settings::settings(int argc, const char* const* argv, const char* const* environment,
                   const std::filesystem::path& directory)
    : directory_(utf8_of(directory)) {
  config_.init(config::std_config_dispatch(argc, argv, environment, directory_ + "/disk_free.cfg", ""));
  config_.load();
  make_links();
  link_language_to_environment();
}

/// The format has no notation for links, so each key in the section "links" becomes a link.
void settings::make_links() {
  std::vector<std::pair<ustring8, variant>> links;
  config_.get_key_value_array("links", links, false);
  const auto file = config_.get_config_item("standard file");
  for (const auto& [key, target] : links) file->set(key, target, config::config_tree::NODE_LINK);
}

/// The environment has names of its own for the language. LANGUAGE is not used: it is a list.
void settings::link_language_to_environment() {
  const auto environment = config_.get_config_item("enviroment");
  environment->set("language", "en", 0);
  for (const char* const name : {"lang", "lc_messages", "lc_all"}) {
    const auto* const value = environment->get_value(name);
    if (value == nullptr || value->second.as_string().empty()) continue;
    environment->set("language", name, config::config_tree::NODE_LINK);
  }
}

std::string settings::language() const {
  std::string language = text("language", "en");
  if (sets_language()) return language;
  language.erase(std::min(language.find_first_of(".@"), language.size()));
  return language.empty() || language == "C" || language == "POSIX" ? "en" : language;
}

/// The first of command line and file that has the key. The environment is left out: its "path" is something
/// else.
const config::base_config_item* settings::item_with(const char* key) const {
  for (const char* const id : {"command line", "standard file"}) {
    const auto item = config_.get_config_item(id);
    if (item->get_value(key) != nullptr) return item.get();
  }
  return nullptr;
}

std::vector<std::string> settings::paths() const {
  const config::base_config_item* const item = item_with("path");
  if (item == nullptr) return {};
  std::vector<config::base_config_item::value_entry> elements;
  item->get_array("path", elements);
  if (elements.empty()) return {item->get_value("path")->second.as_string()};
  std::vector<std::string> paths;
  for (const auto& element : elements) paths.push_back(element.second.second.as_string());
  return paths;
}

}  // namespace disk_free
