#include <iostream>

#include "orva/orva.hpp"

using namespace orva;
using generic::argument;
using generic::varg_list;
using types::nil;
using types::variant;

void show(const varg_list& list) {
  for (const argument& each : list) {
    std::cout << "  " << (each.has_name() ? each.name() : "(positional)") << ": " << each.value().as_utf8()
              << '\n';
  }
}

int main() {
  // One value, read in whatever type is asked for.
  const variant text("0x1F");
  std::cout << text.as_utf8() << " is " << text.as_int32() << ", and " << std::boolalpha << text.as_bool()
            << '\n';
  const variant number(1234567.0);
  std::cout << number.as_utf8() << " is " << number.as_int32() << '\n';

  // Text saturates, numbers are cut.
  std::cout << "\"300\" in 8 bits: " << +variant("300").as_int8()
            << ", 300 in 8 bits: " << +variant(300).as_int8() << '\n';

  // The type of what is stored is kept.
  std::cout << "a literal is a ustring8: " << (variant("x").type() == typeid(strings::ustring8)) << '\n';

  // nil is the value that is none.
  variant value;
  std::cout << "nil: " << (value == nil) << ", as a number " << value.as_int32() << ", as text \""
            << value.as_utf8() << "\"\n";

  // A copy shares the payload, and assigning to one of the two leaves the other alone.
  value = "kept";
  const variant copy = value;
  value = nil;
  std::cout << "the copy: " << copy.as_utf8() << '\n';

  // A list of named and positional values, in the order of adding.
  varg_list list(argument("disk", "/home"), argument("free", 1500000), argument("note"));
  std::cout << "list of " << list.size() << ":\n";
  show(list);

  // The first argument of a name stays.
  std::cout << "free added again: " << list.push_back("free", 0) << '\n';

  // A name that is not there gives the nil argument; a position that is not there throws.
  std::cout << "used is there: " << (list["used"] != nil) << '\n';
  try {
    list.at(3);
  } catch (const std::out_of_range& failure) {
    std::cout << failure.what() << '\n';
  }

  // Changing by position or through find, removing by name or position.
  list[0].value("/srv");
  list.find("free")->value(42);
  list.erase("disk");
  list.erase(99);
  show(list);
}
