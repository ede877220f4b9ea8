/// Reads any bytes as an XMC file, merges the result twice, and looks up all messages and languages.
#include <cstddef>
#include <cstdint>

#include "fuzz/require.hpp"
#include "orva/i18n/xmc_file_loader.hpp"

namespace {

using orva_fuzz::require;
using ORVA_NAMESPACE::i18n::_private::load_error;
using ORVA_NAMESPACE::i18n::_private::xmc_file_loader;
using ORVA_NAMESPACE::strings::ustring8;

void look_at(const xmc_file_loader::catalog_map& catalogs, const xmc_file_loader& loader) {
  for (const auto& [name, catalog] : catalogs) {
    require(catalog->name() == name);
    for (const auto& [key, message] : *catalog) {
      require(message.name() == key);
      require(&catalog->message(key) == &message);
      require(loader.is_lang_id_good(message._orginal_locale()));
      require(!message.has_valid_args({}) || message.argument_count() == 0);
    }
    for (auto language = catalog->languages_begin(); language != catalog->languages_end(); ++language) {
      catalog->is_language_loaded(*language);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The first byte chooses the language, so that weights differ between runs.
  static const char* const languages[] = {"de_DE", "en", ".", "_", "de-DE.UTF-8", "fr"};
  if (size == 0) return 0;
  const ustring8 text(reinterpret_cast<const char*>(data) + 1, size - 1);

  xmc_file_loader loader;
  loader.handle_language(languages[data[0] % 6]);
  const load_error error = loader.parse_string(text, "fuzz.xmc");
  require(!error.message().empty());

  xmc_file_loader::catalog_map catalogs;
  const auto stored = loader.combine_data(catalogs);
  ORVA_NAMESPACE::types::uint32 messages = 0;
  for (const auto& entry : catalogs) messages += entry.second->size();
  require(stored == messages);
  require(loader.combine_data(catalogs) == stored);
  look_at(catalogs, loader);
  return 0;
}
