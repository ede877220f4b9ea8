#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "orva/i18n/formatters.hpp"
#include "orva/i18n/internal/append_formatted.hpp"
#include "orva/i18n/internal/double_attributes.hpp"
#include "orva/i18n/internal/format_attributes.hpp"
#include "orva/internal/number_text/integer_text.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

namespace {

struct duration_attributes {
  std::string_view precision = "2";
  bool short_form = false;

  bool set(std::string_view key, std::string_view value) {
    if (selects(key, "precision")) {
      precision = value;
      return true;
    }
    if (!selects(key, "short_form")) return false;
    short_form = to_flag(value);
    return true;
  }
};

struct duration_labels {
  std::string_view days, hours, minutes, seconds;
};
constexpr duration_labels short_labels{"d ", "h ", "m ", "s"};
constexpr duration_labels long_labels{" dy ", " hr ", " min ", " sec"};

constexpr std::int64_t minute = 60;
constexpr std::int64_t hour = 60 * minute;
constexpr std::int64_t day = 24 * hour;

/// Without the fraction. What does not fit, NaN included, becomes the most negative number.
std::int64_t whole_seconds(double seconds) {
  constexpr double limit = 0x1p63;
  const bool fits = seconds >= -limit && seconds < limit;
  return fits ? static_cast<std::int64_t>(seconds) : std::numeric_limits<std::int64_t>::min();
}

double fraction_of(double seconds) {
  double whole = 0;
  return std::modf(seconds, &whole);
}

/// Adds what `format_double` returns for the attribute "precision" alone. It refuses a negative precision,
/// and an empty one, which would be the last field of its attribute string and so a missing value.
void append_seconds(std::string& text, double seconds, std::string_view precision) {
  const double_attributes attributes{.precision = to_number(precision)};
  if (precision.empty() || !attributes.is_valid()) {
    text.append(refused_value);
  } else {
    append_double_text(text, seconds, attributes);
  }
}

/// Adds days, hours and minutes, in this order.
class part_writer {
 public:
  explicit part_writer(std::string& text) : text_(text), begin_(text.size()) {}

  /// A part that is zero is left out unless a larger part was added. The number shown has 32 bits: days
  /// beyond them wrap.
  void add(std::int64_t value, std::string_view label) {
    if (value == 0 && text_.size() == begin_) return;
    char digits[internal::integer_text_size];
    text_.append(digits, internal::write_integer(static_cast<types::int32>(value), digits)).append(label);
  }

 private:
  std::string& text_;
  std::size_t begin_;
};

}  // namespace

bool append_duration(std::string& text, double seconds, std::string_view attrs) {
  duration_attributes attributes;
  if (!read_attributes(attrs, attributes)) return false;
  const std::int64_t whole = whole_seconds(seconds);
  const double rest = static_cast<double>(whole % minute) + fraction_of(seconds);
  const duration_labels& labels = attributes.short_form ? short_labels : long_labels;

  part_writer writer(text);
  writer.add(whole / day, labels.days);
  writer.add(whole % day / hour, labels.hours);
  writer.add(whole % hour / minute, labels.minutes);
  append_seconds(text, rest, attributes.precision);
  text.append(labels.seconds);
  return true;
}

strings::ustring8 format_duration(double seconds, std::string_view attrs) {
  return text_or_refused(append_duration, seconds, attrs);
}

}  // namespace ORVA_NAMESPACE::i18n::_private
