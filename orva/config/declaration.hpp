/// `declaration`: the settings of a program, declared once.
///
///     declaration viewer("viewer");
///     viewer.version("2.1").description("Shows pictures.");
///     viewer.add(setting("threads", integer_between(1, 64)).by_default(4).option('t').help("Threads."));
///     viewer.add(setting("verbose", flag()).option('v').help("Shows more."));
///     viewer.add_positional(setting("files", list_of(file_path())).required().help("Pictures to show."));
///     const settings values(viewer, argc, argv, environ);
///
/// `settings` reads and checks the values; help, completions and a man page come from the same declaration.
///
/// Positional arguments are the words of a command line that belong to no option. Each takes one word, in
/// order; a list is the last and takes the rest.
///
/// Sub-commands are declarations of their own: `remote add NAME` is `add` in `remote`. Their settings have
/// the names of the commands in front of their keys, in files and for `settings`: "remote.add.name". Their
/// options are known after the command; options of the declarations around it are known there, too.
///
/// The key "cfg_file" names the configuration file to read. A declaration that lets the user name it has a
/// setting of this key, with the option it likes, and the usual file as the default:
///
///     viewer.add(setting("cfg_file", file_path()).option('c', "config").by_default("viewer.cfg"));
///
/// A declaration is a plain value. A wrong one is an error of the program, and `validate` throws: two
/// settings with one key, option or variable, a positional after a list or a required one after one that is
/// not, a successor that is not declared or has another type, a list whose key is a section, commands beside
/// positionals, two commands of one name. `settings` and `declared_dispatch` validate.
#pragma once

#include <string_view>
#include <vector>

#include "orva/config/setting.hpp"
#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

struct declared_command;

class ORVA_API declaration {
 public:
  /// An example for the help: a command line, and what it does.
  struct example_text {
    strings::ustring8 command_line;
    strings::ustring8 help;
  };

  /// The name of the program, as the help shows it.
  explicit declaration(std::string_view name);
  declaration(const declaration& other);
  declaration(declaration&& other) noexcept;
  declaration& operator=(const declaration& other);
  declaration& operator=(declaration&& other) noexcept;
  ~declaration();

  /// A program with a version has the option `--version`.
  declaration& version(std::string_view text);
  declaration& description(std::string_view text);
  declaration& example(std::string_view command_line, std::string_view help);

  declaration& add(setting added);
  /// Long and short options of the setting do not count.
  declaration& add_positional(setting added);
  /// The name of a command has letters, digits, `-` and `_`; any other throws
  /// `exceptions::invalid_argument_value`. The name of `command` is not used.
  declaration& add_command(std::string_view name, std::string_view help, declaration command);
  /// A command line without a command is an error.
  declaration& command_required();
  /// Keys in this section of a file are the program's own matter: none of them is unknown.
  declaration& allow_section(std::string_view key);

  [[nodiscard]] const strings::ustring8& name() const noexcept { return name_; }
  [[nodiscard]] const strings::ustring8& version() const noexcept { return version_; }
  [[nodiscard]] const strings::ustring8& description() const noexcept { return description_; }
  [[nodiscard]] const std::vector<example_text>& examples() const noexcept { return examples_; }
  /// In the order in which they were added.
  [[nodiscard]] const std::vector<setting>& settings() const noexcept { return settings_; }
  [[nodiscard]] const std::vector<setting>& positionals() const noexcept { return positionals_; }
  [[nodiscard]] const std::vector<declared_command>& commands() const noexcept { return commands_; }
  [[nodiscard]] bool is_command_required() const noexcept { return is_command_required_; }
  [[nodiscard]] const std::vector<strings::ustring8>& allowed_sections() const noexcept {
    return allowed_sections_;
  }

  /// The declaration of a command, by the names on the way to it, separated by dots: "remote.add". This
  /// declaration for the empty name, null for a command that is not declared.
  [[nodiscard]] const declaration* find_command(std::string_view names) const;

  /// Throws `exceptions::invalid_argument_value` for a wrong declaration.
  void validate() const;

 private:
  strings::ustring8 name_;
  strings::ustring8 version_;
  strings::ustring8 description_;
  std::vector<example_text> examples_;
  std::vector<setting> settings_;
  std::vector<setting> positionals_;
  std::vector<declared_command> commands_;
  std::vector<strings::ustring8> allowed_sections_;
  bool is_command_required_ = false;
};

/// A command of a program, with settings of its own.
struct declared_command {
  strings::ustring8 name;
  /// One line.
  strings::ustring8 help;
  declaration settings;
};

}  // namespace ORVA_NAMESPACE::config
