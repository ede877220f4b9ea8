// The operators << of the classes of this folder: ISO 8601, in one field of the stream and without its
// locale.
#include <charconv>
#include <cstddef>
#include <ostream>
#include <string_view>

#include "orva/system/date_time/date_time.hpp"

namespace ORVA_NAMESPACE::system::date_time::_private {

namespace {

constexpr long long magnitude(long long number) { return number < 0 ? -number : number; }

/// Built in place: the fields have at most 10 digits and a sign, and hours of a duration 13 digits.
class text_of_fields {
 public:
  void append(char unit) { units_[size_++] = unit; }

  /// At least `width` digits, after a minus sign where there is one.
  void append(long long number, std::ptrdiff_t width) {
    if (number < 0) append('-');
    char digits[20];
    const std::string_view text(digits, std::to_chars(digits, digits + sizeof digits, magnitude(number)).ptr);
    for (auto length = std::ssize(text); length < width; ++length) append('0');
    for (const char digit : text) append(digit);
  }

  /// A part of a duration, which is left out if it is 0.
  void append_unit(long long number, char unit) {
    if (number == 0) return;
    append(number, 1);
    append(unit);
  }

  template <typename Date>
  void append_date(const Date& value) {
    // ISO 8601 marks years of more than four digits by a sign.
    if (value.year() > 9999) append('+');
    append(value.year(), 4);
    append('-');
    append(value.month(), 2);
    append('-');
    append(value.day(), 2);
  }

  template <typename Time>
  void append_time(const Time& value) {
    append(value.hour(), 2);
    append(':');
    append(value.minute(), 2);
    append(':');
    append(value.second(), 2);
    append('.');
    append(value.millisecond(), 3);
  }

  std::string_view view() const { return {units_, size_}; }

 private:
  char units_[96];
  std::size_t size_ = 0;
};

}  // namespace

std::ostream& write(std::ostream& stream, const basic_date& value) {
  text_of_fields text;
  text.append_date(value);
  return stream << text.view();
}

std::ostream& write(std::ostream& stream, const date& value) {
  text_of_fields text;
  text.append_date(value);
  return stream << text.view();
}

std::ostream& write(std::ostream& stream, const basic_time& value) {
  text_of_fields text;
  text.append_time(value);
  return stream << text.view();
}

std::ostream& write(std::ostream& stream, const time& value) {
  text_of_fields text;
  text.append_time(value);
  return stream << text.view();
}

std::ostream& write(std::ostream& stream, const date_time_t& value) {
  text_of_fields text;
  text.append_date(value.date());
  text.append('T');
  text.append_time(value.time());
  return stream << text.view();
}

std::ostream& write(std::ostream& stream, const date_duration& value) {
  text_of_fields text;
  if (value.days() < 0) text.append('-');
  text.append('P');
  text.append(magnitude(value.days()), 1);
  text.append('D');
  return stream << text.view();
}

std::ostream& write(std::ostream& stream, const time_duration& value) {
  text_of_fields text;
  if (value.is_negative()) text.append('-');
  text.append('P');
  text.append('T');
  // The parts are negated one by one: the whole number of milliseconds cannot always be.
  text.append_unit(magnitude(value.total_complete_hours()), 'H');
  text.append_unit(magnitude(value.minute()), 'M');
  const long long seconds = magnitude(value.second()), milliseconds = magnitude(value.millisecond());
  if (milliseconds != 0) {
    text.append(seconds, 1);
    text.append('.');
    text.append(milliseconds, 3);
    text.append('S');
  } else if (seconds != 0 || value.total_milliseconds() == 0) {
    text.append(seconds, 1);
    text.append('S');
  }
  return stream << text.view();
}

}  // namespace ORVA_NAMESPACE::system::date_time::_private
