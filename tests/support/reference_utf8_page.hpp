/// A slow second implementation of UTF-8 as a code page, by arithmetic. Sequences that RFC 3629 allows are
/// read by it; of others, the longest beginning that the platform takes as one fault becomes one U+FFFD.
#pragma once

#include <cstddef>
#include <string>

#include "orva/strings/ustring.hpp"

namespace reference {

struct utf8_form {
  int first_lead, last_lead;
  std::size_t length;
  int least_second, greatest_second;
};

/// The table of well-formed sequences of the Unicode standard.
inline const utf8_form* form_of(int lead) {
  static const utf8_form forms[] = {
      {0x00, 0x7F, 1, 0, 0},       {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF},
      {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF},
      {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F}};
  for (const auto& form : forms) {
    if (lead >= form.first_lead && lead <= form.last_lead) return &form;
  }
  return nullptr;
}

inline ORVA_NAMESPACE::strings::ustring16 utf8_page_decoded(const std::string& bytes) {
  using ORVA_NAMESPACE::strings::code_unit16;
  ORVA_NAMESPACE::strings::ustring16 text;
  const auto at = [&](std::size_t i) { return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0; };
  for (std::size_t i = 0; i < bytes.size();) {
    const utf8_form* const form = form_of(at(i));
    const std::size_t length = form == nullptr ? 1 : form->length;
    std::size_t taken = 1;
    while (taken < length && at(i + taken) >= 0x80 && at(i + taken) <= 0xBF) {
      ++taken;
      if (taken == 2 && (at(i + 1) < form->least_second || at(i + 1) > form->greatest_second)) break;
    }
    const bool second_allowed =
        length < 2 || (at(i + 1) >= form->least_second && at(i + 1) <= form->greatest_second);
    if (form == nullptr || taken < length || !second_allowed) {
      text.push_back(static_cast<code_unit16>(0xFFFD));
    } else {
      const int weights[] = {0, 0, 0xC0, 0xE0, 0xF0};
      long value = at(i) - weights[length];
      for (std::size_t k = 1; k < length; ++k) value = value * 64 + at(i + k) - 0x80;
      if (value > 0xFFFF) {
        text.push_back(static_cast<code_unit16>(0xD800 + (value - 0x10000) / 0x400));
        value = 0xDC00 + (value - 0x10000) % 0x400;
      }
      text.push_back(static_cast<code_unit16>(value));
    }
    i += taken;
  }
  return text;
}

}  // namespace reference
