#include <cstdint>
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

  // The speaking readers take a view, and say what is wrong and where the number ends.
  const auto weight = convert::read_number<std::int8_t>("300 kg");
  std::cout << int{weight.value} << ' ' << weight.length << ' '
            << (weight.error == convert::number_error::too_large) << '\n'
            << orva::diagnostics::describe(weight, "300 kg") << '\n';
  std::cout << convert::parse_number<int>("12 apples").has_value() << ' '
            << *convert::parse_number<int>("-0x1F", radix::prefix) << '\n';

  // The shortest text that reads back to the same value, in any locale.
  std::cout << convert::number_text(0.1 + 0.2) << ' ' << convert::number_text(0.1f) << '\n';
  std::cout << *convert::parse_number<double>("2.5e-1") << '\n';

  // Floating text depends on the locale, by default the global one.
  std::cout << convert::str_to_double("  2.5e-1 litres") << ' ' << convert::str_to_double("12e") << '\n';
}
