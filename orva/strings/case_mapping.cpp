#include "orva/strings/case_mapping.hpp"

#include <algorithm>
#include <type_traits>

#include "orva/internal/text/character_class.hpp"

namespace ORVA_NAMESPACE::strings {

namespace {

/// To the runtime's functions, which take an `int`, a `char` of 0xFF is the end of a file and no character.
template <code_unit Unit>
bool has_case(Unit unit) {
  return !(std::is_same_v<Unit, char> && static_cast<char>(unit) == '\xFF');
}

template <code_unit Unit>
Unit lower_unit(Unit unit) {
  return has_case(unit) ? internal::character_class::tolower(unit) : unit;
}

template <code_unit Unit>
Unit upper_unit(Unit unit) {
  return has_case(unit) ? internal::character_class::toupper(unit) : unit;
}

}  // namespace

template <code_unit Unit>
void make_lower(basic_ustring<Unit>& text, std::size_t first, std::size_t last) {
  last = std::min(last, text.size());
  if (first < last) std::transform(&text[first], &text[0] + last, &text[first], lower_unit<Unit>);
}

template <code_unit Unit>
void make_upper(basic_ustring<Unit>& text) {
  std::transform(text.begin(), text.end(), text.begin(), upper_unit<Unit>);
}

template void make_lower(ustring8&, std::size_t, std::size_t);
template void make_lower(ustring16&, std::size_t, std::size_t);
template void make_lower(ustring32&, std::size_t, std::size_t);
template void make_upper(ustring8&);
template void make_upper(ustring16&);
template void make_upper(ustring32&);

}  // namespace ORVA_NAMESPACE::strings
