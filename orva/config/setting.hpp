/// `setting`: the description of one setting of a program.
///
///     setting("threads", integer_between(1, 64)).by_default(4).option('t').environment("VIEWER_THREADS")
///         .group("Speed").help("Number of threads.")
///
///     viewer --threads 8        viewer -t8        VIEWER_THREADS=8 viewer        threads = 8   in a file
///
/// A `declaration` holds the settings of a program, and `settings` reads them. The key is the name in the
/// configuration: in files, and for `config_manager` and `settings`. It has letters, digits, `-` and `_`, in
/// sections separated by dots: "window.width". Case does not matter in keys; it does in options.
///
/// A setting is a plain value. Each member that describes returns the setting itself, and each that is called
/// without an argument returns what was described. A wrong description is an error of the program and throws
/// `exceptions::invalid_argument_value`: a malformed name, a default that the type does not take.
#pragma once

#include <concepts>
#include <optional>
#include <string_view>
#include <type_traits>
#include <vector>

#include "orva/config/setting_type.hpp"
#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API setting {
 public:
  /// Has the long option of its key, `--key`, and no other attribute.
  setting(std::string_view key, setting_type type);

  /// The value if no source has one: for a list any number of values, otherwise one. Text is read as a user
  /// would write it, "10 MiB"; numbers and durations of `std::chrono` are taken as they are, and a plain
  /// number as a duration is seconds. Without a default a flag is false, a list empty, and other settings
  /// have no value.
  template <typename... Value>
  setting& by_default(const Value&... value) requires(std::constructible_from<types::variant, Value>&&...) {
    return set_defaults({types::variant(value)...});
  }

  /// The short option is a letter, a digit or another visible character of ASCII, except `-` and `=`; `-t`.
  setting& option(char short_option);
  /// The long option begins with a letter or digit, and has these, `-`, `_` and `.`: `--threads`.
  setting& option(std::string_view long_option);
  setting& option(char short_option, std::string_view long_option);
  /// Not on the command line. For passwords: other users of a machine see the arguments of a program.
  setting& no_option();

  /// The variable that sets it. An empty variable counts as not set. A list is separated by commas; a list of
  /// paths by the character that separates those of PATH.
  setting& environment(std::string_view variable);

  /// One line for the help, and the group under which it is shown.
  setting& help(std::string_view line);
  setting& group(std::string_view name);
  /// What the help shows for the value: `--threads COUNT`. Otherwise the help takes a word for the type.
  /// `...` follows that of a positional list, unless the name has it: "FILE... KEY".
  setting& value_name(std::string_view name);

  /// Some source must have it.
  setting& required();
  /// No message shows its value.
  setting& secret();
  /// Its value counts for the setting with the key `successor`, which must have the same type, wherever a
  /// source has no value for that one. Each use is reported.
  setting& deprecated(std::string_view successor);

  [[nodiscard]] const strings::ustring8& key() const noexcept { return key_; }
  [[nodiscard]] const setting_type& type() const noexcept { return type_; }
  /// 0 if there is none.
  [[nodiscard]] char short_option() const noexcept { return short_option_; }
  /// Empty if there is none.
  [[nodiscard]] const strings::ustring8& long_option() const noexcept { return long_option_; }
  [[nodiscard]] const strings::ustring8& environment() const noexcept { return environment_; }
  [[nodiscard]] const strings::ustring8& help() const noexcept { return help_; }
  [[nodiscard]] const strings::ustring8& group() const noexcept { return group_; }
  [[nodiscard]] const strings::ustring8& value_name() const noexcept { return value_name_; }
  [[nodiscard]] bool is_required() const noexcept { return is_required_; }
  [[nodiscard]] bool is_secret() const noexcept { return is_secret_; }
  /// The key of the successor. Empty if it is not deprecated.
  [[nodiscard]] const strings::ustring8& successor() const noexcept { return successor_; }

  [[nodiscard]] bool has_default() const noexcept { return has_default_; }
  /// The default as a user would write it, the elements of a list separated by ", ". Empty for a secret.
  [[nodiscard]] strings::ustring8 default_text() const;
  /// The same for each value, also of a secret.
  [[nodiscard]] const std::vector<strings::ustring8>& default_texts() const noexcept { return defaults_; }

 private:
  setting& set_defaults(const std::vector<types::variant>& values);

  strings::ustring8 key_;
  setting_type type_;
  std::vector<strings::ustring8> defaults_;
  strings::ustring8 long_option_;
  strings::ustring8 environment_;
  strings::ustring8 help_;
  strings::ustring8 group_;
  strings::ustring8 value_name_;
  strings::ustring8 successor_;
  char short_option_ = 0;
  bool has_default_ = false;
  bool is_required_ = false;
  bool is_secret_ = false;
};

}  // namespace ORVA_NAMESPACE::config
