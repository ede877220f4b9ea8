#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "orva/orva.hpp"

using namespace orva;

const char* const file_name = "guide_layers.cfg";

void write_file() {
  std::ofstream(file_name) << R"([window]
title = "Free space"        # quotes keep blanks
width = 800
paths[] = /, /home,         // after a comma the array continues
          "/mnt/my disk"
)";
}

int main() {
  write_file();
  const char* const arguments[] = {"viewer.exe", "-window.width=1024", "-verbose", nullptr};
  const char* const environment[] = {"WINDOW.HEIGHT=600", "EDITOR=vi", nullptr};

  // Command line before file before environment. A real main() passes its own arguments and `environ`.
  config::config_manager settings;
  settings.init(config::std_config_dispatch(3, arguments, environment, file_name, ""));
  settings.load();

  // A value is converted to the type that you ask for. The default is for keys that nobody has set.
  std::cout << settings.get_value("window.title").as_string() << ", "
            << settings.get_value("Window/Width", 640).as_int32() << " x "
            << settings.get_value("window.height", 480).as_int32() << ", depth "
            << settings.get_value("window.depth", 24).as_int32() << '\n';
  std::cout << std::boolalpha << settings.value_exist("verbose") << ' ' << settings.value_exist("quiet")
            << '\n';

  std::vector<types::variant> paths;
  settings.get_array("window.paths", paths);
  for (const types::variant& path : paths) std::cout << '[' << path.as_string() << "] ";
  std::cout << settings.is_array("window.paths") << '\n';

  // A link is a key whose value is the name of another key.
  const auto file = settings.get_config_item("standard file");
  file->set("dialog.width", "window.width", config::config_tree::NODE_LINK);
  std::cout << settings.get_value("dialog.width").as_int32() << '\n';

  // The item of the file can be changed and written back.
  file->unload();
  file->set("window.width = 1280", 0);
  file->set("window.title", "Free space", 0);
  file->save();
  std::ifstream saved(file_name);
  for (std::string line; std::getline(saved, line);) std::cout << line.substr(0, line.find('\r')) << '\n';
  saved.close();

  // All values, by source.
  settings.get_config_item("command line")->unload();
  std::cout << settings;
  std::remove(file_name);
}
