#include <iomanip>
#include <iostream>
#include <string>

#include "orva/orva.hpp"

using namespace orva;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;

void print_units(const char* what, const auto& text) {
  std::cout << what;
  for (const auto unit : text) std::cout << ' ' << std::hex << static_cast<types::uint32>(unit) << std::dec;
  std::cout << '\n';
}

// Text of any width, read as UTF-8: text in UTF-8 is borrowed, any other is converted.
void greet(const strings::text_argument& name) { std::cout << "Hello, " << name.view() << "!\n"; }

int main() {
  const ustring8 text("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");  // a, a umlaut, euro sign, a grinning face

  // Lengths are in code units.
  const ustring16 text16 = strings::utf8_to_utf16(text);
  const ustring32 text32 = strings::utf8_to_utf32(text);
  std::cout << strings::string_length(text) << " bytes, " << strings::string_length(text16) << " units, "
            << strings::string_length(text32) << " characters\n";
  print_units("UTF-16:", text16);
  print_units("UTF-32:", text32);

  // Character by character.
  types::uint32 step = 0;
  for (types::uint32 i = 0; i < strings::string_length(text); i += step) {
    const auto character = strings::unichar(text.data(), strings::string_length(text), i, step);
    if (step == strings::no_character) break;
    std::cout << "at " << i << ": U+" << std::hex << std::uppercase << std::setw(4) << std::setfill('0')
              << character << std::dec << std::nouppercase << '\n';
  }
  std::cout << "character 3 begins at " << strings::character_index(text, 3) << '\n';

  // Bad text gives a text.
  const ustring8 bad("abc\x80xyz");
  std::cout << strings::utf16_to_utf8(strings::utf8_to_utf16(bad)) << '\n';
  std::cout << strings::utf32_to_utf8(strings::utf8_to_utf32(bad)) << '\n';

  // By the Unicode Standard, with a report of what was replaced and where.
  const auto repaired = strings::to_utf16(bad);
  std::cout << strings::to_utf8(repaired.text).text << ", replaced: " << repaired.replaced << '\n';
  if (const auto malformed = strings::first_malformed(bad)) {
    std::cout << diagnostics::describe(*malformed, bad) << '\n';
  }
  print_units("from UTF-32:", strings::to_utf16(text32).text);

  // A file in the other byte order: swap it before any transform.
  ustring16 foreign = strings::utf8_to_utf16("\xEF\xBB\xBFHi");
  strings::modify_swap_string_bytes_order(foreign);
  print_units("foreign:", foreign);
  strings::check_BOM_and_modify_swap(foreign);
  std::cout << strings::utf16_to_utf8(strings::remove_BOM(foreign)) << '\n';

  // A legacy file, read and written. A character not in the encoding becomes the nearest one that is.
  const strings::code_page cyrillic(strings::code_page::cp_1251);
  const std::string bytes("\xCF\xF0\xE8\xE2\xE5\xF2");
  std::cout << cyrillic.as_utf8(bytes) << '\n' << (cyrillic.encode(cyrillic.as_utf8(bytes)) == bytes) << '\n';
  std::cout << strings::code_page(strings::code_page::cp_1252).encode("\xC4\x80 \xE2\x88\x9E \xD0\x96")
            << '\n';

  // With a list of what is lost, in a page that is found by its label.
  const auto western = strings::find_code_page("cp1252");
  const auto encoded = strings::encode_checked(*western, "\xC4\x80 \xE2\x88\x9E \xD0\x96");
  for (const auto& loss : encoded.losses.first) {
    std::cout << "byte " << loss.place << ": U+" << std::hex << static_cast<types::uint32>(loss.character)
              << std::dec
              << (loss.kind == strings::loss_kind::missing ? " is missing, " : " has a best fit, ")
              << loss.written << '\n';
  }

  // A file in pieces, which cut its characters, and its end does.
  strings::page_decoder decoder(strings::code_page::cp_932);
  std::string decoded;
  for (const char* const piece : {"\x82", "\xA0\x82", "\xA2\x81"}) decoder.decode(piece, decoded);
  decoder.finish(decoded);
  std::cout << decoded << ", lost: " << decoder.losses().count << '\n';

  // Wide text is converted by name, and a text_argument takes any width.
  greet("bytes");
  greet(strings::from_wchar(L"wide"));
  greet(text32);
}
