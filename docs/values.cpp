#include <chrono>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string_view>

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
  // One value, read as several types.
  const variant text("0x1F");
  std::cout << text.as_utf8() << " is " << text.as_int32() << ", and " << std::boolalpha << text.as_bool()
            << '\n';
  const variant number(1234567.0);
  std::cout << number.as_utf8() << " is " << number.as_int32() << '\n';

  // Text saturates. Numbers keep their low bits.
  std::cout << "\"300\" in 8 bits: " << +variant("300").as_int8()
            << ", 300 in 8 bits: " << +variant(300).as_int8() << '\n';

  // The type of the stored value.
  std::cout << "a literal is a ustring8: " << (variant("x").type() == typeid(strings::ustring8)) << '\n';

  // nil: no value.
  variant value;
  std::cout << "nil: " << (value == nil) << ", as a number " << value.as_int32() << ", as text \""
            << value.as_utf8() << "\"\n";

  // A copy shares the value. Assigning to one does not change the other.
  value = "kept";
  const variant copy = value;
  value = nil;
  std::cout << "the copy: " << copy.as_utf8() << '\n';

  // A list of named and positional values, in the order in which they were added.
  varg_list list(argument("disk", "/home"), argument("free", 1500000), argument("note"));
  std::cout << "list of " << list.size() << ":\n";
  show(list);

  // The first argument with a name stays.
  std::cout << "free added again: " << list.push_back("free", 0) << '\n';

  // A missing name gives the nil argument. A missing position throws.
  std::cout << "used is there: " << (list["used"] != nil) << '\n';
  try {
    list.at(3);
  } catch (const std::out_of_range& failure) {
    std::cout << failure.what() << '\n';
  }

  // Change by position or with find; remove by name or position.
  list[0].value("/srv");
  list.find("free")->value(42);
  list.erase("disk");
  list.erase(99);
  show(list);

  // Where nothing may be lost, ask for the value as one type.
  for (const variant& answer : {variant("300"), variant("12abc"), variant(2.5), variant(300.0)}) {
    const std::optional<int> whole = answer.try_as<int>();
    std::cout << answer.as_utf8() << " as int: " << (whole ? std::to_string(*whole) : "no")
              << ", as one byte: " << (answer.try_as<signed char>() ? "yes" : "no") << '\n';
  }
  std::cout << "a third as text: " << variant(1.0 / 3).try_as<std::string>().value() << '\n';
  std::cout << "holds a double: " << variant(300.0).holds<double>()
            << ", the same as the int: " << same(variant(300.0), variant(300)) << '\n';

  // Values of the standard library, and names in braces.
  const std::string_view user = "someone";
  const std::optional<int> no_limit;
  show(varg_list{{"user", user},
                 {"file", std::filesystem::path("notes.txt")},
                 {"time", std::chrono::milliseconds(1500)},
                 {"limit", no_limit}});
}
