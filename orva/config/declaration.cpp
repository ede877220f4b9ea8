#include "orva/config/declaration.hpp"

#include <algorithm>
#include <string>
#include <utility>

#include "orva/config/internal/declared_names.hpp"
#include "orva/config/internal/setting_names.hpp"
#include "orva/internal/raise.hpp"

namespace ORVA_NAMESPACE::config {

declaration::declaration(std::string_view name) : name_(name) {}
declaration::declaration(const declaration& other) = default;
declaration::declaration(declaration&& other) noexcept = default;
declaration& declaration::operator=(const declaration& other) = default;
declaration& declaration::operator=(declaration&& other) noexcept = default;
declaration::~declaration() = default;

declaration& declaration::version(std::string_view text) {
  version_.assign(text);
  return *this;
}

declaration& declaration::description(std::string_view text) {
  description_.assign(text);
  return *this;
}

declaration& declaration::example(std::string_view command_line, std::string_view help) {
  examples_.push_back({strings::ustring8(command_line), strings::ustring8(help)});
  return *this;
}

declaration& declaration::add(setting added) {
  settings_.push_back(std::move(added));
  return *this;
}

declaration& declaration::add_positional(setting added) {
  positionals_.push_back(std::move(added));
  return *this;
}

declaration& declaration::add_command(std::string_view name, std::string_view help, declaration command) {
  if (!_private::is_name(name, false)) {
    ORVA_RAISE(exceptions::invalid_argument_value, "Not the name of a command: " + std::string(name),
               ORVA_QUALIFIED("config::declaration::add_command"));
  }
  commands_.push_back({strings::ustring8(name), strings::ustring8(help), std::move(command)});
  return *this;
}

declaration& declaration::command_required() {
  is_command_required_ = true;
  return *this;
}

declaration& declaration::allow_section(std::string_view key) {
  if (!_private::is_key(key)) {
    ORVA_RAISE(exceptions::invalid_argument_value, "Not the key of a section: " + std::string(key),
               ORVA_QUALIFIED("config::declaration::allow_section"));
  }
  allowed_sections_.emplace_back(key);
  return *this;
}

const declaration* declaration::find_command(std::string_view names) const {
  const declaration* found = this;
  while (found != nullptr && !names.empty()) {
    const std::string_view name = names.substr(0, names.find('.'));
    names.remove_prefix(std::min(names.size(), name.size() + 1));
    const auto command = std::find_if(found->commands_.begin(), found->commands_.end(),
                                      [name](const declared_command& each) { return each.name == name; });
    found = command != found->commands_.end() ? &command->settings : nullptr;
  }
  return found;
}

void declaration::validate() const { static_cast<void>(_private::declared_names(*this)); }

}  // namespace ORVA_NAMESPACE::config
