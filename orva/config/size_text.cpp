#include "orva/config/size_text.hpp"

#include <string>

#include "orva/config/internal/quantity_finding.hpp"
#include "orva/config/internal/scaled_decimal.hpp"

namespace ORVA_NAMESPACE::config {

namespace {

constexpr std::string_view prefixes = "KMGTPE";

constexpr char upper_case(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

constexpr bool is_letter(char unit) { return upper_case(unit) >= 'A' && upper_case(unit) <= 'Z'; }

constexpr std::uint64_t power(std::uint64_t base, std::size_t exponent) {
  std::uint64_t result = 1;
  while (exponent-- > 0) result *= base;
  return result;
}

struct unit_match {
  std::uint64_t bytes = 1;
  /// 0 if there is no unit.
  std::size_t length = 0;
};

/// Whether the text has `letters`, in upper case, at `position`.
bool has_letters(std::string_view text, std::size_t position, std::string_view letters) {
  if (text.size() - position < letters.size()) return false;
  for (std::size_t i = 0; i < letters.size(); ++i) {
    if (upper_case(text[position + i]) != letters[i]) return false;
  }
  return true;
}

unit_match longest_unit(std::string_view text) {
  if (has_letters(text, 0, "B")) return {1, 1};
  const auto prefix = text.empty() ? prefixes.npos : prefixes.find(upper_case(text[0]));
  if (prefix == prefixes.npos) return {};
  if (has_letters(text, 1, "IB")) return {power(1024, prefix + 1), 3};
  if (has_letters(text, 1, "B")) return {power(1000, prefix + 1), 2};
  return {power(1024, prefix + 1), 1};
}

unit_match unit_at(std::string_view text) {
  const unit_match found = longest_unit(text);
  const bool goes_on = found.length < text.size() && is_letter(text[found.length]);
  return goes_on ? unit_match{} : found;
}

}  // namespace

read_size_result read_size(std::string_view text) noexcept {
  _private::scaled_decimal number;
  std::size_t length = number.read_digits(text);
  if (length == 0) return {0, 0, size_error::no_size};
  const std::size_t blanks = _private::blank_count(text.substr(length));
  const unit_match unit = unit_at(text.substr(length + blanks));
  if (unit.length != 0) length += blanks + unit.length;
  const auto [value, fits, is_whole] = number.times(unit.bytes);
  if (!fits) return {value, length, size_error::too_large};
  return {value, length, is_whole ? size_error::none : size_error::not_whole};
}

diagnostics::finding describe(const read_size_result& result, std::string_view text, std::string_view file) {
  constexpr std::string_view errors[] = {"", "no_size", "too_large", "not_whole"};
  return _private::quantity_finding("size", errors[static_cast<std::size_t>(result.error)], text,
                                    result.length, file);
}

std::optional<std::uint64_t> parse_size(std::string_view text) noexcept {
  const auto [value, length, error] = read_size(text);
  if (error != size_error::none || length != text.size()) return std::nullopt;
  return value;
}

strings::ustring8 write_size(std::uint64_t bytes) {
  const auto in_units = [bytes](std::uint64_t base, std::string_view ending) -> std::string {
    for (std::size_t i = prefixes.size(); bytes != 0 && i > 0; --i) {
      const std::uint64_t unit = power(base, i);
      if (bytes % unit != 0) continue;
      const char prefix = base == 1000 && i == 1 ? 'k' : prefixes[i - 1];
      return std::to_string(bytes / unit) + ' ' + prefix + std::string(ending);
    }
    return {};
  };
  if (std::string binary = in_units(1024, "iB"); !binary.empty()) return binary;
  if (std::string decimal = in_units(1000, "B"); !decimal.empty()) return decimal;
  return std::to_string(bytes) + " B";
}

}  // namespace ORVA_NAMESPACE::config
