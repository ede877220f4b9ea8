#include <iostream>

#include "orva/orva.hpp"

using namespace orva;
using generic::argument;
using generic::varg_list;
using i18n::message_item;
using i18n::message_t;

// What stands in a catalog file as
//   Free: <arg name="free" type="mem" precision="1"/> <arg name="free" type="mem_unit" precision="1"/>
// is, made by hand, a text item and two placeholders. The byte 0x01 stands between the fields of a
// placeholder.
const message_t disk_free("disk_free",
                          {message_item("Free: "),
                           message_item("free\001precision\0011", message_item::memory), message_item(" "),
                           message_item("free\001precision\0011", message_item::memory_unit)});

void show(const char* label, const strings::ustring8& text) { std::cout << label << text << '\n'; }

// A single placeholder, its fields separated by "|" for reading.
strings::ustring8 rendered(message_item::type_t type, strings::ustring8 data, const types::variant& value) {
  strings::replace_all(data, "|", "\001");
  return message_item(data, type).as_string(argument("n", value));
}

int main() {
  // The message decides how a value is shown; the program only names it.
  show("1. ", disk_free.as_utf8(argument("free", 1500)));
  show("2. ", disk_free.as_utf8(argument("free", 123456789012)));

  // A missing argument shows in the sentence, and nothing is thrown. A program that wants to know asks first:
  // there must be as many arguments as placeholders, and one by each name.
  show("3. ", disk_free.as_utf8());
  const varg_list enough(argument("free", 1500), argument("total", 8000));
  std::cout << "4. " << disk_free.has_valid_args(varg_list()) << disk_free.has_valid_args(enough) << '\n';
  std::cout << "5. " << disk_free.count() << " items, " << disk_free.argument_count() << " placeholders\n";

  // What the attributes do.
  show("int       ", rendered(message_item::integer, "n|base|spaced_dec", 1234567));
  show("          ", rendered(message_item::integer, "n|base|hex", 255));
  show("          ", rendered(message_item::integer, "n|base|bin|fieldsize|8", 5));
  show("double    ", rendered(message_item::real, "n|precision|3", 3.14159));
  show("          ", rendered(message_item::real, "n|fieldsize|8", 3.14159));
  show("          ", rendered(message_item::real, "n|fieldsize|5", 1234567.0));
  show("metric    ", rendered(message_item::metric, "n", 1500));
  show("          ", rendered(message_item::metric_unit, "n|short_form|false", 1500));
  show("          ", rendered(message_item::metric, "n|target_unit|m|precision|1", 0.25));
  show("duration  ", rendered(message_item::duration, "n", 3661.5));
  show("          ", rendered(message_item::duration, "n|short_form|true|precision|0", 90000));

  // The formatters can be called without a message.
  strings::ustring8 unit;
  const auto number = i18n::_private::format_memory(1500, "target_unit\001B", unit);
  show("memory    ", number + " " + unit);
}
