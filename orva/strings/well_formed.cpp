#include "orva/strings/well_formed.hpp"

#include <cstdint>

#include "orva/internal/text/well_formed.hpp"

namespace ORVA_NAMESPACE::strings {

namespace {

namespace text_kernels = internal::text;

/// What is wrong with a byte that begins no character.
malformation kind_of_lead(std::uint32_t lead) {
  if (lead < 0xC0) return malformation::stray_continuation;
  if (lead < 0xC2) return malformation::overlong;
  return lead < 0xF8 ? malformation::too_large : malformation::invalid_byte;
}

/// What is wrong with a continuation byte that may not follow this lead byte.
malformation kind_of_second(std::uint32_t lead) {
  if (lead == 0xED) return malformation::surrogate;
  return lead == 0xF4 ? malformation::too_large : malformation::overlong;
}

// Each returns the malformed part at the beginning of a text.

malformed_part malformed_front(ustring8::view text) {
  const std::uint32_t lead = text_kernels::value_of(text.front());
  const auto found = text_kernels::match_sequence(text.data(), text.size());
  if (found.length == 0) return {0, 1, kind_of_lead(lead)};
  if (found.matched == text.size()) return {0, found.matched, malformation::incomplete};
  if (!text_kernels::is_continuation(text[found.matched])) {
    return {0, found.matched, malformation::cut_short};
  }
  return {0, found.matched, kind_of_second(lead)};
}

malformed_part malformed_front(ustring16::view text) {
  const bool may_be_completed =
      text.size() == 1 && text_kernels::is_high_surrogate(text_kernels::value_of(text.front()));
  return {0, 1, may_be_completed ? malformation::incomplete : malformation::surrogate};
}

malformed_part malformed_front(ustring32::view text) {
  const bool surrogate = text_kernels::is_surrogate(text_kernels::value_of(text.front()));
  return {0, 1, surrogate ? malformation::surrogate : malformation::too_large};
}

/// The number of units before the first malformed part; all if there is none.
template <typename Unit>
std::size_t well_formed_size(std::basic_string_view<Unit> text) {
  const Unit* const end = text_kernels::well_formed_end(text.data(), text.data() + text.size());
  return static_cast<std::size_t>(end - text.data());
}

template <typename Unit>
std::optional<malformed_part> find_malformed(std::basic_string_view<Unit> text) {
  const std::size_t offset = well_formed_size(text);
  if (offset == text.size()) return std::nullopt;
  malformed_part part = malformed_front(text.substr(offset));
  part.offset = offset;
  return part;
}

}  // namespace

std::optional<malformed_part> first_malformed(const text_view& text) noexcept {
  return text.visit([](auto units) { return find_malformed(units); });
}

bool is_well_formed(const text_view& text) noexcept {
  return text.visit([](auto units) { return well_formed_size(units) == units.size(); });
}

}  // namespace ORVA_NAMESPACE::strings
