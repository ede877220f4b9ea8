#include "orva/strings/gh2.hpp"

#include <algorithm>
#include <iostream>

#include "orva/strings/case_mapping.hpp"
#include "orva/strings/code_page.hpp"
#include "orva/strings/replace.hpp"

namespace ORVA_NAMESPACE::strings::gh2 {

namespace {

unsigned int sequence_length(unsigned char lead) {
  if (lead < 0x80) return 1;
  if ((lead & 0xE0) == 0xC0) return 2;
  if ((lead & 0xF0) == 0xE0) return 3;
  if ((lead & 0xF8) == 0xF0) return 4;
  return 0;
}

bool is_continuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

template <typename Byte>
unsigned int utf8_length(const Byte* text, unsigned int length) {
  if (length == 0 || text == nullptr) return 0;
  return sequence_length(static_cast<unsigned char>(*text));
}

template <typename Byte>
bool is_whole(const Byte* text, unsigned int length) {
  const unsigned int size = utf8_length(text, length);
  if (size == 0 || length < size) return false;
  return std::all_of(text + 1, text + size,
                     [](Byte byte) { return is_continuation(static_cast<unsigned char>(byte)); });
}

}  // namespace

wide_string tolower(const wide_string& text) { return to_lower(text); }
wide_string toupper(const wide_string& text) { return to_upper(text); }

types::int32 replace_all(wide_string& text, const wide_string& from, const wide_string& to) {
  return strings::replace_all(text, from, to);
}

std::string to_ansi(const wide_string& text) { return code_page(code_page::ansi).encode(text); }
wide_string from_ansi(const std::string& bytes) { return code_page(code_page::ansi).as_ustring(bytes); }

unsigned int get_utf8_length(const char* text, unsigned int length) { return utf8_length(text, length); }
unsigned int get_utf8_length(const unsigned char* text, unsigned int length) {
  return utf8_length(text, length);
}

bool validate_utf8(const char* text, unsigned int length) { return is_whole(text, length); }
bool validate_utf8(const unsigned char* text, unsigned int length) { return is_whole(text, length); }

std::wistream& ucin = std::wcin;
std::wostream& ucout = std::wcout;
std::wostream& ucerr = std::wcerr;

}  // namespace ORVA_NAMESPACE::strings::gh2
