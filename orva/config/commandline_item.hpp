/// `commandline_item`: the arguments of a program as configuration.
///
///     -key, /key                            =>  key: "", a flag
///     -key=value  -key:value  -key:=value   =>  key: "value"
///     -key=a,b,c                            =>  key: array of a, b, c
///     -key$a,b                              =>  key: "a,b"
///     -key value                            =>  key: "value"
///     -key a b c                            =>  key: array of a, b, c     up to the next word that begins with -
///     word                                  =>  a warning on standard output, and it is left out
///
/// One `-` or `/` is taken off: `--key` has the key "-key". A word that begins with `/` is an option of its
/// own, also one that was meant for the option before it: write `-path=/home` for a path as the only or the
/// first value. Keys have dots between their parts, and blanks outside of quotes are not for arguments: each
/// repeats the text before it. Values are byte strings.
///
/// The program's name gives three keys more, by its last part behind a backslash:
///
///     argv[0]               application.name   application.name.raw   application.name.extention
///     C:\tools\a.b.exe      "a.b.exe"          "ab"                   "exe"
///     tool.exe              "tool.exe"         "tool"                 "exe"
///     /usr/bin/tool         "/usr/bin/tool"    ""                     none
///
/// The arguments are the caller's and are not copied: they must live as long as the item and its copies.
/// Loading writes to standard output; apart from that an item is as safe to share as its base.
#pragma once

#include "orva/config/base_config_item.hpp"
#include "orva/export.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API commandline_item : public base_config_item {
 public:
  /// Reads nothing yet. The id is "command line". `argv` may be null, and arguments end at a null entry,
  /// whatever `argc` says.
  commandline_item(unsigned int argc, const char* const* argv);

  bool load() override;
  bool load(const item_list& items) override;
  void unload() override;
  commandline_item* clone() const override;

  int get_argc() const { return static_cast<int>(argc_); }
  const char* const* get_argv() const { return argv_; }

 private:
  class reader;

  void load_program_name();

  unsigned int argc_;
  const char* const* argv_;
};

}  // namespace ORVA_NAMESPACE::config
