#include "orva/diagnostics/text_findings.hpp"

#include <algorithm>
#include <cstdint>
#include <string>
#include <type_traits>

#include "orva/diagnostics/internal/place_in.hpp"
#include "orva/internal/text/hexadecimal.hpp"

namespace ORVA_NAMESPACE::diagnostics {

namespace {

using internal::text::hexadecimal;
using strings::loss_kind;
using strings::malformation;

const char* code_of(malformation kind) noexcept {
  switch (kind) {
    case malformation::stray_continuation:
      return "text.stray_continuation";
    case malformation::invalid_byte:
      return "text.invalid_byte";
    case malformation::overlong:
      return "text.overlong";
    case malformation::surrogate:
      return "text.surrogate";
    case malformation::too_large:
      return "text.too_large";
    case malformation::cut_short:
      return "text.cut_short";
    case malformation::incomplete:
      return "text.incomplete";
  }
  return "text.invalid_byte";
}

const char* code_of(loss_kind kind) noexcept {
  switch (kind) {
    case loss_kind::best_fit:
      return "code_page.best_fit";
    case loss_kind::missing:
      return "code_page.missing";
    case loss_kind::undefined:
      return "code_page.undefined";
    case loss_kind::malformed:
      return "code_page.malformed";
    case loss_kind::cut:
      return "code_page.cut";
  }
  return "code_page.missing";
}

/// "0xE2 0x82", "0xD83D"
template <typename Unit>
std::string shown_units(std::basic_string_view<Unit> units) {
  std::string text;
  for (const Unit unit : units) {
    const auto value = static_cast<std::uint32_t>(static_cast<std::make_unsigned_t<Unit>>(unit));
    text += hexadecimal(text.empty() ? "0x" : " 0x", value, 2 * sizeof(Unit));
  }
  return text;
}

std::string shown_units(const strings::text_view& text, std::size_t offset, std::size_t length) {
  return text.visit(
      [&](auto units) { return shown_units(units.substr(std::min(offset, units.size()), length)); });
}

std::string shown_character(char32_t character) {
  return hexadecimal("U+", static_cast<std::uint32_t>(character), 4);
}

/// What an encoder writes for a character: graphic characters of ASCII in nearly all cases.
std::string shown_bytes(const std::string& bytes) {
  const auto is_graphic = [](char byte) { return byte > ' ' && byte < '\x7F'; };
  return std::ranges::all_of(bytes, is_graphic) ? bytes : shown_units(std::string_view(bytes));
}

severity level_of(loss_kind kind) noexcept {
  return kind == loss_kind::best_fit ? severity::warning : severity::error;
}

}  // namespace

finding describe(const strings::malformed_part& part, const strings::text_view& text, std::string_view file) {
  return {severity::error,
          code_of(part.kind),
          strings::ustring8(file),
          _private::place_in(text, part.offset),
          {{"units", shown_units(text, part.offset, part.length)}}};
}

finding describe(const strings::encoding_loss& loss, place at, std::string_view file) {
  return {level_of(loss.kind),
          code_of(loss.kind),
          strings::ustring8(file),
          at,
          {{"character", shown_character(loss.character)},
           {"offset", loss.place},
           {"result", shown_bytes(loss.written)}}};
}

finding describe(const strings::decoding_loss& loss, place at, std::string_view file) {
  return {level_of(loss.kind),
          code_of(loss.kind),
          strings::ustring8(file),
          at,
          {{"bytes", shown_units(std::string_view(loss.bytes))},
           {"offset", loss.place},
           {"result", shown_character(loss.read_as)}}};
}

finding describe(strings::conversion_error error, std::string_view file) {
  if (error == strings::conversion_error::none) return {severity::note, {}, strings::ustring8(file), {}, {}};
  return {severity::error, "code_page.invalid", strings::ustring8(file), {}, {}};
}

finding unknown_code_page(std::string_view label, place at, std::string_view file) {
  return {severity::error, "code_page.unknown", strings::ustring8(file), at, {{"label", label}}};
}

}  // namespace ORVA_NAMESPACE::diagnostics
