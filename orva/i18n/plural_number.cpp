#include "orva/i18n/plural_number.hpp"

#include <algorithm>

namespace ORVA_NAMESPACE::i18n {

namespace {

bool is_digit(char unit) { return unit >= '0' && unit <= '9'; }

/// Takes the digits at the beginning off the text.
std::string_view take_digits(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), is_digit);
  const auto digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(digits.size());
  return digits;
}

bool take(std::string_view& text, std::string_view units) {
  if (text.empty() || units.find(text.front()) == units.npos) return false;
  text.remove_prefix(1);
  return true;
}

/// Rules compare with numbers below `large`, and take remainders by powers of ten that divide it.
class digits_value {
 public:
  void add(char digit) {
    value_ = value_ * 10 + static_cast<std::uint64_t>(digit - '0');
    if (value_ >= 2 * large) value_ = large + value_ % large;
  }
  void add(std::string_view digits) {
    for (const char digit : digits) add(digit);
  }
  std::uint64_t get() const { return value_; }

 private:
  static constexpr std::uint64_t large = 100'000'000'000'000'000;

  std::uint64_t value_ = 0;
};

std::uint64_t value_of(std::string_view digits) {
  digits_value value;
  value.add(digits);
  return value.get();
}

}  // namespace

std::optional<plural_number> plural_number::read(std::string_view text) noexcept {
  take(text, "+-");
  const std::string_view whole = take_digits(text);
  if (whole.empty()) return std::nullopt;
  std::string_view fraction;
  if (take(text, ".")) {
    fraction = take_digits(text);
    if (fraction.empty()) return std::nullopt;
  }
  plural_number number(0);
  if (take(text, "ce")) {
    const std::string_view exponent = take_digits(text);
    if (exponent.empty() || exponent.size() > 2) return std::nullopt;
    number.exponent_ = static_cast<std::uint32_t>(value_of(exponent));
  }
  if (!text.empty()) return std::nullopt;

  // The power of ten moves the point.
  digits_value integer;
  integer.add(whole);
  const std::size_t moved = std::min<std::size_t>(number.exponent_, fraction.size());
  integer.add(fraction.substr(0, moved));
  for (std::size_t zeros = number.exponent_ - moved; zeros > 0; --zeros) integer.add('0');
  fraction.remove_prefix(moved);

  number.integer_ = integer.get();
  number.fraction_length_ = fraction.size();
  number.fraction_ = value_of(fraction);
  number.trimmed_fraction_ = value_of(fraction.substr(0, fraction.find_last_not_of('0') + 1));
  return number;
}

}  // namespace ORVA_NAMESPACE::i18n
