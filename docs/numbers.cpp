#include <iostream>
#include <string_view>

#include "orva/orva.hpp"

namespace convert = orva::generic::convert;
using radix = orva::types::radix_t;

// A length of 0 would mean: up to the terminator, which a view does not have.
int read(std::string_view text, radix::base base) {
  return text.empty() ? 0 : convert::str_to_int(text.data(), text.size(), base, false);
}

int main() {
  // A field of a text is read without a copy or a terminator.
  const std::string_view line = "port=8080;mask=0x1F";
  std::cout << read(line.substr(5, 4), radix::decimal) << ' ' << read(line.substr(15), radix::prefix) << '\n';

  // Text after the number is ignored, and a text without a number is 0.
  std::cout << read("12 apples", radix::decimal) << ' ' << read("apples", radix::decimal) << '\n';

  // A number out of range is the nearest limit, or throws where the last argument is true.
  std::cout << read("99999999999", radix::decimal) << '\n';
  try {
    convert::str_to_int8("-129", 0, radix::decimal, true);
  } catch (const orva::exceptions::underflow_error& error) {
    std::cout << error.message() << '\n';
  }

  // Any radix, by a cast; and back to text.
  char text[convert::number_buffer_size];
  convert::lltoa(read("zZ", static_cast<radix::base>(36)), text, 2);
  std::cout << text << '\n';

  // Floating text depends on the locale, by default the global one.
  std::cout << convert::str_to_double("  2.5e-1 litres") << ' ' << convert::str_to_double("12e") << '\n';
}
