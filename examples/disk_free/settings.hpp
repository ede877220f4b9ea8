/// The user's settings: from the command line, then from disk_free.cfg, then from the environment.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "orva/orva.hpp"

namespace disk_free {

/// The settings that there are. `directory` is the program's directory, with its settings file and messages.
orva::config::declaration declared(const std::filesystem::path& directory);

class settings {
 public:
  /// The arrays must live as long as this object.
  settings(int argc, const char* const* argv, const char* const* environment,
           const std::filesystem::path& directory);

  /// "language". If it is not set, the first of LC_ALL, LC_MESSAGES and LANG that is not empty, without
  /// encoding and modifier.
  ///
  ///     LANG=de_AT.UTF-8  =>  "de_AT"
  ///     LANG=C, or none   =>  "en"
  std::string language() const;
  /// Whether the command line or the file sets a language. It must be there then.
  bool sets_language() const { return all().manager().value_exist("language"); }

  /// "messages": a directory or a file.
  std::string messages() const { return text("messages"); }
  /// "sizes": the file that describes a machine; empty for this machine.
  std::string sizes() const { return text("sizes"); }
  /// "path": the file systems to show; empty for all.
  std::vector<std::string> paths() const { return values_.get_list<std::string>("path"); }
  /// "form": "short" shows only the file systems.
  bool is_short() const { return text("form") == "short"; }
  /// "dump": whether to print these settings and nothing else.
  bool dump() const { return values_.get<bool>("dump"); }

  /// With the report of what is wrong.
  const orva::config::settings& all() const { return values_; }

 private:
  /// A value that may be a link: only the manager follows links.
  std::string text(const char* key) const { return values_.manager().get_value(key, "").as_string(); }
  void make_links();

  orva::config::settings values_;
};

}  // namespace disk_free
