#include "orva/config/internal/scaled_decimal.hpp"

#include <limits>

namespace ORVA_NAMESPACE::config::_private {

namespace {

constexpr std::uint64_t greatest = std::numeric_limits<std::uint64_t>::max();

}  // namespace

std::size_t scaled_decimal::read_digits(std::string_view text) {
  *this = {};
  const std::size_t integer_length = digit_count(text);
  if (integer_length == 0) return 0;
  read_integer(text.substr(0, integer_length));
  std::string_view rest = text.substr(integer_length);
  if (!rest.starts_with('.')) return integer_length;
  rest.remove_prefix(1);
  const std::size_t fraction_length = digit_count(rest);
  if (fraction_length == 0) return integer_length;
  read_fraction(rest.substr(0, fraction_length));
  return integer_length + 1 + fraction_length;
}

void scaled_decimal::read_integer(std::string_view digits) {
  for (const char unit : digits) {
    const auto digit = static_cast<std::uint64_t>(unit - '0');
    fits_ = fits_ && integer_ <= (greatest - digit) / 10;
    if (!fits_) return;
    integer_ = integer_ * 10 + digit;
  }
}

void scaled_decimal::read_fraction(std::string_view digits) {
  digits = digits.substr(0, digits.find_last_not_of('0') + 1);
  has_more_digits_ = digits.size() > max_fraction_digits;
  digits = digits.substr(0, max_fraction_digits);
  fraction_length_ = digits.size();
  for (std::size_t i = 0; i < digits.size(); ++i) fraction_[i] = static_cast<unsigned char>(digits[i] - '0');
}

scaled_decimal::product scaled_decimal::times(std::uint64_t unit) const {
  // From the last digit to the first: what is carried out of the first one is the whole part. Nine units and
  // a carry below one unit fit into 64 bits.
  std::uint64_t carry = 0;
  bool is_whole = !has_more_digits_;
  for (std::size_t i = fraction_length_; i > 0; --i) {
    const std::uint64_t sum = fraction_[i - 1] * unit + carry;
    is_whole = is_whole && sum % 10 == 0;
    carry = sum / 10;
  }
  if (!fits_ || integer_ > (greatest - carry) / unit) return {greatest, false, is_whole};
  return {integer_ * unit + carry, true, is_whole};
}

}  // namespace ORVA_NAMESPACE::config::_private
