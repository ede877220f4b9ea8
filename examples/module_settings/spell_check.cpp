// A module with settings of its own.
#include <iostream>
#include <vector>

#include "module.hpp"
#include "orva/orva.hpp"

namespace {

using orva::generic::argument;
using orva::generic::varg_list;

/// The defaults, for keys that neither a file nor the environment sets.
void set_defaults(orva::config::base_config_item& defaults) {
  defaults.set("spell_check.language", "en", 0);
  defaults.set("spell_check.suggestions", 5, 0);
  defaults.set_array("spell_check.dictionaries", varg_list(argument("/usr/share/dict/words")), {});
}

orva::config::config_manager load_settings(const varg_list& files, const char* const* environment) {
  orva::config::config_manager settings;
  settings.init(orva::config::module_config_dispatch(files, environment));
  set_defaults(*settings.get_config_item("user_item"));
  settings.load();
  return settings;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) void module_describe(const char* const* files,
                                                                       unsigned int count,
                                                                       const char* const* environment) {
  varg_list names;
  for (unsigned int i = 0; i < count; ++i) names.push_back(argument(files[i]));
  const auto settings = load_settings(names, environment);
  std::cout << "spell_check\n  language:     " << settings.get_value("spell_check.language").as_string()
            << "\n  suggestions:  " << settings.get_value("spell_check.suggestions").as_int32()
            << "\n  dictionaries:";
  std::vector<orva::types::variant> dictionaries;
  settings.get_array("spell_check.dictionaries", dictionaries);
  for (const auto& dictionary : dictionaries) std::cout << ' ' << dictionary.as_string();
  std::cout << std::endl;
}
