#include "orva/config/duration_text.hpp"

#include <array>
#include <cstdint>
#include <limits>
#include <string>

#include "orva/config/internal/quantity_finding.hpp"
#include "orva/config/internal/scaled_decimal.hpp"

namespace ORVA_NAMESPACE::config {

namespace {

struct named_unit {
  std::string_view name;
  std::uint64_t nanoseconds;
  bool is_written = false;
};

constexpr std::uint64_t second = 1'000'000'000;

// From the greatest to the smallest.
constexpr std::array units{named_unit{"w", 604'800 * second},
                           named_unit{"d", 86'400 * second, true},
                           named_unit{"h", 3'600 * second, true},
                           named_unit{"m", 60 * second, true},
                           named_unit{"min", 60 * second},
                           named_unit{"s", second, true},
                           named_unit{"sec", second},
                           named_unit{"ms", 1'000'000, true},
                           named_unit{"us", 1'000, true},
                           named_unit{"\xC2\xB5s", 1'000},  // with the micro sign
                           named_unit{"\xCE\xBCs", 1'000},  // with the Greek letter
                           named_unit{"ns", 1, true}};

constexpr bool is_of_word(char unit) {
  return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') ||
         static_cast<unsigned char>(unit) >= 0x80;
}

/// The unit that is the whole word at the front of the text, or null.
const named_unit* unit_at(std::string_view text) {
  std::size_t length = 0;
  while (length < text.size() && is_of_word(text[length])) ++length;
  const std::string_view word = text.substr(0, length);
  for (const named_unit& unit : units) {
    if (unit.name == word) return &unit;
  }
  return nullptr;
}

/// One number with its unit. The length is 0 if the text begins with none.
struct duration_part {
  _private::scaled_decimal number;
  std::uint64_t unit = 0;
  std::size_t length = 0;
};

duration_part part_at(std::string_view text) {
  duration_part part;
  std::size_t length = part.number.read_digits(text);
  if (length == 0) return part;
  length += _private::blank_count(text.substr(length));
  const named_unit* const unit = unit_at(text.substr(length));
  if (unit == nullptr) return part;
  part.unit = unit->nanoseconds;
  part.length = length + unit->name.size();
  return part;
}

/// Adds parts, and remembers what was lost.
class duration_sum {
 public:
  void add(const duration_part& part) {
    const auto [value, fits, is_whole] = part.number.times(part.unit);
    fits_ = fits_ && fits && value <= greatest - sum_;
    is_whole_ = is_whole_ && is_whole;
    if (fits_) sum_ += value;
  }

  read_duration_result result(std::size_t length) const {
    if (!fits_) return {std::chrono::nanoseconds::max(), length, duration_error::too_large};
    return {std::chrono::nanoseconds(static_cast<std::int64_t>(sum_)), length,
            is_whole_ ? duration_error::none : duration_error::too_fine};
  }

 private:
  static constexpr std::uint64_t greatest = std::numeric_limits<std::int64_t>::max();
  std::uint64_t sum_ = 0;
  bool fits_ = true;
  bool is_whole_ = true;
};

/// A zero without a unit. A letter after it would be a unit that is not known.
read_duration_result read_bare_zero(std::string_view text) {
  _private::scaled_decimal number;
  const std::size_t length = number.read_digits(text);
  const std::size_t word = length + _private::blank_count(text.substr(length));
  if (length == 0 || !number.is_zero() || (word < text.size() && is_of_word(text[word]))) {
    return {{}, 0, duration_error::no_duration};
  }
  return {{}, length, duration_error::none};
}

}  // namespace

read_duration_result read_duration(std::string_view text) noexcept {
  duration_sum sum;
  std::size_t length = 0;
  std::uint64_t last_unit = std::numeric_limits<std::uint64_t>::max();
  for (std::size_t position = 0;;) {
    const duration_part part = part_at(text.substr(position));
    if (part.length == 0 || part.unit >= last_unit) break;
    sum.add(part);
    last_unit = part.unit;
    length = position + part.length;
    position = length + _private::blank_count(text.substr(length));
  }
  return length == 0 ? read_bare_zero(text) : sum.result(length);
}

diagnostics::finding describe(const read_duration_result& result, std::string_view text,
                              std::string_view file) {
  constexpr std::string_view errors[] = {"", "no_duration", "too_large", "too_fine"};
  return _private::quantity_finding("duration", errors[static_cast<std::size_t>(result.error)], text,
                                    result.length, file);
}

std::optional<std::chrono::nanoseconds> parse_duration(std::string_view text) noexcept {
  const auto [value, length, error] = read_duration(text);
  if (error != duration_error::none || length != text.size()) return std::nullopt;
  return value;
}

strings::ustring8 write_duration(std::chrono::nanoseconds duration) {
  const bool is_negative = duration.count() < 0;
  auto rest = static_cast<std::uint64_t>(duration.count());
  if (is_negative) rest = 0 - rest;
  if (rest == 0) return "0s";
  std::string text = is_negative ? "-" : "";
  for (const named_unit& unit : units) {
    if (!unit.is_written) continue;
    if (const std::uint64_t count = rest / unit.nanoseconds; count != 0)
      text.append(std::to_string(count)).append(unit.name);
    rest %= unit.nanoseconds;
  }
  return text;
}

}  // namespace ORVA_NAMESPACE::config
