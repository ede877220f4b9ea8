#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <sstream>
#include <string>
#include <system_error>
#include <type_traits>

#include "orva/generic/convert/str_to_x.hpp"

namespace ORVA_NAMESPACE::generic::convert {

namespace {

/// The definition of all readers: the value that a stream of this locale extracts.
template <typename Floating>
Floating read_from_stream(std::string_view text, const std::locale& locale) {
  std::stringstream stream{std::string(text)};
  stream.imbue(locale);
  Floating value = 0;
  stream >> value;
  return stream.fail() ? Floating{0} : value;
}

// In the classic locale the rules of a stream are fixed, and no stream is needed. A stream collects the
// longest run of units that may be the beginning of a number, and fails if the whole run is not a number:
// "12e" is not read as 12.

constexpr bool is_space(char unit) { return unit == ' ' || (unit >= '\t' && unit <= '\r'); }
constexpr bool is_digit(char unit) { return unit >= '0' && unit <= '9'; }
constexpr bool is_sign(char unit) { return unit == '-' || unit == '+'; }

const char* skip_spaces(const char* at, const char* end) {
  while (at != end && is_space(*at)) ++at;
  return at;
}

const char* skip_digits(const char* at, const char* end) {
  while (at != end && is_digit(*at)) ++at;
  return at;
}

/// The end of the run that a stream collects. `at` is after the sign.
const char* end_of_run(const char* at, const char* end) {
  const char* const begin = at;
  at = skip_digits(at, end);
  bool has_digits = at != begin;
  if (at != end && *at == '.') {
    const char* const fraction = ++at;
    at = skip_digits(at, end);
    has_digits = has_digits || at != fraction;
  }
  if (!has_digits || at == end || (*at != 'e' && *at != 'E')) return at;
  if (++at != end && is_sign(*at)) ++at;
  return skip_digits(at, end);
}

/// Whether a `long double` represents integers of 64 bits and the powers of ten below exactly. Then their
/// quotient is rounded once, and is the `long double` nearest to the number.
constexpr bool has_exact_numbers = std::numeric_limits<long double>::digits == 64;

constexpr auto exact_powers = [] {
  std::array<long double, 28> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

/// Appends the digits at `at` to an integer.
const char* read_digits(const char* at, const char* end, std::uint64_t& value) {
  for (; at != end && is_digit(*at); ++at) value = value * 10 + static_cast<std::uint64_t>(*at - '0');
  return at;
}

/// Reads a run without a sign if it is short enough to be exact. False: it is too long, or is not a
/// number.
bool read_exact(const char* at, const char* end, long double& value) {
  constexpr std::ptrdiff_t longest = std::numeric_limits<std::uint64_t>::digits10;
  if (!has_exact_numbers || end - at > longest || at == end) return false;
  std::uint64_t digits = 0;
  at = read_digits(at, end, digits);
  std::ptrdiff_t scale = 0;
  if (at != end && *at == '.') {
    const char* const fraction = ++at;
    at = read_digits(at, end, digits);
    scale = at - fraction;
  }
  const bool is_whole_run = at == end && is_digit(end[-1]);
  if (is_whole_run) value = static_cast<long double>(digits) / exact_powers[static_cast<std::size_t>(scale)];
  return is_whole_run;
}

/// Whether `from_chars` reads a `long double` with its full precision. Some standard libraries read a
/// `double`.
bool from_chars_reads_long_double() {
  static const bool reads = [] {
    constexpr std::string_view text = "1e-5";
    long double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value == 1e-5L;
  }();
  return reads;
}

/// The digits of a number without leading zeros, and the power of ten by which they are multiplied.
struct digits_with_power {
  std::string digits;
  std::int64_t power = 0;

  /// Stores only as many digits as can affect the value. Of further digits it matters only whether one is not
  /// 0, and the last stored digit records that. Some runtimes need quadratic time for the number of digits.
  void take(char digit) {
    // More digits than a `long double`, or the middle between two of them, has.
    constexpr std::size_t max_digits = 12'000;
    if (digits.empty() && digit == '0') return;
    if (digits.size() < max_digits) {
      digits += digit;
      return;
    }
    ++power;
    if (digit != '0' && digits.back() == '0') digits.back() = '1';
  }

  std::string text() const {
    // Beyond this every number is zero or too large. Runtimes do not accept every exponent.
    constexpr std::int64_t limit = 19'999;
    if (digits.empty()) return "0";
    return digits + 'e' + std::to_string(std::clamp(power, -limit, limit));
  }
};

/// The exponent at the end of a number, limited so that sums with it cannot overflow.
std::int64_t exponent_at(const char* at, const char* end) {
  constexpr std::int64_t limit = std::int64_t{1} << 59;
  const bool is_negative = *at == '-';
  std::int64_t value = 0;
  for (at += is_sign(*at); at != end && value < limit; ++at) value = value * 10 + (*at - '0');
  value = std::min(value, limit);
  return is_negative ? -value : value;
}

/// The number of a run as a text of limited length.
std::string shortened(const char* at, const char* end) {
  digits_with_power number;
  for (; at != end && is_digit(*at); ++at) number.take(*at);
  if (at != end && *at == '.') {
    for (++at; at != end && is_digit(*at); ++at, --number.power) number.take(*at);
  }
  if (at != end) number.power += exponent_at(at + 1, end);
  return number.text();
}

/// The value that a stream extracts from a whole run, which begins after the sign. A run that ends in the
/// letter or sign of its exponent, or has no digits, is not a number.
template <typename Floating>
Floating read_run_from_stream(const char* at, const char* end, bool is_negative) {
  const bool is_number = at != end && (is_digit(end[-1]) || (end[-1] == '.' && end - at > 1));
  if (!is_number) return 0;
  return read_from_stream<Floating>((is_negative ? "-" : "") + shortened(at, end), std::locale::classic());
}

template <typename Floating>
Floating read_classic(std::string_view text) {
  const char* const end = text.data() + text.size();
  const char* const begin = skip_spaces(text.data(), end);
  const char* const unsigned_begin = begin != end && is_sign(*begin) ? begin + 1 : begin;
  const char* const run_end = end_of_run(unsigned_begin, end);
  const char* const number = unsigned_begin != begin && *begin == '+' ? unsigned_begin : begin;
  Floating value = 0;
  if constexpr (std::is_same_v<Floating, long double>) {
    if (read_exact(unsigned_begin, run_end, value)) return *begin == '-' ? -value : value;
    if (!from_chars_reads_long_double())
      return read_run_from_stream<Floating>(unsigned_begin, run_end, number != unsigned_begin);
  }
  const auto [read_to, error] = std::from_chars(number, run_end, value);
  // A stream distinguishes a number that is too large, which fails, from one that is too small, which is a
  // zero with its sign.
  if (error == std::errc::result_out_of_range)
    return read_run_from_stream<Floating>(unsigned_begin, run_end, number != unsigned_begin);
  return error == std::errc{} && read_to == run_end ? value : Floating{0};
}

template <typename Floating>
Floating read(std::string_view text, const std::locale& locale) {
  if (locale == std::locale::classic()) return read_classic<Floating>(text);
  return read_from_stream<Floating>(text, locale);
}

}  // namespace

float str_to_float(std::string_view text) { return str_to_float(text, std::locale()); }
float str_to_float(std::string_view text, const std::locale& locale) { return read<float>(text, locale); }

double str_to_double(std::string_view text) { return str_to_double(text, std::locale()); }
double str_to_double(std::string_view text, const std::locale& locale) { return read<double>(text, locale); }

long double str_to_long_double(std::string_view text) { return str_to_long_double(text, std::locale()); }
long double str_to_long_double(std::string_view text, const std::locale& locale) {
  return read<long double>(text, locale);
}

}  // namespace ORVA_NAMESPACE::generic::convert
