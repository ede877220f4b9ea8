#include <cstdio>
#include <fstream>
#include <iostream>

#include "orva/orva.hpp"

using namespace orva;

const char* const catalog_file = "guide_catalogs.xmc";

void write_catalogs() {
  std::ofstream(catalog_file) << R"(<?xml version="1.0" encoding="UTF-8"?>
<xmc version="1.1">
  <catalog name="app" lang="en">
    <msg name="disk_free">Free: <arg name="n" type="mem" precision="1"/> <arg name="n" type="mem_unit"/></msg>
    <msg name="quit">Quit</msg>
    <msg name="files.one"><arg name="n" type="int"/> file</msg>
    <msg name="files.other"><arg name="n" type="int"/> files</msg>
  </catalog>
  <catalog name="app" lang="de">
    <msg name="disk_free" meta="shown in the status bar">
      Frei:
      <arg name="n" type="mem" precision="1"/> <arg name="n" type="mem_unit"/></msg>
  </catalog>
</xmc>
)";
}

int main() {
  write_catalogs();

  // Loads a file, a directory or a list of them, for a language.
  i18n::message_catalogs catalogs;
  if (catalogs.load(catalog_file, "de_DE") != i18n::message_catalogs::no_error) return 1;
  std::cout << catalogs.count() << " catalog, " << catalogs.count("app") << " messages\n";

  // Each message is in the best language that there is: German, or else English.
  generic::varg_list args;
  args.push_back("n", 1500000);
  std::cout << catalogs.message("app", "disk_free").as_utf8(args) << '\n';
  std::cout << catalogs.message("app", "quit").as_utf8() << '\n';

  // The form of a message that goes with a number, by the rules of its language.
  for (const int files : {1, 3}) {
    std::cout << i18n::plural(catalogs, "app", "files", files).as_utf8(generic::argument("n", files)) << '\n';
  }

  // A message knows its language, and a catalog the languages of its messages.
  std::cout << catalogs.message("app", "quit")._orginal_locale() << '\n';
  std::cout << std::boolalpha << catalogs.has_catalog("app", "de") << ' '
            << catalogs.has_catalog("app", "de_DE") << '\n';

  // No lookup fails.
  std::cout << '[' << catalogs.message("app", "unknown").as_utf8() << "]\n";

  // The result of a failed load says what is wrong, and where.
  std::ofstream(catalog_file) << R"(<?xml?><xmc version="1.1"><catalog name="app" lang="de">
    <msg name="quit">Be<b>enden</b></msg></catalog></xmc>)";
  std::cout << catalogs.load(catalog_file, "de_DE") << '\n';
  std::remove(catalog_file);
}
