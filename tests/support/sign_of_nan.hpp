/// `with_sign_of_nan`: the text that a C runtime prints for a floating value, with the sign of a nan, which
/// some runtimes leave out.
#pragma once

#include <cmath>
#include <string>

namespace orva_test {

/// The sign replaces a blank where there is one.
template <typename Floating>
std::string with_sign_of_nan(Floating value, std::string text) {
  const bool is_lost = std::isnan(value) && std::signbit(value) && text.find('-') == text.npos;
  if (!is_lost || text.find('n') == text.npos) return text;
  if (text.front() == ' ') text.erase(0, 1);
  if (text.back() == ' ') text.pop_back();
  return text.insert(text.find('n'), "-");
}

}  // namespace orva_test
