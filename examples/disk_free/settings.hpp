/// The user's settings: from the command line, then from disk_free.cfg, then from the environment.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "orva/orva.hpp"

namespace disk_free {

class settings {
 public:
  /// `directory` is the program's directory, with its settings file and messages. The arrays must live as
  /// long as this object.
  settings(int argc, const char* const* argv, const char* const* environment,
           const std::filesystem::path& directory);

  /// "language". If it is not set, the first of LC_ALL, LC_MESSAGES and LANG that is not empty, without
  /// encoding and modifier.
  ///
  ///     LANG=de_AT.UTF-8  =>  "de_AT"
  ///     LANG=C, or none   =>  "en"
  std::string language() const;
  /// Whether the command line or the file sets a language. It must be there then.
  bool sets_language() const { return item_with("language") != nullptr; }

  /// "messages": a directory or a file.
  std::string messages() const { return text("messages", directory_ + "/messages"); }
  /// "sizes": the file that describes a machine; empty for this machine.
  std::string sizes() const { return text("sizes", ""); }
  /// "path": the file systems to show; empty for all.
  std::vector<std::string> paths() const;
  /// "form": "short" shows only the file systems.
  bool is_short() const { return text("form", "full") == "short"; }
  /// "dump": whether to print these settings and nothing else.
  bool dump() const { return config_.value_exist("dump"); }

  const orva::config::config_manager& all() const { return config_; }

 private:
  std::string text(const char* key, const std::string& otherwise) const {
    return config_.get_value(key, otherwise).as_string();
  }
  const orva::config::base_config_item* item_with(const char* key) const;
  void make_links();
  void link_language_to_environment();

  std::string directory_;
  orva::config::config_manager config_;
};

}  // namespace disk_free
