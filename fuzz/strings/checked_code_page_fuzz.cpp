/// Checked conversions on any bytes, with every page: in pieces of any size as whole, without a loss only
/// where nothing is lost, and otherwise as the unchecked conversions; labels, and byte order marks.
///
/// The first two bytes choose the page and the size of the pieces.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "fuzz/require.hpp"
#include "orva/orva.hpp"

namespace {

using namespace orva::strings;
using orva_fuzz::require;

template <typename Unit, typename Convert>
void for_each_piece(std::basic_string_view<Unit> text, std::size_t size, Convert convert) {
  for (; !text.empty(); text.remove_prefix(std::min(size, text.size()))) convert(text.substr(0, size));
}

template <code_unit Unit>
decoded_text<Unit> decode_pieces(const code_page& page, std::string_view bytes, std::size_t size) {
  basic_page_decoder<Unit> decoder(page);
  decoded_text<Unit> result;
  for_each_piece(bytes, size, [&](std::string_view piece) { decoder.decode(piece, result.text); });
  decoder.finish(result.text);
  result.losses = decoder.take_losses();
  return result;
}

void require_bounds(const loss_list<decoding_loss>& losses, std::string_view bytes, std::size_t text_size) {
  for (const auto& loss : losses.first) {
    require(!loss.bytes.empty() && loss.result_place < text_size);
    require(bytes.substr(static_cast<std::size_t>(loss.place)).starts_with(loss.bytes));
    require(sentence(orva::diagnostics::describe(loss)).ends_with('.'));
  }
  require(losses.first.size() == std::min<std::uint64_t>(losses.count, max_losses));
}

template <code_unit Unit>
void check_decoding(const code_page& page, std::string_view bytes, std::size_t size) {
  const auto whole = decode_checked<Unit>(page, bytes);
  const auto pieces = decode_pieces<Unit>(page, bytes, size);
  require(pieces.text == whole.text && pieces.losses == whole.losses);
  require_bounds(whole.losses, bytes, whole.text.size());
}

template <typename Unit>
void check_encoding(const code_page& page, std::basic_string_view<Unit> text, std::size_t size) {
  const auto whole = encode_checked(page, text);
  basic_page_encoder<Unit> encoder(page);
  std::string bytes;
  for_each_piece(text, size, [&](std::basic_string_view<Unit> piece) { encoder.encode(piece, bytes); });
  encoder.finish(bytes);
  require(bytes == whole.bytes && encoder.losses() == whole.losses);
  require(whole.is_lossless() == (decode_checked<Unit>(page, whole.bytes).text == text));
  for (const auto& loss : whole.losses.first) {
    require(loss.size > 0 && loss.place + loss.size <= text.size());
    require(std::string_view(whole.bytes)
                .substr(static_cast<std::size_t>(loss.result_place))
                .starts_with(loss.written));
    require(sentence(orva::diagnostics::describe(loss)).ends_with('.'));
  }
}

template <typename Unit>
std::basic_string<Unit> units_in(std::string_view bytes) {
  std::basic_string<Unit> text(bytes.size() / sizeof(Unit), Unit{});
  if (!text.empty()) std::memcpy(text.data(), bytes.data(), text.size() * sizeof(Unit));
  return text;
}

void check_unchecked(const code_page& page, std::string_view bytes) {
  const auto before_zero = bytes.substr(0, bytes.find('\0'));
  require(decode_checked<code_unit16>(page, before_zero).text == page.as_utf16(before_zero));
  const auto units = units_in<code_unit16>(bytes);
  const auto units_before_zero = ustring16::view(units).substr(0, units.find(code_unit16{}));
  require(encode_checked(page, units_before_zero).bytes == page.encode(units_before_zero));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  (void)find_code_page(input);
  const auto mark = byte_order_mark_of(input);
  require(!mark || input.starts_with(byte_order_mark_in(mark->encoding)));
  if (size < 2) return 0;

  const auto pages = known_code_pages();
  const code_page page(pages[data[0] % pages.size()].type);
  const std::size_t piece_size = 1 + data[1] % 64;
  const auto bytes = input.substr(2);
  check_decoding<char>(page, bytes, piece_size);
  check_decoding<code_unit16>(page, bytes, piece_size);
  check_decoding<code_unit32>(page, bytes, piece_size);
  check_encoding<char>(page, bytes, piece_size);
  check_encoding<code_unit16>(page, units_in<code_unit16>(bytes), piece_size);
  check_encoding<code_unit32>(page, units_in<code_unit32>(bytes), piece_size);
  check_unchecked(page, bytes);
  return 0;
}
