#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>
#include <utility>

#include "orva/orva.hpp"

using namespace orva::config;

const char* const file_name = "guide_configuration.cfg";

void write_file(const std::string& text) { std::ofstream(file_name, std::ios::binary) << text; }

declaration declared() {
  declaration viewer("viewer");
  viewer.add(setting("window.width", integer_between(100, 10000)).by_default(640).option("width"));
  viewer.add(setting("cfg_file", file_path()).by_default(file_name));
  return viewer;
}

int main() {
  const char* const argv[] = {"viewer", "--width", "1024", nullptr};

  // Check: what reads otherwise than it looks.
  write_file("[window]\nwidth = 800   # pixels\nhome = http://orva.example\n");
  orva::diagnostics::report found;
  check_file(file_name, found);
  std::cout << "Check:\n";
  write_text(std::cout, found);

  // Edit: only the lines of the key change. Each edit says whether it was refused.
  using edit_error = config_document::error;
  config_document document;
  if (document.load(file_name).error != config_document::load_error::none) return 1;
  std::cout << "\nEdit:\n";
  for (const auto& [key, value] :
       {std::pair("window.width", "960"), std::pair("window.title", "Free space"), std::pair("a", "\"b\"")}) {
    const auto edited = document.set(key, value);
    if (edited.error != edit_error::none) std::cout << describe(edited, key, file_name) << '\n';
  }
  const auto saved = document.save();  // a crash leaves the old file or the new one
  std::cout << describe(saved) << document.text();

  // Explain: every source that has the key, and which of them counts.
  settings values(declared(), 3, argv);
  std::cout << "\nExplain:\n";
  write_text(std::cout, explain(values.manager(), "window.width"));

  // Watch: a program that runs for days asks now and then, such as once a second.
  watch files(declared_dispatch(declared(), 1, argv));
  values = settings(declared(), 1, argv);
  std::cout << "\nWatch:\n" << files.changed() << ' ' << values.get<int>("window.width") << '\n';
  for (const char* const text : {"window.width = 1280\n", "window.width = wide\n"}) {
    write_file(text);
    if (!files.changed()) continue;
    files.reload();
    const settings next(declared(), 1, argv);
    write_text(std::cout, next.report());
    if (!next.report().has_errors()) values = next;  // a wrong file changes nothing
    std::cout << values.get<int>("window.width") << '\n';
  }
  std::remove(file_name);
}
