#include "orva/strings/case_mapping.hpp"

#include <algorithm>

#include "orva/strings/character_class.hpp"

namespace ORVA_2_18::strings::_private {

template <code_unit Unit>
void lower(basic_ustring<Unit>& text, std::size_t first, std::size_t last) {
  last = std::min(last, text.size());
  for (std::size_t i = first; i < last; ++i) text[i] = character_class::tolower(text[i]);
}

template <code_unit Unit>
void upper(basic_ustring<Unit>& text) {
  for (Unit& unit : text) unit = character_class::toupper(unit);
}

template void lower(ustring8&, std::size_t, std::size_t);
template void lower(ustring16&, std::size_t, std::size_t);
template void lower(ustring32&, std::size_t, std::size_t);
template void upper(ustring8&);
template void upper(ustring16&);
template void upper(ustring32&);

}  // namespace ORVA_2_18::strings::_private
