#include <iostream>
#include <string>

#include "orva/orva.hpp"

using namespace orva::config;

int main(int argc, char** argv) {
  declaration hello("hello");
  hello.add(setting("times", integer_between(1, 100)).by_default(1).option('t').help("How often."));
  hello.add_positional(setting("name", text()).required().value_name("NAME").help("Whom to greet."));

  const settings values(hello, argc, argv);
  if (values.asks_for() == asked_for::help) return std::cout << help_text(hello), 0;
  write_text(std::cerr, values.report());
  if (values.report().has_errors()) return 2;

  for (int i = 0; i < values.get<int>("times"); ++i) {
    std::cout << "Hello " << values.get<std::string>("name") << '\n';
  }
}
