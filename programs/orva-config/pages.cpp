// Writes the manual page and the completions of orva-config. The build runs it.
//
//     orva_config_pages FOLDER

#include <fstream>
#include <iostream>
#include <string>

#include "declared.hpp"
#include "orva/config/completion_script.hpp"
#include "orva/config/man_page.hpp"

namespace {

using orva::config::completion_shell;

bool write(const std::string& name, const std::string& text) {
  std::ofstream file(name, std::ios::binary);
  file << text;
  file.close();
  if (file) return true;
  std::cerr << name << " could not be written\n";
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::string prefix = argv[1] + std::string("/orva-config.");
  const auto program = orva_config::declared();
  const bool is_written = write(prefix + "1", man_page(program)) &&
                          write(prefix + "bash", completion_script(program, completion_shell::bash)) &&
                          write(prefix + "zsh", completion_script(program, completion_shell::zsh)) &&
                          write(prefix + "fish", completion_script(program, completion_shell::fish));
  return is_written ? 0 : 1;
}
