#include "orva/system/date_time/iso8601.hpp"

#include "orva/system/date_time/calendar.hpp"

namespace ORVA_NAMESPACE::system::date_time {

namespace {

constexpr time_duration of_minutes(int count) { return {0, 0, 0, 60000LL * count}; }

// --- Readers ---

bool is_digit(char byte) { return byte >= '0' && byte <= '9'; }

struct limits {
  unsigned int least;
  unsigned int greatest;
};

/// Reads a text from left to right until something is wrong: then each step returns false, and the position
/// stays there.
class scanner {
 public:
  explicit scanner(std::string_view text) : text_(text) {}

  std::size_t position() const { return position_; }
  iso8601_error error() const { return error_; }
  bool is_at(char byte) const { return position_ < text_.size() && text_[position_] == byte; }

  bool fail_at(std::size_t position, iso8601_error error) {
    position_ = position;
    error_ = error;
    return false;
  }

  /// Passes the byte if it is one that may be here.
  bool expect(bool is_valid, iso8601_error error) {
    if (position_ == text_.size()) return fail_at(position_, iso8601_error::ends_early);
    if (!is_valid) return fail_at(position_, error);
    ++position_;
    return true;
  }

  bool read_separator(char separator) { return expect(is_at(separator), iso8601_error::no_separator); }

  /// A number with exactly `digits` digits.
  template <int digits>
  bool read_field(limits valid, iso8601_error error, unsigned int& value) {
    const std::size_t first = position_;
    value = 0;
    for (int i = 0; i < digits; ++i) {
      if (!read_digit(value)) return false;
    }
    if (value < valid.least || value > valid.greatest) return fail_at(first, error);
    return true;
  }

  /// The digits after the point as milliseconds, rounded down.
  bool read_fraction(unsigned int& milliseconds, bool& is_rounded) {
    milliseconds = 0;
    if (!read_digit(milliseconds)) return false;
    for (int i = 0; i < 2; ++i) {
      milliseconds *= 10;
      if (next_is_digit()) milliseconds += next_digit();
    }
    while (next_is_digit()) is_rounded |= next_digit() != 0;
    return true;
  }

 private:
  bool next_is_digit() const { return position_ < text_.size() && is_digit(text_[position_]); }
  unsigned int next_digit() { return static_cast<unsigned int>(text_[position_++] - '0'); }

  /// Appends a digit to a number.
  bool read_digit(unsigned int& value) {
    if (position_ == text_.size()) return fail_at(position_, iso8601_error::ends_early);
    if (!next_is_digit()) return fail_at(position_, iso8601_error::no_digit);
    value = 10 * value + next_digit();
    return true;
  }

  std::string_view text_;
  std::size_t position_ = 0;
  iso8601_error error_ = iso8601_error::none;
};

bool scan_date(scanner& input, date& value) {
  unsigned int year = 0;
  unsigned int month = 0;
  unsigned int day = 0;
  if (!input.read_field<4>({min_year, max_year}, iso8601_error::bad_year, year)) return false;
  if (!input.read_separator('-')) return false;
  if (!input.read_field<2>({1, 12}, iso8601_error::bad_month, month)) return false;
  if (!input.read_separator('-')) return false;
  const unsigned int last = date(date::max_days_in_month, month, year).day();
  if (!input.read_field<2>({1, last}, iso8601_error::bad_day, day)) return false;
  value = date(day, month, year);
  return true;
}

/// What a time of day has beside its value.
struct time_notes {
  std::size_t second_position = 0;
  bool is_rounded = false;
  bool is_leap_second = false;
};

bool scan_time(scanner& input, time& value, time_notes& notes) {
  unsigned int hour = 0;
  unsigned int minute = 0;
  unsigned int second = 0;
  unsigned int millisecond = 0;
  if (!input.read_field<2>({0, 23}, iso8601_error::bad_hour, hour)) return false;
  if (!input.read_separator(':')) return false;
  if (!input.read_field<2>({0, 59}, iso8601_error::bad_minute, minute)) return false;
  if (!input.read_separator(':')) return false;
  notes.second_position = input.position();
  if (!input.read_field<2>({0, 60}, iso8601_error::bad_second, second)) return false;
  if (input.is_at('.')) {
    input.read_separator('.');
    if (!input.read_fraction(millisecond, notes.is_rounded)) return false;
  }
  notes.is_leap_second = second == 60;
  value = time(hour, minute, notes.is_leap_second ? 59 : second, millisecond);
  return true;
}

bool scan_date_time(scanner& input, date_time_t& value, time_notes& notes) {
  if (!scan_date(input, value.date())) return false;
  const bool is_separator = input.is_at('T') || input.is_at('t') || input.is_at(' ');
  return input.expect(is_separator, iso8601_error::no_separator) && scan_time(input, value.time(), notes);
}

/// Minutes ahead of UTC.
bool scan_offset(scanner& input, int& offset) {
  const bool is_utc = input.is_at('Z') || input.is_at('z');
  const bool is_behind = input.is_at('-');
  const bool is_ahead = input.is_at('+');
  if (!input.expect(is_utc || is_behind || is_ahead, iso8601_error::no_offset)) return false;
  if (is_utc) return true;
  unsigned int hours = 0;
  unsigned int minutes = 0;
  if (!input.read_field<2>({0, 23}, iso8601_error::bad_hour, hours)) return false;
  if (!input.read_separator(':')) return false;
  if (!input.read_field<2>({0, 59}, iso8601_error::bad_minute, minutes)) return false;
  offset = static_cast<int>(60 * hours + minutes);
  if (is_behind) offset = -offset;
  return true;
}

bool scan_timestamp(scanner& input, timestamp& value, time_notes& notes) {
  if (!scan_date_time(input, value.utc, notes)) return false;
  const std::size_t offset_position = input.position();
  if (!scan_offset(input, value.offset)) return false;
  if (value.offset == 0) return true;
  const auto utc = subtract_time(value.utc, of_minutes(value.offset));
  if (!utc) return input.fail_at(offset_position, iso8601_error::bad_year);
  value.utc = *utc;
  return true;
}

// Where a leap second can be, in UTC.
bool can_be_leap(const time& value) { return value.hour() == 23 && value.minute() == 59; }
bool can_be_leap(const date_time_t& value) {
  const date last(date::max_days_in_month, value.month(), value.year());
  return can_be_leap(value.time()) && value.day() == last.day();
}
bool can_be_leap(const timestamp& value) { return can_be_leap(value.utc); }

template <typename Value>
iso8601_result<Value> read_with_time(std::string_view text, bool (*scan)(scanner&, Value&, time_notes&)) {
  scanner input(text);
  iso8601_result<Value> result;
  time_notes notes;
  bool is_valid = scan(input, result.value, notes);
  if (is_valid && notes.is_leap_second && !can_be_leap(result.value)) {
    is_valid = input.fail_at(notes.second_position, iso8601_error::bad_second);
  }
  if (is_valid) {
    result.is_rounded = notes.is_rounded;
    result.is_leap_second = notes.is_leap_second;
  } else {
    result.value = Value();
  }
  result.count = input.position();
  result.error = input.error();
  return result;
}

template <typename Value>
std::optional<Value> exactly(const iso8601_result<Value>& result, std::string_view text) {
  if (result.error != iso8601_error::none || result.count != text.size()) return std::nullopt;
  if (result.is_rounded || result.is_leap_second) return std::nullopt;
  return result.value;
}

// --- Writers ---

void append(iso8601_text& text, char byte) { text.bytes[text.size++] = byte; }

/// REQUIRES: `number` has at most `digits` digits.
void append(iso8601_text& text, unsigned int number, std::size_t digits) {
  for (std::size_t i = digits; i-- > 0; number /= 10) {
    text.bytes[text.size + i] = static_cast<char>('0' + number % 10);
  }
  text.size += digits;
}

/// REQUIRES: the date is valid.
void append(iso8601_text& text, const date& day) {
  append(text, day.year(), 4);
  append(text, '-');
  append(text, day.month(), 2);
  append(text, '-');
  append(text, day.day(), 2);
}

void append(iso8601_text& text, const time& time_of_day) {
  append(text, static_cast<unsigned int>(time_of_day.hour()), 2);
  append(text, ':');
  append(text, static_cast<unsigned int>(time_of_day.minute()), 2);
  append(text, ':');
  append(text, static_cast<unsigned int>(time_of_day.second()), 2);
  append(text, '.');
  append(text, static_cast<unsigned int>(time_of_day.millisecond()), 3);
}

/// REQUIRES: -1439 to 1439.
void append_offset(iso8601_text& text, int offset) {
  if (offset == 0) return append(text, 'Z');
  const auto distance = static_cast<unsigned int>(offset < 0 ? -offset : offset);
  append(text, offset < 0 ? '-' : '+');
  append(text, distance / 60, 2);
  append(text, ':');
  append(text, distance % 60, 2);
}

// --- Findings ---

const char* code_of(iso8601_error error) {
  switch (error) {
    case iso8601_error::none:
      return "";
    case iso8601_error::ends_early:
      return "date.ends_early";
    case iso8601_error::no_digit:
      return "date.no_digit";
    case iso8601_error::no_separator:
      return "date.no_separator";
    case iso8601_error::no_offset:
      return "date.no_offset";
    case iso8601_error::bad_month:
      return "date.bad_month";
    case iso8601_error::bad_day:
      return "date.bad_day";
    case iso8601_error::bad_hour:
      return "date.bad_hour";
    case iso8601_error::bad_minute:
      return "date.bad_minute";
    case iso8601_error::bad_second:
      return "date.bad_second";
    case iso8601_error::bad_year:
      return "date.bad_year";
  }
  return "";
}

}  // namespace

diagnostics::finding _private::describe(const iso8601_reading& read, std::string_view text,
                                        std::string_view file) {
  const auto found = [&](diagnostics::severity level, const char* code, std::size_t offset) {
    return diagnostics::finding{
        level, code, strings::ustring8(file), diagnostics::place_of(text, offset), {}};
  };
  using enum diagnostics::severity;
  if (read.error != iso8601_error::none) return found(error, code_of(read.error), read.count);
  if (read.count < text.size()) return found(error, "date.rest", read.count);
  if (read.is_leap_second) return found(warning, "date.leap_second", 0);
  if (read.is_rounded) return found(warning, "date.rounded", 0);
  return {note, {}, strings::ustring8(file), {}, {}};
}

iso8601_result<date> read_date(std::string_view text) {
  scanner input(text);
  iso8601_result<date> result;
  if (!scan_date(input, result.value)) result.error = input.error();  // the value is unchanged then
  result.count = input.position();
  return result;
}

iso8601_result<time> read_time(std::string_view text) { return read_with_time<time>(text, scan_time); }
iso8601_result<date_time_t> read_date_time(std::string_view text) {
  return read_with_time<date_time_t>(text, scan_date_time);
}
iso8601_result<timestamp> read_timestamp(std::string_view text) {
  return read_with_time<timestamp>(text, scan_timestamp);
}

std::optional<date> parse_date(std::string_view text) { return exactly(read_date(text), text); }
std::optional<time> parse_time(std::string_view text) { return exactly(read_time(text), text); }
std::optional<date_time_t> parse_date_time(std::string_view text) {
  return exactly(read_date_time(text), text);
}
std::optional<timestamp> parse_timestamp(std::string_view text) {
  return exactly(read_timestamp(text), text);
}

std::optional<iso8601_text> write_date(const date& day) {
  if (!is_valid(day)) return std::nullopt;
  iso8601_text text;
  append(text, day);
  return text;
}

iso8601_text write_time(const time& time_of_day) {
  iso8601_text text;
  append(text, time_of_day);
  return text;
}

std::optional<iso8601_text> write_date_time(const date_time_t& moment) {
  if (!is_valid(moment)) return std::nullopt;
  iso8601_text text;
  append(text, moment.date());
  append(text, 'T');
  append(text, moment.time());
  return text;
}

std::optional<iso8601_text> write_timestamp(const timestamp& moment) {
  constexpr int greatest_offset = 23 * 60 + 59;
  if (moment.offset < -greatest_offset || moment.offset > greatest_offset) return std::nullopt;
  const auto local = add_time(moment.utc, of_minutes(moment.offset));
  if (!local) return std::nullopt;
  std::optional<iso8601_text> text = write_date_time(*local);
  append_offset(*text, moment.offset);
  return text;
}

}  // namespace ORVA_NAMESPACE::system::date_time
