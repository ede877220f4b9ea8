// album: a program with commands, as far as its settings go.
#include <iostream>
#include <string>

#include "orva/orva.hpp"

using namespace orva::config;

declaration declared() {
  declaration add("add");
  add.add(setting("private", flag()).option('p').help("Shows it to nobody."));
  add.add_positional(setting("name", text()).required().value_name("NAME").help("Its name."));

  declaration album("album");
  album.version("1.0").description("Sorts pictures into albums.");
  album.add(setting("folder", file_path()).by_default("albums").option('d').help("Where the albums are."));
  album.add_command("add", "Adds an album.", add);
  album.add_command("list", "Lists the albums.", declaration("list"));
  album.command_required();
  return album;
}

int main(int argc, char** argv) {
  const orva::system::program_arguments arguments(argc, argv);
  settings_options options;
  options.files = {"my_album.cfg", "/etc/album.cfg"};  // those that exist, the first before the second
  const settings values(declared(), arguments.count(), arguments.values(), nullptr, options);
  if (values.asks_for() == asked_for::help) {
    std::cout << help_text(values.declared(), {.width = help_width(std::cout), .command = values.command()});
    return 0;
  }
  if (values.asks_for() == asked_for::version) {
    std::cout << version_text(values.declared());
    return 0;
  }
  write_text(std::cerr, values.report());
  if (values.report().has_errors()) return 2;

  if (values.command() == "list") {
    std::cout << "the albums in " << values.get<std::string>("folder") << '\n';
  } else {
    std::cout << (values.get<bool>("add.private") ? "private: " : "") << values.get<std::string>("add.name")
              << " in " << values.get<std::string>("folder") << '\n';
  }
}
