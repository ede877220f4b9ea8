/// The search for malformed parts and the transforms by the standard on any text, compared with the slow
/// second implementation; then the conversion in pieces, and the way back.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/require.hpp"
#include "fuzz/strings/fuzzed_text.hpp"
#include "orva/orva.hpp"
#include "tests/support/standard_transforms_agree.hpp"

namespace {

using namespace orva::strings;
using orva_fuzz::require;
using orva_fuzz::text_of;

/// Converting in two pieces gives what converting at once does.
template <typename Unit>
void convert_in_pieces(std::basic_string_view<Unit> text, std::size_t first_size) {
  const auto first = to_utf32(text.substr(0, first_size), on_malformed::stop);
  if (first.first_malformed && first.first_malformed->kind != malformation::incomplete) return;
  const std::size_t taken = first.first_malformed ? first.first_malformed->offset : first_size;
  const auto second = to_utf32(text.substr(taken));
  require(first.text + second.text == to_utf32(text).text);
}

template <typename Unit>
void check(const basic_ustring<Unit>& text) {
  require(orva_test::agrees<Unit>(text));
  if (const auto bad = first_malformed(text)) {
    const auto found = orva::diagnostics::describe(*bad, text);
    require(found.at.line > 0 && found.at.column > 0 && found.at.column <= bad->offset + 1);
  }
  const ustring32 characters = to_utf32(text).text;
  require(is_well_formed(characters));
  require(to_utf32(to_utf8(text).text).text == characters);
  require(to_utf32(to_utf16(text).text).text == characters);
  if (!text.empty()) convert_in_pieces<Unit>(text, static_cast<std::size_t>(text[0]) % text.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto text8 = text_of<char>(data, size);
  check(text8);
  check(text_of<code_unit16>(data, size));
  check(text_of<code_unit32>(data, size));
  // Well-formed text too: random units contain little of it.
  check(to_utf16(text8).text);
  check(to_utf32(text8).text);
  return 0;
}
