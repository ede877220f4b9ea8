/// `photo`, with the declared settings of this library.
#pragma once

#include <ostream>
#include <string>

#include "orva/config/declaration.hpp"
#include "orva/config/help_text.hpp"
#include "orva/config/settings.hpp"
#include "orva/diagnostics/write.hpp"
#include "tests/config/command_lines/photo_values.hpp"

namespace photo {

inline ORVA_NAMESPACE::config::declaration declared() {
  using namespace ORVA_NAMESPACE::config;
  declaration program("photo");
  program.version("1.0").description("Shows pictures.");
  program.add(
      setting("threads", integer_between(1, 64)).by_default(4).option('t').help("Number of threads."));
  program.add(setting("verbose", flag()).option('v').help("Shows more."));
  program.add(setting("all", flag()).option('a').help("Shows hidden files."));
  program.add(setting("colour", flag()).by_default(true).help("Shows colours."));
  program.add(setting("shift", integer()).by_default(0).option('s').help("Moves the picture."));
  program.add(setting("zoom", number()).by_default(1).option('z').help("Scale."));
  program.add(
      setting("mode", one_of({"fast", "small"})).by_default("fast").option('m').help("How to scale."));
  program.add(setting("output", file_path()).by_default("out").option('o').help("Folder for copies."));
  program.add(setting("title", text()).by_default("Photo").help("Title of the window."));
  program.add(setting("tags", list_of(text())).help("Pictures with these tags."));
  program.add_positional(setting("files", list_of(file_path())).required().help("Pictures to show."));
  return program;
}

inline values values_of(const ORVA_NAMESPACE::config::settings& settings) {
  values read;
  read.threads = settings.get<int>("threads");
  read.verbose = settings.get<bool>("verbose");
  read.all = settings.get<bool>("all");
  read.colour = settings.get<bool>("colour");
  read.shift = settings.get<int>("shift");
  read.zoom = settings.get<double>("zoom");
  read.mode = settings.get<std::string>("mode");
  read.output = settings.get<std::string>("output");
  read.title = settings.get<std::string>("title");
  read.tags = settings.get_list<std::string>("tags");
  read.files = settings.get_list<std::string>("files");
  return read;
}

/// The exit code.
inline int run(int argc, const char* const* argv, std::ostream& output, std::ostream& errors) {
  using namespace ORVA_NAMESPACE::config;
  settings_options options;
  options.slash_asks_for_help = false;  // on all systems the same
  const settings settings(declared(), argc, argv, nullptr, options);
  if (settings.asks_for() == asked_for::help) {
    output << help_text(settings.declared());
    return 0;
  }
  if (settings.asks_for() == asked_for::version) {
    output << version_text(settings.declared());
    return 0;
  }
  ORVA_NAMESPACE::diagnostics::write_text(errors, settings.report());
  if (settings.report().has_errors()) return 2;
  write(output, values_of(settings));
  return 0;
}

}  // namespace photo
