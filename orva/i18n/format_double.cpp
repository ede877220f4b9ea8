#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "orva/i18n/formatters.hpp"
#include "orva/i18n/internal/append_formatted.hpp"
#include "orva/i18n/internal/double_attributes.hpp"
#include "orva/internal/number_text/floating_text.hpp"
#include "orva/platform/decimal_point.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

namespace {

enum class notation { fixed, scientific };

/// The digits of one value, with room for the longest.
class number_text {
 public:
  number_text(double value, notation form, int precision) {
    // All further decimals are zeros, and the text is cut before them.
    precision = std::min(precision, internal::max_decimals);
    const bool is_fixed = form == notation::fixed;
    const char* const end = is_fixed ? internal::write_fixed(value, precision, text_)
                                     : internal::write_scientific(value, precision, text_);
    size_ = static_cast<std::size_t>(end - text_);
    if (!is_fixed) widen_exponent();
    localise();
  }

  std::string_view view() const { return {text_, size_}; }

 private:
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

  char text_[internal::fixed_text_size + 1 + longest_point];
  std::size_t size_;
};

/// Adds what the C runtime prints into a buffer of limited length for a field of that width.
void print(std::string& text, double value, notation form, const double_attributes& attributes) {
  const number_text number(value, form, attributes.precision);
  const auto length = static_cast<std::int64_t>(number.view().size());
  const auto most = static_cast<std::int64_t>(max_double_length);
  const auto blanks_before = std::clamp<std::int64_t>(attributes.fieldsize - length, 0, most);
  const auto blanks_after = std::clamp<std::int64_t>(-attributes.fieldsize - length, 0, most);

  const std::size_t begin = text.size();
  text.append(static_cast<std::size_t>(blanks_before), ' ');
  text.append(number.view().substr(0, max_double_length));
  text.append(static_cast<std::size_t>(blanks_after), ' ');
  if (text.size() - begin > max_double_length) text.resize(begin + max_double_length);
}

/// Drops the first digit of the exponent. The field may then be a blank too narrow, or padded after the
/// number; the test counts everything after the `e`.
void shorten_exponent(std::string& text, std::size_t begin) {
  const std::size_t exponent = text.find('e', begin);
  if (exponent != text.npos && text.size() - exponent >= 5) text.erase(exponent + 2, 1);
}

}  // namespace

void append_double_text(std::string& text, double value, const double_attributes& attributes) {
  const std::size_t begin = text.size();
  const auto length = [&] { return static_cast<std::int64_t>(text.size() - begin); };
  print(text, value, notation::fixed, attributes);
  if (attributes.fieldsize == 0 || length() <= attributes.fieldsize) return;

  text.resize(begin);
  print(text, value, notation::scientific, attributes);
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
