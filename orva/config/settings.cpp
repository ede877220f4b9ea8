#include "orva/config/settings.hpp"

#include <utility>

#include "orva/config/declared_dispatch.hpp"
#include "orva/config/internal/checked_settings.hpp"
#include "orva/internal/raise.hpp"

namespace ORVA_NAMESPACE::config {

using _private::checked_setting;
using _private::wanted_value;

namespace {

[[noreturn]] void raise_wrong_use(std::string_view what, std::string_view key) {
  ORVA_RAISE(exceptions::invalid_argument_value, std::string(what) + ": " + std::string(key),
             ORVA_QUALIFIED("config::settings::get"));
}

bool has_room(const wanted_value& wanted, const value_range<std::int64_t>& range) {
  return range.min >= wanted.min && (range.max < 0 || static_cast<std::uint64_t>(range.max) <= wanted.max);
}

/// Whether the caller can hold each value of the type.
bool can_hold(const wanted_value& wanted, const setting_type& type) {
  using form = wanted_value::form;
  switch (type.kind()) {
    case value_kind::flag:
      return wanted.kind == form::flag;
    case value_kind::integer:
      return wanted.kind == form::integer && has_room(wanted, type.integers());
    case value_kind::size:
      return wanted.kind == form::integer && wanted.max == std::numeric_limits<std::uint64_t>::max();
    case value_kind::number:
      return wanted.kind == form::floating;
    case value_kind::duration:
      return wanted.kind == form::floating || wanted.kind == form::duration;
    case value_kind::text:
    case value_kind::choice:
    case value_kind::path:
      break;
  }
  return wanted.kind == form::text;
}

/// The number of a declared setting.
std::size_t number_of(const _private::declared_program& program, std::string_view key) {
  const std::size_t number = program.names.find_key(key);
  if (number == _private::not_found) raise_wrong_use("The setting is not declared", key);
  return number;
}

const checked_setting& setting_of(const _private::declared_program& program,
                                  const _private::checked_settings& result, std::string_view key,
                                  const wanted_value& wanted, bool is_list) {
  const std::size_t number = number_of(program, key);
  const setting_type& type = program.names.settings()[number].described->type();
  if (type.is_list() != is_list)
    raise_wrong_use(is_list ? "The setting is no list" : "The setting is a list", key);
  if (!can_hold(wanted, type)) raise_wrong_use("The setting has another type", key);
  return result.settings[number];
}

}  // namespace

settings::settings(declaration declared, int argc, const char* const* argv, const char* const* envp,
                   settings_options options) {
  const declared_dispatch dispatch(std::move(declared), argc, argv, envp, std::move(options));
  manager_.init(dispatch);
  manager_.load();
  program_ = dispatch.program_;
  result_ = dispatch.result_->last;
}

settings::settings(const settings& other) = default;
settings& settings::operator=(const settings& other) = default;
settings::~settings() = default;

const diagnostics::report& settings::report() const noexcept { return result_->findings; }

asked_for settings::asks_for() const noexcept { return result_->asked; }

const strings::ustring8& settings::command() const noexcept { return result_->command; }

const declaration& settings::declared() const noexcept { return program_->declared; }

bool settings::is_set(std::string_view key) const {
  return result_->settings[number_of(*program_, key)].is_set;
}

double settings::seconds_or_number(const types::variant& value) {
  return value.holds<double>() ? value.as_double() : static_cast<double>(value.as_int64()) / 1e9;
}

const settings::value_list* settings::value_of(std::string_view key, const wanted_value& wanted,
                                               bool is_needed) const {
  const checked_setting& found = setting_of(*program_, *result_, key, wanted, false);
  if (found.has_value) return &found.values;
  if (is_needed) raise_wrong_use("The setting has no value", key);
  return nullptr;
}

const settings::value_list& settings::list_of_values(std::string_view key, const wanted_value& wanted) const {
  const checked_setting& found = setting_of(*program_, *result_, key, wanted, true);
  if (!found.has_value) raise_wrong_use("The setting has no value", key);
  return found.values;
}

}  // namespace ORVA_NAMESPACE::config
