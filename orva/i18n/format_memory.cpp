#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

#include "orva/i18n/formatters.hpp"
#include "orva/i18n/internal/append_formatted.hpp"
#include "orva/i18n/internal/format_attributes.hpp"
#include "orva/i18n/internal/scaled_value.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

namespace {

constexpr std::string_view units[] = {"B", "KB", "MB", "GB", "TB", "PB", "EB", "ZB", "YB"};
constexpr int last_unit = static_cast<int>(std::size(units)) - 1;

std::optional<int> find_unit(std::string_view name) {
  const auto found = std::find(std::begin(units), std::end(units), name);
  if (found == std::end(units)) return std::nullopt;
  return static_cast<int>(found - std::begin(units));
}

struct memory_attributes : scaled_attributes {
  bool set(std::string_view key, std::string_view value) {
    if (selects(key, "target_unit")) return set_target_unit(find_unit(value));
    if (selects(key, "base_unit")) return set_base_unit(find_unit(value));
    return set_number_form(key, value);
  }
};

}  // namespace

std::optional<scaled_value> scale_memory(const types::variant& value, std::string_view attrs) {
  memory_attributes attributes;
  if (!read_attributes(attrs, attributes)) return std::nullopt;
  const auto as_integer = [](const types::variant& size) -> std::uint64_t { return size.as_uint64(); };
  auto result = scale_by(value, attributes, last_unit, as_integer);
  if (result) result->unit = units[result->unit_index];
  return result;
}

bool append_memory(std::string& text, const types::variant& value, std::string_view attrs) {
  return append_number(text, scale_memory(value, attrs));
}

bool append_memory_unit(std::string& text, const types::variant& value, std::string_view attrs) {
  return append_unit(text, scale_memory(value, attrs));
}

strings::ustring8 format_memory(const types::variant& value, std::string_view attrs,
                                strings::ustring8& unit) {
  return number_and_unit(scale_memory(value, attrs), unit);
}

}  // namespace ORVA_NAMESPACE::i18n::_private
