/// Reads dates and times in the forms of RFC 3339 by a pattern and `std::chrono`.
///
/// Slow on purpose. It first finds how far the text has the shape of its form, then checks the fields in that
/// part. The readers of `iso8601.hpp` are compared with it.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

#include "orva/system/date_time/iso8601.hpp"

namespace orva_test {

using ORVA_NAMESPACE::system::date_time::iso8601_error;

struct reference_reading {
  std::chrono::sys_time<std::chrono::milliseconds> utc{};
  std::chrono::minutes offset{};
  std::size_t count = 0;
  iso8601_error error = iso8601_error::none;
  bool is_rounded = false;
  bool is_leap_second = false;
};

/// How far a text has a shape, and the error there.
struct reference_shape {
  std::size_t size = 0;
  iso8601_error error = iso8601_error::none;
};

/// In a shape, 0 is a digit, T one of "Tt ", and any other byte itself.
inline reference_shape match_shape(std::string_view text, std::string_view shape) {
  for (std::size_t i = 0; i < shape.size(); ++i) {
    if (i == text.size()) return {i, iso8601_error::ends_early};
    const std::string_view digits = "0123456789";
    const std::string_view separators = "Tt ";
    if (shape[i] == '0') {
      if (digits.find(text[i]) == digits.npos) return {i, iso8601_error::no_digit};
    } else if (shape[i] == 'T') {
      if (separators.find(text[i]) == separators.npos) return {i, iso8601_error::no_separator};
    } else if (text[i] != shape[i]) {
      return {i, iso8601_error::no_separator};
    }
  }
  return {shape.size(), iso8601_error::none};
}

/// A reading in steps, each of which reads nothing after an error.
class reference_iso8601_reader {
 public:
  explicit reference_iso8601_reader(std::string_view text) : text_(text) {}

  reference_reading read(bool has_date, bool has_time, bool has_offset) {
    std::string shape = has_date ? "0000-00-00" : "";
    if (has_date && has_time) shape += 'T';
    if (has_time) shape += "00:00:00";
    const reference_shape found = match_shape(text_, shape);
    result_.count = found.size;
    result_.error = found.error;
    if (has_date) check_date();
    if (has_time) check_time(has_date ? 11 : 0);
    if (has_time) read_fraction();
    if (has_offset) read_offset();
    if (!has_error() && result_.is_leap_second) check_leap_second(has_date, has_date ? 17 : 6);
    return has_error() ? reference_reading{{}, {}, result_.count, result_.error, false, false} : result_;
  }

 private:
  bool has_error() const { return result_.error != iso8601_error::none; }
  bool has_matched(std::size_t end) const { return result_.count >= end; }
  int number(std::size_t first, std::size_t size) const {
    return std::stoi(std::string(text_.substr(first, size)));
  }

  /// An error in a field precedes the error that ended the shape, and what is after it no longer matches.
  void refuse_unless(bool is_valid, std::size_t position, iso8601_error error) {
    if (!is_valid) set_error(position, error);
  }

  void check_date() {
    using namespace std::chrono;
    if (has_matched(7)) refuse_unless(month(unsigned_at(5)).ok(), 5, iso8601_error::bad_month);
    if (!has_matched(10)) return;
    const year_month_day date = year(number(0, 4)) / month(unsigned_at(5)) / day(unsigned_at(8));
    refuse_unless(date.ok(), 8, iso8601_error::bad_day);
    if (date.ok()) result_.utc = sys_days(date);
  }

  void check_time(std::size_t start) {
    using namespace std::chrono;
    const struct {
      std::size_t offset;
      int greatest;
      iso8601_error error;
    } fields[] = {{0, 23, iso8601_error::bad_hour},
                  {3, 59, iso8601_error::bad_minute},
                  {6, 60, iso8601_error::bad_second}};
    for (const auto& field : fields) {
      const std::size_t first = start + field.offset;
      if (has_matched(first + 2)) refuse_unless(number(first, 2) <= field.greatest, first, field.error);
    }
    if (has_error()) return;
    const int second = number(start + 6, 2);
    result_.is_leap_second = second == 60;
    result_.utc += hours(number(start, 2)) + minutes(number(start + 3, 2));
    result_.utc += seconds(second == 60 ? 59 : second);
  }

  void read_fraction() {
    if (has_error() || text_.substr(result_.count, 1) != ".") return;
    const std::size_t first = result_.count + 1;
    const std::size_t end = std::min(text_.find_first_not_of("0123456789", first), text_.size());
    const std::string digits(text_.substr(first, end - first));
    result_.count = end;
    if (digits.empty()) {
      result_.error = end == text_.size() ? iso8601_error::ends_early : iso8601_error::no_digit;
      return;
    }
    const std::string padded = digits + "00";
    result_.utc += std::chrono::milliseconds(std::stoi(padded.substr(0, 3)));
    result_.is_rounded = digits.size() > 3 && digits.find_first_not_of('0', 3) != digits.npos;
  }

  void read_offset() {
    if (has_error()) return;
    const std::size_t first = result_.count;
    const std::string_view rest = text_.substr(first);
    if (rest.empty()) return set_error(first, iso8601_error::ends_early);
    if (rest[0] == 'Z' || rest[0] == 'z') {
      ++result_.count;
      return;
    }
    if (rest[0] != '+' && rest[0] != '-') return set_error(first, iso8601_error::no_offset);
    const reference_shape found = match_shape(rest.substr(1), "00:00");
    if (found.size >= 2 && number(first + 1, 2) > 23) return set_error(first + 1, iso8601_error::bad_hour);
    if (found.error != iso8601_error::none) return set_error(first + 1 + found.size, found.error);
    if (number(first + 4, 2) > 59) return set_error(first + 4, iso8601_error::bad_minute);
    const std::chrono::minutes distance(60 * number(first + 1, 2) + number(first + 4, 2));
    result_.offset = rest[0] == '-' ? -distance : distance;
    result_.utc -= result_.offset;
    result_.count = first + 6;
    const int year = int{date().year()};
    if (year < 0 || year > 9999) set_error(first, iso8601_error::bad_year);
  }

  void check_leap_second(bool has_date, std::size_t position) {
    using namespace std::chrono;
    const auto minute = floor<minutes>(result_.utc - floor<days>(result_.utc));
    const bool is_last_day = !has_date || date() == year_month_day(date().year() / date().month() / last);
    if (minute != hours(23) + minutes(59) || !is_last_day) set_error(position, iso8601_error::bad_second);
  }

  std::chrono::year_month_day date() const { return std::chrono::floor<std::chrono::days>(result_.utc); }
  unsigned int unsigned_at(std::size_t first) const { return static_cast<unsigned int>(number(first, 2)); }

  void set_error(std::size_t position, iso8601_error error) {
    result_.count = position;
    result_.error = error;
  }

  std::string_view text_;
  reference_reading result_;
};

}  // namespace orva_test
