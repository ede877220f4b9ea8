#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>

#include "orva/i18n/formatters.hpp"
#include "orva/i18n/internal/append_formatted.hpp"
#include "orva/i18n/internal/double_attributes.hpp"
#include "orva/platform/decimal_point.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

namespace {

using limits = std::numeric_limits<double>;

/// No double has more decimals than this, all further ones are zeros.
constexpr int most_decimals = limits::digits - limits::min_exponent;
static_assert(most_decimals == 1074);

/// A value with up to three decimals, reckoned in integers: with its 53 bits times 1000 a value still fits
/// into 64, and what stands behind the last decimal can be held against a half exactly. That is what measures
/// and durations are as a rule. Null, and nothing is written: the value is too small or too large, or no
/// number.
char* write_exactly(double value, int precision, char* at) {
  static constexpr std::uint64_t powers[] = {1, 10, 100, 1000};
  constexpr double smallest = 0x1p-11;
  constexpr double bound = 0x1p52;
  const double magnitude = std::abs(value);
  if (precision >= static_cast<int>(std::size(powers)) || !(magnitude >= smallest && magnitude < bound))
    return nullptr;

  int exponent = 0;
  const double fraction = std::frexp(magnitude, &exponent);
  const auto bits = static_cast<std::uint64_t>(std::ldexp(fraction, limits::digits));
  const int shift = limits::digits - exponent;
  const std::uint64_t power = powers[precision];
  const std::uint64_t scaled = bits * power;
  const std::uint64_t half = std::uint64_t{1} << (shift - 1);
  const std::uint64_t rest = scaled & (2 * half - 1);
  std::uint64_t digits = scaled >> shift;
  // A half goes to the even neighbour.
  if (rest > half || (rest == half && digits % 2 != 0)) ++digits;

  if (std::signbit(value)) *at++ = '-';
  at = std::to_chars(at, at + std::numeric_limits<std::uint64_t>::digits10 + 1, digits / power).ptr;
  if (precision == 0) return at;
  *at = '.';
  std::uint64_t decimals = digits % power;
  for (char* digit = at + precision; digit != at; --digit, decimals /= 10) {
    *digit = static_cast<char>('0' + decimals % 10);
  }
  return at + precision + 1;
}

/// The digits of one value, with room for the longest.
class number_text {
 public:
  number_text(double value, std::chars_format form, int precision) {
    char* end = form == std::chars_format::fixed ? write_exactly(value, precision, text_) : nullptr;
    if (end == nullptr) {
      end = std::to_chars(text_, text_ + most_digits, value, form, std::min(precision, most_decimals)).ptr;
    }
    size_ = static_cast<std::size_t>(end - text_);
    if (form == std::chars_format::scientific) widen_exponent();
    localise();
  }

  std::string_view view() const { return {text_, size_}; }

 private:
  static constexpr std::size_t most_digits = 1 + (limits::max_exponent10 + 1) + 1 + most_decimals;
  static constexpr std::size_t longest_point = 16;

  void insert(std::size_t position, std::string_view piece, std::size_t replaced) {
    std::memmove(text_ + position + piece.size(), text_ + position + replaced, size_ - position - replaced);
    std::memcpy(text_ + position, piece.data(), piece.size());
    size_ += piece.size() - replaced;
  }

  /// Exponents have three digits, as the field rules expect them.
  void widen_exponent() {
    if (size_ > 4 && text_[size_ - 4] == 'e') insert(size_ - 2, "0", 0);
  }

  void localise() {
    const std::string_view point = platform::decimal_point();
    if (point == "." || point.size() > longest_point) return;
    const std::size_t position = view().find('.');
    if (position != std::string_view::npos) insert(position, point, 1);
  }

  char text_[most_digits + 1 + longest_point];
  std::size_t size_;
};

/// Adds what the C runtime prints into a buffer of limited length for a field of that width.
void print(std::string& text, double value, std::chars_format form, const double_attributes& attributes) {
  const number_text number(value, form, attributes.precision);
  const auto length = static_cast<std::int64_t>(number.view().size());
  const auto most = static_cast<std::int64_t>(max_double_length);
  const auto blanks_before = std::clamp<std::int64_t>(attributes.fieldsize - length, 0, most);
  const auto blanks_behind = std::clamp<std::int64_t>(-attributes.fieldsize - length, 0, most);

  const std::size_t begin = text.size();
  text.append(static_cast<std::size_t>(blanks_before), ' ');
  text.append(number.view().substr(0, max_double_length));
  text.append(static_cast<std::size_t>(blanks_behind), ' ');
  if (text.size() - begin > max_double_length) text.resize(begin + max_double_length);
}

/// Drops the first digit of the exponent. The field may be a blank too narrow then, or padded behind the
/// number, so that the test counts all that stands behind the `e`.
void shorten_exponent(std::string& text, std::size_t begin) {
  const std::size_t exponent = text.find('e', begin);
  if (exponent != text.npos && text.size() - exponent >= 5) text.erase(exponent + 2, 1);
}

}  // namespace

void append_double_text(std::string& text, double value, const double_attributes& attributes) {
  const std::size_t begin = text.size();
  const auto length = [&] { return static_cast<std::int64_t>(text.size() - begin); };
  print(text, value, std::chars_format::fixed, attributes);
  if (attributes.fieldsize == 0 || length() <= attributes.fieldsize) return;

  text.resize(begin);
  print(text, value, std::chars_format::scientific, attributes);
  shorten_exponent(text, begin);
  if (length() < attributes.fieldsize) text.insert(begin, 1, ' ');
}

bool append_double(std::string& text, double value, std::string_view attrs) {
  double_attributes attributes;
  if (!read_attributes(attrs, attributes) || !attributes.is_valid()) return false;
  append_double_text(text, value, attributes);
  return true;
}

strings::ustring8 format_double(double value, std::string_view attrs) {
  return text_or_refused(append_double, value, attrs);
}

}  // namespace ORVA_NAMESPACE::i18n::_private
