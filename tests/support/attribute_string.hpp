/// Attribute strings of placeholders, as a test writes them.
#pragma once

#include <string_view>

#include "orva/strings/ustring.hpp"

namespace orva_test {

/// attribute_string("base|hex")  =>  "base", 0x01, "hex"
inline ORVA_NAMESPACE::strings::ustring8 attribute_string(std::string_view text) {
  ORVA_NAMESPACE::strings::ustring8 result(text);
  for (char& unit : result) {
    if (unit == '|') unit = '\x01';
  }
  return result;
}

}  // namespace orva_test
