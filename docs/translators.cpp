#include <cstdio>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <string>

#include "orva/orva.hpp"

using orva::generic::varg_list;
using orva::i18n::message_catalogs;
using orva::strings::ustring8;

// A file as a translator writes it: two languages, and a region that words one message differently.
constexpr char backup[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<xmc version="1.1">
  <catalog name="backup" lang="en">
    <msg name="done" meta="size: bytes written; time: seconds">
      Saved <arg name="size" type="mem" precision="1"/> <arg name="size" type="mem_unit" precision="1"/>
      in <arg name="time" type="duration"/>.</msg>
    <msg name="failed">Not saved:<br/><arg name="reason"/></msg>
    <msg name="again">Try again?</msg>
  </catalog>
  <catalog name="backup" lang="de">
    <msg name="done">
      In <arg name="time" type="duration" short_form="true" precision="0"/> wurden
      <arg name="size" type="mem" target_unit="MB" precision="0"/> MB gesichert.</msg>
    <msg name="failed">Nicht gesichert:<br/><arg name="reason"/></msg>
  </catalog>
  <catalog name="backup" lang="de_AT">
    <msg name="failed">Leider nicht gesichert:<br/><arg name="reason"/></msg>
  </catalog>
</xmc>
)";

// Loads a file that contains `text`, and prints the library's message if that fails.
message_catalogs load(const std::string& text, const std::string& language) {
  const std::string file = "translators_guide.xmc";
  std::ofstream(file, std::ios::binary) << text;
  message_catalogs catalogs;
  const auto result = catalogs.load_file(file, language);
  std::remove(file.c_str());
  if (result != message_catalogs::no_error) std::cout << result << '\n';
  return catalogs;
}

void show_backup(const std::string& language) {
  varg_list args;
  args.push_back("size", 1234567890);
  args.push_back("time", 83.5);
  args.push_back("reason", "disk full");
  const message_catalogs catalogs = load(backup, language);
  std::cout << "[" << language << "]\n";
  for (const char* name : {"done", "failed", "again"}) {
    std::cout << catalogs.message("backup", name).as_utf8(args) << '\n';
  }
}

// Prints a line end as \n.
std::string on_one_line(ustring8 text) {
  orva::strings::replace_all(text, "\n", "\\n");
  return text;
}

// Prints `body` and how it is shown as the content of a message.
void show(const std::string& body) {
  varg_list args;
  args.push_back("n", 1234567);
  args.push_back("s", "some text");
  args.push_back("t", 93784.5);
  const std::string file =
      R"(<?xml version="1.0"?><xmc version="1.1"><catalog name="c" lang="en"><msg name="m">)" + body +
      "</msg></catalog></xmc>";
  const std::string text = load(file, "en").message("c", "m").as_utf8(args);
  std::cout << std::left << std::setw(66) << on_one_line(body) << "=> [" << on_one_line(text) << "]\n";
}

int main() {
  for (const char* language : {"en", "de_DE", "de_AT"}) show_backup(language);

  std::cout << "\nWhite space\n";
  for (const char* body :
       {"  one   two  ", "one\n  two", "one\ntwo", "one<br/>two", "one<br/> two", "one <arg name=\"s\"/> two",
        "<arg name=\"s\"/>   <arg name=\"s\"/>", "5 &lt; 6 &amp; 7"})
    show(body);

  std::cout << "\nPlaceholders: n is 1234567, t is 93784.5\n";
  for (const char* body : {
           R"(<arg name="s"/>)",
           R"(<arg name="missing"/>)",
           R"(<arg name="n" type="int"/>)",
           R"(<arg name="n" type="int" base="spaced_dec"/>)",
           R"(<arg name="n" type="int" base="hex"/>)",
           R"(<arg name="n" type="int" base="hex" fieldsize="12"/>)",
           R"(<arg name="n" type="int" fieldsize="3"/>)",
           R"(<arg name="n" type="int" base="roman"/>)",
           R"(<arg name="t" type="double"/>)",
           R"(<arg name="t" type="double" precision="0"/>)",
           R"(<arg name="t" type="double" precision="1" fieldsize="10"/>)",
           R"(<arg name="t" type="double" precision="1" fieldsize="4"/>)",
           R"(<arg name="n" type="mem"/> <arg name="n" type="mem_unit"/>)",
           R"(<arg name="n" type="mem" precision="2"/>)",
           R"(<arg name="n" type="mem" target_unit="KB" precision="0"/>)",
           R"(<arg name="n" type="mem" target_unit="GB" precision="4"/>)",
           R"(<arg name="n" type="mem" base_unit="KB" precision="2"/>)",
           R"(<arg name="n" type="metric"/> <arg name="n" type="metric_unit"/>m)",
           R"(<arg name="n" type="metric" target_unit="k"/> km)",
           R"(<arg name="n" type="metric" target_unit="k" precision="1"/> km)",
           R"(<arg name="n" type="metric" target_unit="k" precision="0"/> km)",
           R"(<arg name="n" type="metric_unit" short_form="false"/>metres)",
           R"(<arg name="t" type="duration"/>)",
           R"(<arg name="t" type="duration" short_form="true" precision="0"/>)",
           R"(<arg name="t" type="duration" precision="-1"/>)",
           R"(<arg name="t" type="date"/>)",
       })
    show(body);

  std::cout << "\nMistakes\n";
  show("some <em>text</em>");
  show("open <br>");
}
