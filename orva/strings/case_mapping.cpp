#include "orva/strings/case_mapping.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "orva/internal/text/character_class.hpp"

namespace ORVA_NAMESPACE::strings {

namespace {

/// To the runtime's functions, which take an `int`, a `char` of 0xFF is the end of a file and no character.
template <code_unit Unit>
bool has_case(Unit unit) {
  return !(std::is_same_v<Unit, char> && static_cast<char>(unit) == '\xFF');
}

struct lower_unit {
  template <code_unit Unit>
  Unit operator()(Unit unit) const {
    return has_case(unit) ? internal::character_class::tolower(unit) : unit;
  }
};

struct upper_unit {
  template <code_unit Unit>
  Unit operator()(Unit unit) const {
    return has_case(unit) ? internal::character_class::toupper(unit) : unit;
  }
};

/// Asks the runtime once for each value that it maps, instead of once for each unit.
template <code_unit Unit, typename Map>
void map_by_table(Unit* first, Unit* last, Map map) {
  std::array<Unit, 256> mapped;
  for (std::uint32_t value = 0; value < mapped.size(); ++value) mapped[value] = map(static_cast<Unit>(value));
  for (; first != last; ++first) {
    const std::uint32_t value = static_cast<std::make_unsigned_t<Unit>>(*first);
    const Unit mapped_unit = mapped[value & 0xFF];
    *first = value <= 0xFF ? mapped_unit : *first;
  }
}

template <code_unit Unit, typename Map>
void map_units(Unit* first, Unit* last, Map map) {
  constexpr std::ptrdiff_t table_pays_from = 1024;
  if (last - first >= table_pays_from) return map_by_table(first, last, map);
  std::transform(first, last, first, map);
}

}  // namespace

template <code_unit Unit>
void make_lower(basic_ustring<Unit>& text, std::size_t first, std::size_t last) {
  last = std::min(last, text.size());
  if (first < last) map_units(text.data() + first, text.data() + last, lower_unit());
}

template <code_unit Unit>
void make_upper(basic_ustring<Unit>& text) {
  map_units(text.data(), text.data() + text.size(), upper_unit());
}

template void make_lower(ustring8&, std::size_t, std::size_t);
template void make_lower(ustring16&, std::size_t, std::size_t);
template void make_lower(ustring32&, std::size_t, std::size_t);
template void make_upper(ustring8&);
template void make_upper(ustring16&);
template void make_upper(ustring32&);

}  // namespace ORVA_NAMESPACE::strings
