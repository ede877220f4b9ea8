#include "orva/config/completion_script.hpp"

#include "orva/config/internal/completion_model.hpp"
#include "orva/config/internal/setting_names.hpp"

namespace ORVA_NAMESPACE::config {

namespace {

/// A name for functions that no other program has: letters and digits stay, other bytes are hexadecimal.
std::string function_name(std::string_view program) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string name = "_";
  for (const char unit : program) {
    if (_private::is_letter_or_digit(unit)) {
      name += unit;
    } else {
      const auto byte = static_cast<unsigned char>(unit);
      name.append({'_', digits[byte >> 4], digits[byte & 15]});
    }
  }
  return name + "_completion";
}

}  // namespace

strings::ustring8 completion_script(const declaration& declared, completion_shell shell,
                                    const text_lookup& texts) {
  const _private::declared_names names(declared);
  const _private::help_words words(texts);
  const std::string name = _private::one_line(declared.name());
  if (name.empty()) return {};
  const _private::completed_program program{name, function_name(name), completion_model(names, words)};
  switch (shell) {
    case completion_shell::bash:
      return strings::ustring8(bash_script(program));
    case completion_shell::zsh:
      return strings::ustring8(zsh_script(program));
    case completion_shell::fish:
      return strings::ustring8(fish_script(program));
  }
  return {};
}

}  // namespace ORVA_NAMESPACE::config
