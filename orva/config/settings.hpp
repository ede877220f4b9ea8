/// `settings`: the settings of a program, read from all sources and checked, once.
///
///     const settings values(viewer, argc, argv, environ);
///     if (values.asks_for() == asked_for::help) return show_help();
///     diagnostics::write_text(std::cerr, values.report());
///     if (values.report().has_errors()) return 2;
///     run(values.get<int>("threads"), values.get_list<std::string>("files"));
///
/// The sources are the command line, files, the environment and the defaults, in this order of precedence:
/// see declared_dispatch.hpp. A `declaration` says what is expected, and the report has what is wrong:
///
///     command line:2: error: There is no option --thread. [config.unknown_option]
///     command line:2: note: Did you mean --threads? [config.nearest_name]
///     viewer.cfg:3:11: error: threads is not between 1 and 64: "80". [config.out_of_range]
///     VIEWER_THREADS: warning: VIEWER_THREADS is no integer: "many". [config.not_an_integer]
///
/// The file of a finding is "command line", with the number of the argument as the line; the name of the
/// file; or the name of the variable. A wrong value is an error, and a warning if a source of higher
/// precedence has the setting. An unknown key in a file is a warning. Values of secret settings are shown as
/// asterisks.
///
/// A file that the command line or the environment names must be read, or is an error. Other files may be
/// missing; one that is there and not read, such as a symbolic link, is a warning. The codes are those of
/// file_findings.hpp.
///
/// `get` never returns a value that was not checked, or that its type cannot hold: it is an error of the
/// program to ask for a setting or a type that is not declared, or for a value where there is none, and
/// throws `exceptions::invalid_argument_value`. A setting whose value was reported as an error has no value.
///
/// Arguments are UTF-8. Those of `main` are not on Windows: pass `system::program_arguments`.
///
/// A copy shares what was read. It never changes: any number of threads may read it.
#pragma once

#include <chrono>
#include <concepts>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "orva/config/config_manager.hpp"
#include "orva/config/declaration.hpp"
#include "orva/config/settings_options.hpp"
#include "orva/diagnostics/report.hpp"
#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::config {

namespace _private {

struct declared_program;
struct checked_settings;

template <typename T>
concept setting_integer = std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char>;

/// A duration of `std::chrono` to which nanoseconds convert without a cast: they lose nothing.
template <typename T>
concept setting_duration = requires {
  typename T::period;
}
&&std::convertible_to<std::chrono::nanoseconds, T>;

/// What the caller can hold.
struct wanted_value {
  enum class form { flag, integer, floating, text, duration } kind;
  /// Of an integer.
  std::int64_t min = 0;
  std::uint64_t max = 0;
};

}  // namespace _private

/// What `settings::get` returns.
///
///     bool                                    a flag
///     an integer type                         an integer, if the type has room for the whole declared range;
///                                             a size, if it is unsigned and has 64 bits
///     double                                  a number; a duration: seconds
///     std::string, ustring8                   text, a word of a choice, a path
///     std::chrono::nanoseconds, and
///     durations of floating numbers           a duration
///
/// Round a duration to a greater unit yourself: `std::chrono::ceil<std::chrono::milliseconds>(...)`.
template <typename T>
concept setting_value = std::same_as<T, bool> || std::same_as<T, double> || std::same_as<T, std::string> ||
    std::same_as<T, strings::ustring8> || _private::setting_integer<T> || _private::setting_duration<T>;

class ORVA_API settings {
 public:
  /// Reads and checks everything. A negative `argc` counts as 0; either array may be null. Throws
  /// `exceptions::invalid_argument_value` for a wrong declaration.
  settings(declaration declared, int argc, const char* const* argv, const char* const* envp = nullptr,
           settings_options options = {});
  settings(const settings& other);
  settings& operator=(const settings& other);
  ~settings();

  [[nodiscard]] const diagnostics::report& report() const noexcept;
  /// What else is missing on the command line is not reported then.
  [[nodiscard]] asked_for asks_for() const noexcept;
  /// The names of the command and of those around it, separated by dots: "remote.add". Empty if there is
  /// none.
  [[nodiscard]] const strings::ustring8& command() const noexcept;
  [[nodiscard]] const declaration& declared() const noexcept;

  /// The value of a setting that is no list.
  template <setting_value T>
  [[nodiscard]] T get(std::string_view key) const {
    return converted<T>(value_of(key, wanted<T>(), true)->front());
  }
  /// The same, and nothing if it has no value: for settings without a default.
  template <setting_value T>
  [[nodiscard]] std::optional<T> find(std::string_view key) const {
    const auto* const values = value_of(key, wanted<T>(), false);
    if (values == nullptr) return std::nullopt;
    return converted<T>(values->front());
  }
  /// The values of a list.
  template <setting_value T>
  [[nodiscard]] std::vector<T> get_list(std::string_view key) const {
    std::vector<T> list;
    for (const types::variant& value : list_of_values(key, wanted<T>())) list.push_back(converted<T>(value));
    return list;
  }
  /// Whether a source has the setting, the default excepted.
  [[nodiscard]] bool is_set(std::string_view key) const;

  /// The manager of the same sources, which are loaded. It returns texts as they were given, "10 MiB". All
  /// copies of it share their values; a change to these does not change the settings.
  [[nodiscard]] const config_manager& manager() const noexcept { return manager_; }

 private:
  using value_list = std::vector<types::variant>;
  using wanted_value = _private::wanted_value;

  template <typename T>
  static constexpr wanted_value wanted() {
    using form = wanted_value::form;
    if constexpr (std::same_as<T, bool>) {
      return {form::flag};
    } else if constexpr (std::same_as<T, double>) {
      return {form::floating};
    } else if constexpr (std::integral<T>) {
      using limits = std::numeric_limits<T>;
      return {form::integer, static_cast<std::int64_t>(limits::min()),
              static_cast<std::uint64_t>(limits::max())};
    } else if constexpr (_private::setting_duration<T>) {
      return {form::duration};
    } else {
      return {form::text};
    }
  }

  template <typename T>
  static T converted(const types::variant& value) {
    if constexpr (std::same_as<T, bool>) {
      return value.as_bool();
    } else if constexpr (std::same_as<T, double>) {
      return seconds_or_number(value);
    } else if constexpr (std::unsigned_integral<T>) {
      return static_cast<T>(value.as_uint64());
    } else if constexpr (std::integral<T>) {
      return static_cast<T>(value.as_int64());
    } else if constexpr (_private::setting_duration<T>) {
      return std::chrono::nanoseconds(value.as_int64());
    } else {
      return T(value.as_string());
    }
  }

  static double seconds_or_number(const types::variant& value);
  /// Null if there is no value and none is needed.
  const value_list* value_of(std::string_view key, const wanted_value& wanted, bool is_needed) const;
  const value_list& list_of_values(std::string_view key, const wanted_value& wanted) const;

  std::shared_ptr<const _private::declared_program> program_;
  std::shared_ptr<const _private::checked_settings> result_;
  config_manager manager_;
};

}  // namespace ORVA_NAMESPACE::config
