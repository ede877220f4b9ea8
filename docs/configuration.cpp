// viewer: a program that shows pictures, as far as its settings go.
#include <iostream>
#include <string>
#include <vector>

#include "orva/orva.hpp"

using namespace orva::config;

declaration declared() {
  declaration viewer("viewer");
  viewer.version("2.1").description("Shows pictures.");
  viewer.add(setting("threads", integer_between(1, 64))
                 .by_default(4)
                 .option('t')
                 .environment("VIEWER_THREADS")
                 .help("Number of threads."));
  viewer.add(setting("quality", one_of({"draft", "good", "best"})).by_default("good").help("How to scale."));
  viewer.add(setting("cache", byte_size()).by_default("64 MiB").help("Memory for pictures to come."));
  viewer.add(setting("delay", duration()).by_default("5s").help("How long to show each picture."));
  viewer.add(setting("repeat", flag()).option('r').help("Begins again after the last picture."));
  viewer.add(setting("window.width", integer_between(100, 10000))
                 .by_default(640)
                 .option("width")
                 .group("Window")
                 .help("Width in pixels."));
  viewer.add(setting("cfg_file", file_path())
                 .option('c', "config")
                 .by_default("viewer.cfg")
                 .help("File with settings."));
  viewer.add(setting("explain", text()).value_name("KEY").help("Says where the value of a key comes from."));
  viewer.add(setting("print", one_of({"man", "bash", "zsh", "fish", "sample"}))
                 .help("Prints the manual page, a completion or a sample file."));
  viewer.add_positional(setting("files", list_of(file_path())).value_name("FILE").help("Pictures to show."));
  viewer.example("viewer -t8 --quality=best *.jpg", "Shows all pictures of a folder.");
  return viewer;
}

/// Pages and scripts that come from the declaration, too.
std::string page(const declaration& viewer, const std::string& wanted) {
  if (wanted == "man") return man_page(viewer, {.date = "2026-11-22"});
  if (wanted == "sample") return sample_file(viewer);
  if (wanted == "bash") return completion_script(viewer, completion_shell::bash);
  return completion_script(viewer, wanted == "zsh" ? completion_shell::zsh : completion_shell::fish);
}

void show(const settings& values) {
  const std::chrono::duration<double> delay = values.get<std::chrono::nanoseconds>("delay");
  std::cout << values.get<int>("threads") << " threads, " << values.get<std::string>("quality")
            << ", cache of " << values.get<std::uint64_t>("cache") << " bytes, " << delay.count()
            << " s each, " << values.get<int>("window.width") << " wide"
            << (values.get<bool>("repeat") ? ", again and again" : "") << '\n';
  for (const std::string& file : values.get_list<std::string>("files")) std::cout << file << '\n';
}

int main(int argc, char** argv, char** environment) {
  const orva::system::program_arguments arguments(argc, argv);
  const settings values(declared(), arguments.count(), arguments.values(), environment);
  if (values.asks_for() == asked_for::help) {
    std::cout << help_text(values.declared(), {.width = help_width(std::cout)});
    return 0;
  }
  if (values.asks_for() == asked_for::version) {
    std::cout << version_text(values.declared());
    return 0;
  }
  write_text(std::cerr, values.report());
  if (values.report().has_errors()) return 2;

  if (const auto wanted = values.find<std::string>("print")) {
    std::cout << page(values.declared(), *wanted);
  } else if (const auto key = values.find<std::string>("explain")) {
    write_text(std::cout, explain(values.manager(), *key));
  } else {
    show(values);
  }
}
