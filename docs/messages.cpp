#include <iostream>

#include "orva/orva.hpp"

using namespace orva;
using generic::argument;
using generic::varg_list;
using i18n::message_item;
using i18n::message_t;

// In a catalog file this message reads
//   Free: <arg name="free" type="mem" precision="1"/> <arg name="free" type="mem_unit" precision="1"/>
// The byte 0x01 separates the fields of a placeholder.
const message_t disk_free("disk_free",
                          {message_item("Free: "),
                           message_item("free\001precision\0011", message_item::memory), message_item(" "),
                           message_item("free\001precision\0011", message_item::memory_unit)});

void show(const char* label, const strings::ustring8& text) { std::cout << label << text << '\n'; }

// Renders one placeholder. Write "|" in `data` for the byte 0x01.
strings::ustring8 rendered(message_item::type_t type, strings::ustring8 data, const types::variant& value) {
  strings::replace_all(data, "|", "\001");
  return message_item(data, type).as_string(argument("n", value));
}

int main() {
  // The message decides how a value is shown. The program gives the value and its name.
  show("1. ", disk_free.as_utf8(argument("free", 1500)));
  show("2. ", disk_free.as_utf8(argument("free", 123456789012)));

  // A missing argument shows in the sentence, and nothing is thrown. has_valid_args checks the arguments:
  // there must be one of each name, and at least as many as there are placeholders.
  show("3. ", disk_free.as_utf8());
  const varg_list enough(argument("free", 1500), argument("total", 8000));
  std::cout << "4. " << disk_free.has_valid_args(varg_list()) << disk_free.has_valid_args(enough) << '\n';
  std::cout << "5. " << disk_free.count() << " items, " << disk_free.argument_count() << " placeholders\n";

  // A message without placeholders is text in a stream and in a sum.
  const message_t no_room("no_room", {message_item("no room")});
  std::cout << "6. " << no_room << '\n';
  show("7. ", "Error: " + no_room + '!');

  // Attributes:
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

  // A formatter can be called without a message.
  strings::ustring8 unit;
  const auto number = i18n::_private::format_memory(1500, "target_unit\001B", unit);
  show("memory    ", number + " " + unit);
}
