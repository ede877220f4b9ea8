// `photo`, with CLI11, as its manual shows it.
#include <CLI/CLI.hpp>
#include <iostream>

#include "tests/config/command_lines/photo_values.hpp"

int main(int argc, char** argv) {
  CLI::App app("Shows pictures.", "photo");
  photo::values read;
  app.set_version_flag("--version", "photo 1.0");
  app.add_option("-t,--threads", read.threads, "Number of threads.")->check(CLI::Range(1, 64));
  app.add_flag("-v,--verbose", read.verbose, "Shows more.");
  app.add_flag("-a,--all", read.all, "Shows hidden files.");
  app.add_flag("--colour,!--no-colour", read.colour, "Shows colours.");
  app.add_option("-s,--shift", read.shift, "Moves the picture.");
  app.add_option("-z,--zoom", read.zoom, "Scale.");
  app.add_option("-m,--mode", read.mode, "How to scale.")->check(CLI::IsMember({"fast", "small"}));
  app.add_option("-o,--output", read.output, "Folder for copies.");
  app.add_option("--title", read.title, "Title of the window.");
  app.add_option("--tags", read.tags, "Pictures with these tags.");
  app.add_option("files", read.files, "Pictures to show.")->required();
  CLI11_PARSE(app, argc, argv);
  photo::write(std::cout, read);
}
