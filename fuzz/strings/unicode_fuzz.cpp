/// The transforms, character reading and the conversion of `std::wstring` on any text, compared with the slow
/// second implementation.
#include <cstddef>
#include <cstdint>

#include "fuzz/require.hpp"
#include "fuzz/strings/fuzzed_text.hpp"
#include "orva/orva.hpp"
#include "tests/support/reference_unicode.hpp"

namespace {

using namespace orva::strings;
using orva_fuzz::require;
using orva_fuzz::text_of;

/// Reads character by character, and skips one unit where there is none.
template <typename Unit>
void walk(const basic_ustring<Unit>& text) {
  const auto length = string_length(text);
  for (orva::types::uint32 i = 0; i < length;) {
    orva::types::uint32 step = 0;
    const auto character = unichar(text.data(), length, i, step);
    require(step == no_character ? character == '?' : step <= length - i);
    i += step == no_character ? 1 : step;
  }
}

template <typename Unit>
void index(const basic_ustring<Unit>& text) {
  for (orva::types::uint32 i = 0; i < 64; ++i) {
    const auto at = character_index(text, i);
    require(at == no_character || (at >= i && i < text.size()));
  }
}

void check_utf8(const ustring8& text) {
  require(utf8_to_utf16(text) == reference::utf8_to_utf16(text));
  require(utf8_to_utf32(text) == reference::utf8_to_utf32(text));
  walk(text);
  index(text);
}

void check_utf16(ustring16 text) {
  check_BOM_and_modify_swap(text);  // the transforms do not return from a text that begins with 0xFFFE
  require(utf16_to_utf8(text) == reference::utf16_to_utf8(text));
  require(utf16_to_utf32(text) == reference::utf16_to_utf32(text));
  require(from_wchar(to_wchar(text)) == text);
  walk(text);
  index(text);
}

void check_utf32(const ustring32& text) {
  require(utf32_to_utf8(text) == reference::utf32_to_utf8(text));
  require(utf32_to_utf16(text) == reference::utf32_to_utf16(text));
  walk(text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto text8 = text_of<char>(data, size);
  check_utf8(text8);
  check_utf16(text_of<code_unit16>(data, size));
  check_utf32(text_of<code_unit32>(data, size));
  // Well-formed text too: random bytes contain little of it.
  const ustring32 good = utf8_to_utf32(text8);
  check_utf32(good);
  check_utf8(utf32_to_utf8(good));
  check_utf16(utf8_to_utf16(text8));
  return 0;
}
