#include "orva/strings/page_encoder.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "orva/internal/text/code_point.hpp"
#include "orva/strings/internal/checked_page.hpp"
#include "orva/strings/internal/page_tables.hpp"

namespace ORVA_NAMESPACE::strings {

namespace {

namespace code_pages = internal::code_pages;
namespace text_kernels = internal::text;
using code_pages::utf8_page;

constexpr std::size_t chunk_size = 512;
constexpr std::size_t most_units16 = 2 * chunk_size;

/// Replaces a malformed part in UTF-16. It is never after a high surrogate, since those of a converted text
/// have their pair.
constexpr auto malformed_unit = static_cast<code_unit16>(0xDC00);

/// The whole characters of a text of any width, in UTF-16.
template <code_unit Unit>
class text_in_utf16;

template <>
class text_in_utf16<code_unit16> {
 public:
  explicit text_in_utf16(ustring16::view text) : text_(text) {}

  ustring16::view view() const { return text_; }
  /// Where a unit of `view` is in the text. Asked in rising order.
  std::size_t place_of(std::size_t unit) { return unit; }
  /// The number of units of the text at that place. REQUIRES: `unit` begins a character.
  std::size_t size_at(std::size_t unit) const {
    return std::max<std::size_t>(text_kernels::decode(text_.data() + unit, text_.size() - unit).units, 1);
  }

  static std::size_t count_cut(ustring16::view text) {
    return !text.empty() && text_kernels::is_high_surrogate(text_kernels::value_of(text.back())) ? 1 : 0;
  }

 private:
  ustring16::view text_;
};

template <>
class text_in_utf16<char> {
 public:
  explicit text_in_utf16(ustring8::view text) : text_(text) {
    std::array<code_unit16*, chunk_size> malformed;
    std::size_t count = 0;
    code_unit16* const end = code_pages::decode(
        utf8_page(), text, units_,
        [&](const char*, std::size_t, code_unit16* at, code_unit16) { malformed[count++] = at; });
    for (code_unit16* const at : std::span(malformed.data(), count)) *at = malformed_unit;
    size_ = static_cast<std::size_t>(end - units_);
  }

  ustring16::view view() const { return {units_, size_}; }
  std::size_t place_of(std::size_t unit) {
    while (unit_ < unit) {
      const auto found = character_at(place_);
      unit_ += found.code_point < 0x10000 ? 1 : 2;
      place_ += found.units;
    }
    return place_;
  }
  std::size_t size_at(std::size_t unit) { return character_at(place_of(unit)).units; }

  static std::size_t count_cut(ustring8::view text) { return code_pages::cut_bytes(utf8_page(), text); }

 private:
  text_kernels::character character_at(std::size_t place) const {
    return code_pages::decode_or_replace(text_.data() + place, text_.size() - place);
  }

  ustring8::view text_;
  code_unit16 units_[most_units16];
  std::size_t size_;
  std::size_t unit_ = 0;
  std::size_t place_ = 0;
};

template <>
class text_in_utf16<code_unit32> {
 public:
  explicit text_in_utf16(ustring32::view text) : text_(text) {
    code_unit16* to = units_;
    for (const code_unit32 unit : text) {
      const std::uint32_t value = text_kernels::value_of(unit);
      if (is_pair(value)) {
        to = text_kernels::encode_pair(value, to);
      } else {
        const bool is_character = value < 0x10000 && !text_kernels::is_surrogate(value);
        *to++ = is_character ? static_cast<code_unit16>(value) : malformed_unit;
      }
    }
    size_ = static_cast<std::size_t>(to - units_);
  }

  ustring16::view view() const { return {units_, size_}; }
  std::size_t place_of(std::size_t unit) {
    for (; unit_ < unit; ++place_) unit_ += is_pair(text_kernels::value_of(text_[place_])) ? 2 : 1;
    return place_;
  }
  std::size_t size_at(std::size_t) const { return 1; }

  static std::size_t count_cut(ustring32::view) { return 0; }

 private:
  static bool is_pair(std::uint32_t value) { return value >= 0x10000 && value < 0x110000; }

  ustring32::view text_;
  code_unit16 units_[most_units16];
  std::size_t size_;
  std::size_t unit_ = 0;
  std::size_t place_ = 0;
};

/// Whether a unit is the second one of a pair.
bool ends_pair(ustring16::view text, std::size_t unit) {
  return unit > 0 && text_kernels::is_low_surrogate(text_kernels::value_of(text[unit])) &&
         text_kernels::is_high_surrogate(text_kernels::value_of(text[unit - 1]));
}

/// The bytes that replace characters that the page lacks.
template <typename Page>
std::string bytes_of_missing(const Page& page) {
  char bytes[utf8_page::max_bytes_of_unit];
  const char* const end = code_pages::encode(page, ustring16::view(&malformed_unit, 1), bytes);
  return {bytes, static_cast<std::size_t>(end - bytes)};
}

/// Of the character that begins at `unit`; `written` are the bytes that its first unit became.
template <typename Page>
encoding_loss loss_at(const Page& page, ustring16::view text, std::size_t unit, std::string written) {
  const auto found = text_kernels::decode(text.data() + unit, text.size() - unit);
  encoding_loss loss{};
  if (found.units == 0) {
    loss.kind = loss_kind::malformed;
    loss.character = utf8_page::replacement;
    loss.written = std::move(written);
    return loss;
  }
  constexpr char32_t full_width_question_mark = 0xFF1F;
  loss.character = found.code_point;
  const bool resembles = written != bytes_of_missing(page) || loss.character == full_width_question_mark;
  loss.kind = resembles ? loss_kind::best_fit : loss_kind::missing;
  loss.written = found.units == 2 ? written + written : std::move(written);
  return loss;
}

}  // namespace

template <code_unit Unit>
basic_page_encoder<Unit>::basic_page_encoder(const code_page& page)
    : system_type_(_private::required_system_type(page)) {}

template <code_unit Unit>
void basic_page_encoder<Unit>::encode(std::basic_string_view<Unit> piece, std::string& bytes) {
  _private::with_tables(system_type_, [&](const auto& page) {
    _private::convert_pieces<chunk_size>(
        cut_, piece, text_in_utf16<Unit>::count_cut,
        [&](std::basic_string_view<Unit> text) { convert(page, text, bytes, false); });
  });
}

template <code_unit Unit>
void basic_page_encoder<Unit>::finish(std::string& bytes) {
  _private::with_tables(system_type_, [&](const auto& page) { convert(page, cut_.view(), bytes, true); });
  cut_.size = 0;
  units_read_ = 0;
  bytes_written_ = 0;
}

template <code_unit Unit>
template <typename Page>
void basic_page_encoder<Unit>::convert(const Page& page, std::basic_string_view<Unit> text,
                                       std::string& bytes, bool is_cut) {
  text_in_utf16<Unit> source(text);
  const ustring16::view units = source.view();
  char output[most_units16 * Page::max_bytes_of_unit + 1];
  const auto on_fault = [&](const code_unit16* from, const char* to, std::size_t size) {
    const auto unit = static_cast<std::size_t>(from - units.data());
    if (ends_pair(units, unit)) return;
    _private::add_loss(losses_, [&] {
      encoding_loss loss = loss_at(page, units, unit, std::string(to, size));
      if (is_cut) loss.kind = loss_kind::cut;
      loss.place = units_read_ + source.place_of(unit);
      loss.size = source.size_at(unit);
      loss.result_place = bytes_written_ + static_cast<std::size_t>(to - output);
      return loss;
    });
  };
  const char* const end = code_pages::encode(page, units, output, on_fault);
  const auto size = static_cast<std::size_t>(end - output);
  bytes.append(output, size);
  units_read_ += text.size();
  bytes_written_ += size;
}

namespace {

template <code_unit Unit>
encoded_text encode_whole(const code_page& page, std::basic_string_view<Unit> text) {
  encoded_text result;
  if (!_private::system_type_of(page.type())) {
    result.error = conversion_error::invalid_page;
    return result;
  }
  basic_page_encoder<Unit> encoder(page);
  result.bytes.reserve(text.size());
  encoder.encode(text, result.bytes);
  encoder.finish(result.bytes);
  result.losses = encoder.take_losses();
  return result;
}

}  // namespace

encoded_text encode_checked(const code_page& page, ustring8::view text) { return encode_whole(page, text); }
encoded_text encode_checked(const code_page& page, ustring16::view text) { return encode_whole(page, text); }
encoded_text encode_checked(const code_page& page, ustring32::view text) { return encode_whole(page, text); }

template class basic_page_encoder<char>;
template class basic_page_encoder<code_unit16>;
template class basic_page_encoder<code_unit32>;

}  // namespace ORVA_NAMESPACE::strings
