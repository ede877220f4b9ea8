#include "texts.hpp"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "orva/i18n/describe.hpp"
#include "orva/i18n/translate.hpp"

namespace orva_config {

namespace {

using orva::diagnostics::finding;
using orva::strings::ustring8;

constexpr std::string_view own_catalog = "orva-config";
constexpr std::string_view own_area = "orva_config.";

ustring8 filled(std::string_view english, const orva::generic::varg_list& arguments) {
  ustring8 text(english);
  for (const orva::generic::argument& each : arguments) {
    const std::string name = '{' + std::string(each.name()) + '}';
    const std::string value = each.value().as_string();
    for (std::size_t at = text.find(name); at != text.npos; at = text.find(name, at + value.size())) {
      text.replace(at, name.size(), value);
    }
  }
  return text;
}

}  // namespace

std::string language_of_environment() {
  for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* const value = std::getenv(name);
    if (value == nullptr || *value == '\0') continue;
    std::string language(value);
    language.erase(std::min(language.find_first_of(".@"), language.size()));
    return language.empty() || language == "C" || language == "POSIX" ? "en" : language;
  }
  return "en";
}

texts::texts(const std::filesystem::path& folder, std::string_view language) {
  for (const char* const name :
       {"messages/diagnostics.xmc", "messages/config.xmc", "programs/orva-config.xmc"}) {
    static_cast<void>(catalogs_.load_file((folder / name), language));
  }
}

bool texts::speaks(std::string_view language) const {
  while (!language.empty()) {
    if (language == "en" || catalogs_.has_catalog(own_catalog, language)) return true;
    const std::size_t end = language.find_last_of("_-.");
    language = language.substr(0, end == language.npos ? 0 : end);
  }
  return false;
}

ustring8 texts::help(std::string_view name, std::string_view english) const {
  return orva::i18n::translate(name, english, catalogs_, own_catalog);
}

ustring8 texts::sentence(const finding& found) const {
  const bool is_own = std::string_view(found.code).starts_with(own_area);
  return is_own ? orva::i18n::describe(found, catalogs_, own_catalog)
                : orva::i18n::describe(found, catalogs_);
}

finding program_finding(orva::diagnostics::severity level, std::string_view code, std::string_view file,
                        std::string_view english, orva::generic::varg_list arguments) {
  const ustring8 text = filled(english, arguments);
  arguments.push_back("text", text);
  return {level, ustring8(own_area) += code, ustring8(file), {}, std::move(arguments)};
}

}  // namespace orva_config
