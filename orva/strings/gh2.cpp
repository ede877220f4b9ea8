#include "orva/strings/gh2.hpp"

#include <iostream>

#include "orva/internal/text/code_point.hpp"
#include "orva/strings/case_mapping.hpp"
#include "orva/strings/code_page.hpp"
#include "orva/strings/replace.hpp"

namespace ORVA_NAMESPACE::strings::gh2 {

namespace {

const char* as_chars(const unsigned char* text) { return reinterpret_cast<const char*>(text); }

}  // namespace

wide_string tolower(ustring16::view text) { return to_lower(text); }
wide_string toupper(ustring16::view text) { return to_upper(text); }

types::int32 replace_all(wide_string& text, ustring16::view from, ustring16::view to) {
  return strings::replace_all(text, from, to);
}

std::string to_ansi(ustring16::view text) { return code_page(code_page::ansi).encode(text); }
wide_string from_ansi(std::string_view bytes) { return code_page(code_page::ansi).as_ustring(bytes); }

unsigned int get_utf8_length(const char* text, unsigned int length) {
  if (text == nullptr || length == 0) return 0;
  return static_cast<unsigned int>(internal::text::sequence_length(static_cast<unsigned char>(*text)));
}

unsigned int get_utf8_length(const unsigned char* text, unsigned int length) {
  return get_utf8_length(as_chars(text), length);
}

bool validate_utf8(const char* text, unsigned int length) {
  return text != nullptr && length != 0 && internal::text::decode(text, length).units != 0;
}

bool validate_utf8(const unsigned char* text, unsigned int length) {
  return validate_utf8(as_chars(text), length);
}

std::wistream& ucin = std::wcin;
std::wostream& ucout = std::wcout;
std::wostream& ucerr = std::wcerr;

}  // namespace ORVA_NAMESPACE::strings::gh2
