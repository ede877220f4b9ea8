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

struct si_prefix {
  std::string_view short_form;
  std::string_view long_form;
};

constexpr si_prefix prefixes[] = {
    {"a", "atto"},  {"f", "femto"}, {"p", "pico"}, {"n", "nano"},  {"mc", "micro"},
    {"m", "milli"}, {"", ""},       {"k", "kilo"}, {"M", "mega"},  {"G", "giga"},
    {"T", "tera"},  {"P", "peta"},  {"E", "exa"},  {"Z", "zetta"}, {"Y", "yotta"},
};
constexpr int first_unit = -6;

/// Scaling without a target unit stops at tera.
constexpr int tera = 4;

/// The power of 1000 of a unit, or nothing.
std::optional<int> find_unit(std::string_view name) {
  // A letter is compared before the words, which may be shortened: "m" is milli, not a prefix of "mc".
  const auto found = std::find_if(std::begin(prefixes), std::end(prefixes),
                                  [&](const si_prefix& prefix) { return name == prefix.short_form; });
  if (found != std::end(prefixes)) return first_unit + static_cast<int>(found - std::begin(prefixes));
  if (selects(name, "base")) return 0;
  return std::nullopt;
}

const si_prefix& prefix_of(int unit) { return prefixes[unit - first_unit]; }

struct metric_attributes : scaled_attributes {
  bool short_form = true;

  bool set(std::string_view key, std::string_view value) {
    if (selects(key, "base_unit")) return set_base_unit(find_unit(value));
    if (selects(key, "target_unit")) return set_target_unit(find_unit(value));
    if (selects(key, "short_form")) {
      short_form = to_flag(value);
      return true;
    }
    return set_number_form(key, value);
  }
};

}  // namespace

std::optional<scaled_value> scale_metric(const types::variant& value, std::string_view attrs) {
  metric_attributes attributes;
  // The default of three decimals holds only without any attributes.
  if (attrs.empty()) attributes.precision = {"3", 3};
  if (!read_attributes(attrs, attributes)) return std::nullopt;
  const auto as_integer = [](const types::variant& quantity) -> std::int64_t { return quantity.as_int64(); };
  auto result = scale_by(value, attributes, tera, as_integer);
  if (!result) return result;
  const si_prefix& prefix = prefix_of(result->unit_index);
  result->unit = attributes.short_form ? prefix.short_form : prefix.long_form;
  return result;
}

bool append_metric(std::string& text, const types::variant& value, std::string_view attrs) {
  return append_number(text, scale_metric(value, attrs));
}

bool append_metric_unit(std::string& text, const types::variant& value, std::string_view attrs) {
  return append_unit(text, scale_metric(value, attrs));
}

strings::ustring8 format_metric(const types::variant& value, std::string_view attrs,
                                strings::ustring8& unit) {
  return number_and_unit(scale_metric(value, attrs), unit);
}

}  // namespace ORVA_NAMESPACE::i18n::_private
