// Not part of a program: the compiler must warn of both calls.
#include "orva/system/file_utility.hpp"

void ignore_results(std::string& text) {
  ORVA_NAMESPACE::system::load_file("settings.xml", text);
  ORVA_NAMESPACE::system::store_file("settings.xml", text);
}
