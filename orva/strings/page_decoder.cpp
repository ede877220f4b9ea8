#include "orva/strings/page_decoder.hpp"

#include <cstddef>
#include <type_traits>

#include "orva/internal/text/code_point.hpp"
#include "orva/strings/internal/checked_page.hpp"
#include "orva/strings/internal/page_tables.hpp"

namespace ORVA_NAMESPACE::strings {

namespace {

namespace code_pages = internal::code_pages;
namespace text_kernels = internal::text;
using code_pages::single_byte_page;

constexpr std::size_t chunk_size = 1024;

/// The units that a unit of UTF-16 takes in another width; each surrogate has half of its pair's UTF-8.
template <code_unit Unit>
std::size_t units_of(code_unit16 unit) {
  const std::uint32_t value = text_kernels::value_of(unit);
  if constexpr (std::is_same_v<Unit, code_unit16>) return 1;
  if constexpr (std::is_same_v<Unit, code_unit32>) return text_kernels::is_low_surrogate(value) ? 0 : 1;
  if (value < 0x80) return 1;
  return value < 0x800 || text_kernels::is_surrogate(value) ? 2 : 3;
}

/// Where the units of a UTF-16 text are in the same text of another width. Asked in rising order, with all
/// units up to the wanted one.
template <code_unit Unit>
class places_in_result {
 public:
  std::size_t of_end(ustring16::view units) {
    for (; index_ < units.size(); ++index_) place_ += units_of<Unit>(units[index_]);
    return place_;
  }

 private:
  std::size_t index_ = 0;
  std::size_t place_ = 0;
};

/// Appends whole characters in another width, and returns the number of units.
std::size_t append(ustring16::view units, std::string& text) {
  char bytes[chunk_size * code_pages::utf8_page::max_bytes_of_unit];
  const char* const end = code_pages::encode(code_pages::utf8_page(), units, bytes);
  const auto size = static_cast<std::size_t>(end - bytes);
  text.append(bytes, size);
  return size;
}

std::size_t append(ustring16::view units, wide_string& text) {
  text.append(units);
  return units.size();
}

std::size_t append(ustring16::view units, ustring32::standard_string& text) {
  const std::size_t before = text.size();
  for (std::size_t i = 0; i < units.size();) {
    auto found = text_kernels::decode(units.data() + i, units.size() - i);
    // No page of the library has an unpaired surrogate; the pairs of one of the system may.
    if (found.units == 0) found = {code_pages::utf8_page::replacement, 1};
    text.push_back(static_cast<code_unit32>(found.code_point));
    i += found.units;
  }
  return text.size() - before;
}

// Each appends the text of whole characters and returns its size. `on_fault` gets the place in that text as a
// function, since the places of most faults are not asked for.

template <typename OnFault>
std::size_t append_decoded(const single_byte_page& page, std::string_view bytes, std::string& text,
                           OnFault on_fault) {
  char utf8[chunk_size * single_byte_page::max_bytes_of_character + 1];
  const auto place_fault = [&](const char* from, std::size_t size, const char* to, code_unit16 unit) {
    const auto place = [&] { return static_cast<std::size_t>(to - utf8); };
    on_fault(from, size, place, unit);
  };
  const char* const end = code_pages::decode(page, bytes, utf8, place_fault);
  const auto size = static_cast<std::size_t>(end - utf8);
  text.append(utf8, size);
  return size;
}

template <typename Page, typename Unit, typename OnFault>
std::size_t append_decoded(const Page& page, std::string_view bytes, std::basic_string<Unit>& text,
                           OnFault on_fault) {
  code_unit16 units[chunk_size];
  places_in_result<Unit> places;
  const auto place_fault = [&](const char* from, std::size_t size, const code_unit16* to, code_unit16 unit) {
    const auto place = [&] { return places.of_end({units, to}); };
    on_fault(from, size, place, unit);
  };
  const code_unit16* const end = code_pages::decode(page, bytes, units, place_fault);
  return append({units, static_cast<std::size_t>(end - units)}, text);
}

template <typename Page>
constexpr loss_kind kind_of_fault(bool is_cut) {
  if (is_cut) return loss_kind::cut;
  return std::is_same_v<Page, code_pages::utf8_page> ? loss_kind::malformed : loss_kind::undefined;
}

}  // namespace

template <code_unit Unit>
basic_page_decoder<Unit>::basic_page_decoder(const code_page& page)
    : system_type_(_private::required_system_type(page)) {}

template <code_unit Unit>
void basic_page_decoder<Unit>::decode(std::string_view piece, std::basic_string<Unit>& text) {
  _private::with_tables(system_type_, [&](const auto& page) {
    _private::convert_pieces<chunk_size>(
        cut_, piece, [&](std::string_view bytes) { return code_pages::cut_bytes(page, bytes); },
        [&](std::string_view bytes) { convert(page, bytes, text, false); });
  });
}

template <code_unit Unit>
void basic_page_decoder<Unit>::finish(std::basic_string<Unit>& text) {
  _private::with_tables(system_type_, [&](const auto& page) { convert(page, cut_.view(), text, true); });
  cut_.size = 0;
  bytes_read_ = 0;
  units_written_ = 0;
}

template <code_unit Unit>
template <typename Page>
void basic_page_decoder<Unit>::convert(const Page& page, std::string_view bytes,
                                       std::basic_string<Unit>& text, bool is_cut) {
  const auto on_fault = [&](const char* from, std::size_t size, auto place, code_unit16 unit) {
    _private::add_loss(losses_, [&] {
      return decoding_loss{kind_of_fault<Page>(is_cut),
                           bytes_read_ + static_cast<std::size_t>(from - bytes.data()),
                           std::string(from, size), units_written_ + place(),
                           static_cast<char32_t>(text_kernels::value_of(unit))};
    });
  };
  units_written_ += append_decoded(page, bytes, text, on_fault);
  bytes_read_ += bytes.size();
}

template <code_unit Unit>
decoded_text<Unit> decode_checked(const code_page& page, std::string_view bytes) {
  decoded_text<Unit> result;
  if (!_private::system_type_of(page.type())) {
    result.error = conversion_error::invalid_page;
    return result;
  }
  basic_page_decoder<Unit> decoder(page);
  result.text.reserve(bytes.size());
  decoder.decode(bytes, result.text);
  decoder.finish(result.text);
  result.losses = decoder.take_losses();
  return result;
}

template class basic_page_decoder<char>;
template class basic_page_decoder<code_unit16>;
template class basic_page_decoder<code_unit32>;

template decoded_text<char> decode_checked(const code_page&, std::string_view);
template decoded_text<code_unit16> decode_checked(const code_page&, std::string_view);
template decoded_text<code_unit32> decode_checked(const code_page&, std::string_view);

}  // namespace ORVA_NAMESPACE::strings
