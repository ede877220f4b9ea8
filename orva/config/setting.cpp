#include "orva/config/setting.hpp"

#include <string>
#include <utility>

#include "orva/config/internal/joined_words.hpp"
#include "orva/config/internal/read_value.hpp"
#include "orva/config/internal/setting_names.hpp"
#include "orva/internal/raise.hpp"

namespace ORVA_NAMESPACE::config {

using types::variant;

setting::setting(std::string_view key, setting_type type)
    : key_(key), type_(std::move(type)), long_option_(key) {
  if (!_private::is_key(key)) {
    ORVA_RAISE(exceptions::invalid_argument_value, "Not a key of a setting: " + std::string(key),
               ORVA_QUALIFIED("config::setting::setting"));
  }
}

setting& setting::set_defaults(const std::vector<variant>& values) {
  if (!type_.is_list() && values.size() != 1) {
    ORVA_RAISE(exceptions::invalid_argument_value, "Not one default: " + key_,
               ORVA_QUALIFIED("config::setting::by_default"));
  }
  std::vector<strings::ustring8> texts;
  for (const variant& value : values) {
    const auto [checked, error] = _private::check_value(type_, value);
    if (error != _private::value_error::none) {
      ORVA_RAISE(exceptions::invalid_argument_value, "The type does not take the default: " + key_,
                 ORVA_QUALIFIED("config::setting::by_default"));
    }
    texts.push_back(_private::write_value(type_, checked));
  }
  defaults_ = std::move(texts);
  has_default_ = true;
  return *this;
}

setting& setting::option(char short_option) {
  if (!_private::is_short_option(short_option)) {
    ORVA_RAISE(exceptions::invalid_argument_value, "Not a short option: " + key_,
               ORVA_QUALIFIED("config::setting::option"));
  }
  short_option_ = short_option;
  return *this;
}

setting& setting::option(std::string_view long_option) {
  if (!_private::is_name(long_option, true)) {
    ORVA_RAISE(exceptions::invalid_argument_value, "Not a long option: " + key_,
               ORVA_QUALIFIED("config::setting::option"));
  }
  long_option_.assign(long_option);
  return *this;
}

setting& setting::option(char short_option, std::string_view long_option) {
  return option(short_option).option(long_option);
}

setting& setting::no_option() {
  short_option_ = 0;
  long_option_.clear();
  return *this;
}

setting& setting::environment(std::string_view variable) {
  if (!_private::is_variable_name(variable)) {
    ORVA_RAISE(exceptions::invalid_argument_value, "Not the name of a variable: " + key_,
               ORVA_QUALIFIED("config::setting::environment"));
  }
  environment_.assign(variable);
  return *this;
}

setting& setting::help(std::string_view line) {
  help_.assign(line);
  return *this;
}

setting& setting::group(std::string_view name) {
  group_.assign(name);
  return *this;
}

setting& setting::value_name(std::string_view name) {
  value_name_.assign(name);
  return *this;
}

setting& setting::required() {
  is_required_ = true;
  return *this;
}

setting& setting::secret() {
  is_secret_ = true;
  return *this;
}

setting& setting::deprecated(std::string_view successor) {
  if (!_private::is_key(successor)) {
    ORVA_RAISE(exceptions::invalid_argument_value, "Not the key of a successor: " + key_,
               ORVA_QUALIFIED("config::setting::deprecated"));
  }
  successor_.assign(successor);
  return *this;
}

strings::ustring8 setting::default_text() const {
  return is_secret_ ? strings::ustring8() : strings::ustring8(_private::joined(defaults_));
}

}  // namespace ORVA_NAMESPACE::config
