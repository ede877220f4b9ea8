#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "orva/i18n/format_attributes.hpp"
#include "orva/i18n/formatters.hpp"
#include "orva/i18n/scaled_value.hpp"

namespace ORVA_2_18::i18n::_private {

namespace {

constexpr std::string_view prefixes = "KMGTPEZY";
constexpr int last_unit = static_cast<int>(prefixes.size());

/// The index of a unit: 0 for "B", its prefix's place for the others.
std::optional<int> find_unit(std::string_view name) {
  if (name == "B") return 0;
  if (name.size() != 2 || name[1] != 'B') return std::nullopt;
  const std::size_t place = prefixes.find(name[0]);
  if (place == prefixes.npos) return std::nullopt;
  return static_cast<int>(place) + 1;
}

strings::ustring8 unit_name(int unit) {
  if (unit == 0) return "B";
  return {prefixes[static_cast<std::size_t>(unit - 1)], 'B'};
}

struct memory_attributes : scaled_attributes {
  bool set(std::string_view key, std::string_view value) {
    if (selects(key, "target_unit")) return set_target_unit(find_unit(value));
    if (selects(key, "base_unit")) return set_base_unit(find_unit(value));
    return set_number_form(key, value);
  }
};

}  // namespace

strings::ustring8 format_memory(const types::variant& value, std::string_view attrs,
                                strings::ustring8& unit) {
  unit.clear();
  memory_attributes attributes;
  if (!read_attributes(attrs, attributes)) return refused();
  const auto as_integer = [](const types::variant& size) -> std::uint64_t { return size.as_uint64(); };
  int index = 0;
  strings::ustring8 number = scaled_text(value, attributes, last_unit, as_integer, index);
  if (number != refused_value) unit = unit_name(index);
  return number;
}

}  // namespace ORVA_2_18::i18n::_private
