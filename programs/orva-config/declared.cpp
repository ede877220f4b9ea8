#include "declared.hpp"

namespace orva_config {

using orva::config::declaration;
using orva::config::file_path;
using orva::config::flag;
using orva::config::list_of;
using orva::config::setting;
using orva::config::text;

namespace {

setting one_file() { return setting("file", file_path()).required().help("The configuration file."); }

setting one_key() {
  return setting("key", text())
      .required()
      .value_name("KEY")
      .help("Sections and name, separated by dots: window.width.");
}

declaration check_command() {
  declaration command("check");
  command.description(
      "Lists what reads otherwise than it looks, one finding in a line: file:line:column: severity: text "
      "[code]. Errors are what breaks the file, warnings are what reads otherwise than a person would think, "
      "and notes are what only a program that saves the file would change.");
  command.add(setting("werror", flag()).help("Exit with 1 for warnings, too."));
  command.add_positional(
      setting("files", list_of(file_path())).required().value_name("FILE").help("The files to check."));
  return command;
}

declaration get_command() {
  declaration command("get");
  command.description(
      "Prints the value of a key, and each element of an array in a line of its own. Exits with 1 if the "
      "file does not have the key.");
  command.add_positional(one_file());
  command.add_positional(one_key());
  return command;
}

declaration set_command() {
  declaration command("set");
  command.description(
      "Sets a key to a value. Only the lines of the key change. A new key comes after the last key of its "
      "section; the section is made if there is none. With [] after the key, all values become the elements "
      "of an array: set FILE 'paths[]' /home /srv. An array is not replaced by a single value: unset it "
      "first. A value that the format cannot hold is refused, and the file stays as it is.\n\n"
      "Two dashes end the options, so that a value may begin with a dash: set FILE KEY -- -x.");
  command.add_positional(one_file());
  command.add_positional(one_key());
  command.add_positional(setting("values", list_of(text()))
                             .required()
                             .value_name("VALUE")
                             .help("The value. With [] after the key, the elements of the array."));
  return command;
}

declaration unset_command() {
  declaration command("unset");
  command.description(
      "Removes a key with its value, and the comment directly above it if that belongs to no other key. "
      "Exits with 1 if the file does not have the key.");
  command.add_positional(one_file());
  command.add_positional(one_key());
  return command;
}

declaration list_command() {
  declaration command("list");
  command.description(
      "Lists all keys of a file with the values that count, in the order of the file. The output is a "
      "configuration file that reads the same.");
  command.add_positional(one_file());
  return command;
}

declaration explain_command() {
  declaration command("explain");
  command.description(
      "Shows where the value of a key comes from. A program reads the files in this order: the first file "
      "that has the key counts. Each line is a place that has the key, and what came of it. Exits with 1 if "
      "no file has the key.");
  command.add_positional(setting("files_and_key", list_of(file_path()))
                             .required()
                             .value_name("FILE... KEY")
                             .help("The files in the order in which a program reads them, and the key."));
  return command;
}

declaration format_command() {
  declaration command("format");
  command.description(
      "Writes a file in one layout: key = value in a line of its own, two blanks before a comment in it, "
      "an empty line before each section, no other indentation than that of arrays over several lines, and "
      "line ends as the first one. Names, values and comments stay as they are, so that the file reads the "
      "same before and after.");
  command.add_positional(one_file());
  return command;
}

}  // namespace

declaration declared() {
  declaration program("orva-config");
  program.version(ORVA_CONFIG_VERSION)
      .description(
          "Checks, reads and edits configuration files without losing comments or layout.\n\n"
          "Exits with 0 if all is well; with 1 for an error in a file, a key that is not there, an edit that "
          "is refused, and output that cannot be written; with 2 for a wrong command line.");
  program.add(
      setting("json", flag()).help("Write the results as JSON, one object in a line, with texts in UTF-8."));
  program.add(setting("language", text())
                  .value_name("TAG")
                  .help("Language of messages and help, such as de. Otherwise, that of the environment."));
  program.add_command("check", "Lists what reads otherwise than it looks.", check_command());
  program.add_command("get", "Prints the value of a key.", get_command());
  program.add_command("set", "Sets a key to a value.", set_command());
  program.add_command("unset", "Removes a key.", unset_command());
  program.add_command("list", "Lists all keys with their values.", list_command());
  program.add_command("explain", "Shows where the value of a key comes from.", explain_command());
  program.add_command("format", "Writes a file in one layout.", format_command());
  program.command_required();
  program.example("orva-config check --werror viewer.cfg", "Checks a file before it is installed.");
  program.example("orva-config set viewer.cfg window.width 800", "Changes one value.");
  program.example("orva-config set viewer.cfg 'paths[]' /home /srv", "Sets an array of two elements.");
  program.example("orva-config explain user.cfg /etc/viewer.cfg window.width",
                  "Shows which of two files decides.");
  return program;
}

}  // namespace orva_config
