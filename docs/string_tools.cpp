#include <iostream>

#include "orva/orva.hpp"

namespace strings = orva::strings;

int main() {
  // Empty pieces count, but not after the last delimiter.
  for (const auto& piece : strings::split_string(",usr,,local,", ",", 0)) std::cout << '[' << piece << ']';
  std::cout << '\n';

  // At most one cut: a name and everything else.
  for (const auto& piece : strings::split_string("key=a=b", "=", 1)) std::cout << '[' << piece << ']';
  std::cout << '\n';

  // In place; inserted text is not searched again.
  strings::ustring8 path = "a/b/c";
  const auto count = strings::replace_all(path, "/", "//");
  std::cout << path << ' ' << count << '\n';

  // Unit by unit, by the C locale: only ASCII letters change.
  std::cout << strings::to_upper("grün") << ' ' << strings::lower_case("HEADER", 1, strings::end_of_text)
            << '\n';

  // Character by character, by Unicode.
  std::cout << strings::unicode_upper("grün, Straße") << ' ' << strings::unicode_lower("ΟΔΟΣ") << ' '
            << strings::unicode_upper("izmir", strings::case_rules::turkic) << '\n';
  std::cout << (strings::equal_caseless("STRASSE", "Straße") ? "equal" : "different") << '\n';

  // The first sequence of a buffer.
  std::cout << strings::gh2::get_utf8_length("ü", 2) << ' ' << strings::gh2::validate_utf8("\xC3", 1) << '\n';
}
