/// `commandline_item`: the arguments of a program as configuration.
///
///     -key, /key                            =>  key: "", a flag
///     -key=value  -key:value  -key:=value   =>  key: "value"
///     -key=a,b,c                            =>  key: array of "a", "b", "c"
///     -key$a,b                              =>  key: "a,b"
///     -key value                            =>  key: "value", also where it has commas
///     -key a b c                            =>  key: array of "a", "b", "c"
///     word                                  =>  ignored, with a warning on standard output
///
/// An option with nothing attached takes the words after it, up to the next one that begins with `-`. A first
/// word that begins with `/` is not taken, it is the next option: `-a x /y` is an array of "x" and "/y", but
/// `-a /y` is two flags, `a` and `y`. For a path as the first value write `-a=/y`.
///
/// Only one `-` or `/` is removed: `--key` has the key "-key". The tree splits a key at `.`, `\` and `/`.
///
/// Quotes that reach the program are removed. A run of blanks outside quotes is replaced by a copy of the
/// text of the token before it: `-a=x y` gives "xxy", `-a="x y"` gives "x y".
///
/// Values are byte strings. The empty value of a flag is a `ustring8`.
///
/// The program's name, up to the last backslash removed, gives three more keys:
///
///     argv[0]               application.name   application.name.raw   application.name.extention
///     C:\tools\a.b.exe      "a.b.exe"          "ab"                   "exe"
///     tool.exe              "tool.exe"         "tool"                 "exe"
///     /usr/bin/tool         "/usr/bin/tool"    ""                     none
///
/// The item does not copy the arguments: they must outlive it and its copies.
///
/// Speaking sibling: `settings`, which knows the options of the program.
///
/// Edge cases: docs/edges.md#configuration
#pragma once

#include <vector>

#include "orva/config/base_config_item.hpp"
#include "orva/export.hpp"

namespace ORVA_NAMESPACE::config {

class commandline_item;

namespace _private {
struct argument_value;
std::vector<argument_value> values_of_arguments(const commandline_item& item);
}  // namespace _private

class ORVA_API commandline_item : public base_config_item {
 public:
  /// Reads nothing yet. The id is "command line". `argv` may be null. The arguments end at the first null
  /// entry, or after `argc` entries.
  commandline_item(unsigned int argc, const char* const* argv);

  bool load() override;
  using base_config_item::load;
  void unload() override;
  commandline_item* clone() const override;

  int get_argc() const { return static_cast<int>(argc_); }
  const char* const* get_argv() const { return argv_; }

 private:
  friend std::vector<_private::argument_value> _private::values_of_arguments(const commandline_item&);
  class reader;

  void load_program_name();

  unsigned int argc_;
  const char* const* argv_;
};

}  // namespace ORVA_NAMESPACE::config
