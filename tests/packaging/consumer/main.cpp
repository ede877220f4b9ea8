#include <iostream>
#include <orva/orva.hpp>

int main() {
  orva::i18n::message_catalogs catalogs;
  const auto loaded = catalogs.load("messages", "de_DE");
  if (loaded.type() != orva::i18n::message_catalogs::no_error) return std::cerr << loaded << '\n', 1;
  const orva::generic::varg_list args(orva::generic::argument("n", 53'687'091'200));
  std::cout << catalogs.message("app", "disk_free").as_utf8(args) << '\n';  // Frei: 53.7 GB
}
