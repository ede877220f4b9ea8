/// Declarations for the tests of help, completions, the manual page and the sample file.
#pragma once

#include <chrono>
#include <string>

#include "orva/config/declaration.hpp"

namespace orva_test {

/// A program with each kind of setting.
inline ORVA_NAMESPACE::config::declaration declared_viewer() {
  using namespace ORVA_NAMESPACE::config;
  declaration viewer("viewer");
  viewer.version("2.1").description(
      "Shows pictures, one after the other, in a window or on the whole screen.\n\n"
      "Pictures may be files or folders.");
  viewer.add(setting("threads", integer_between(1, 64))
                 .by_default(4)
                 .option('t')
                 .environment("VIEWER_THREADS")
                 .value_name("COUNT")
                 .group("Speed")
                 .help("Number of threads that read pictures ahead."));
  viewer.add(setting("cache", byte_size()).by_default("10 MiB").group("Speed").help("Memory for pictures."));
  viewer.add(setting("verbose", flag()).option('v').help("Shows more."));
  viewer.add(setting("mode", one_of({"fast", "small", "16:9"}))
                 .by_default("fast")
                 .option('m')
                 .help("How to scale."));
  viewer.add(setting("window.width", integer()).option("width").by_default(640).help("Width of the window."));
  viewer.add(
      setting("window.title", text()).no_option().by_default("dark blue").help("Title of the window."));
  viewer.add(setting("delay", duration()).by_default(std::chrono::milliseconds(1500)).help("Time for each."));
  viewer.add(setting("zoom", number_between(0.1, 10)).option('z').help("Scale."));
  viewer.add(setting("exclude", list_of(text())).option('x').help("Names that are not shown."));
  viewer.add(setting("output", file_path()).option('o').required().help("Folder for copies."));
  viewer.add(setting("password", text())
                 .no_option()
                 .secret()
                 .by_default("hunter2")
                 .environment("VIEWER_PASSWORD")
                 .help("For pictures behind a login."));
  viewer.add(setting("jobs", integer_between(1, 64)).option('j').deprecated("threads").help("As threads."));
  viewer.add_positional(setting("files", list_of(file_path())).required().help("Pictures to show."));
  viewer.example("viewer -t 8 holiday", "Shows a folder.");
  return viewer;
}

/// A program with commands.
inline ORVA_NAMESPACE::config::declaration declared_tool() {
  using namespace ORVA_NAMESPACE::config;
  declaration add("");
  add.description("Adds a place.").example("tool remote add home", "Adds home.");
  add.add(setting("mode", one_of({"read", "write"})).option('m').help("What may be done."));
  add.add_positional(setting("name", text()).required().help("Its name."));
  add.add_positional(setting("place", file_path()).help("Where it is."));
  declaration remote("");
  remote.add_command("add", "Adds one.", add).add_command("remove", "Removes one.", declaration(""));
  declaration tool("tool");
  tool.version("1.0").description("Knows places.").command_required();
  tool.add(setting("config", file_path()).option('c').help("Reads this file."));
  tool.add(setting("quiet", flag()).option('q').help("Shows less."));
  tool.add_command("remote", "Knows others.", remote);
  tool.add_command("fetch", "Gets all.", declaration(""));
  return tool;
}

}  // namespace orva_test
