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

/// What a floating text is by definition: the value that a stream of this locale extracts.
template <typename Floating>
Floating read_from_stream(std::string_view text, const std::locale& place) {
  std::stringstream stream{std::string(text)};
  stream.imbue(place);
  Floating value = 0;
  stream >> value;
  return stream.fail() ? Floating{0} : value;
}

// In the classic locale the stream's rules are fixed, and the number is read where it stands. A stream
// collects the longest run of units that might still become a number, and fails if the run as a whole is
// none: "12e" is no 12.

constexpr bool is_space(char unit) { return unit == ' ' || (unit >= '\t' && unit <= '\r'); }
constexpr bool is_figure(char unit) { return unit >= '0' && unit <= '9'; }
constexpr bool is_sign(char unit) { return unit == '-' || unit == '+'; }

const char* skip_spaces(const char* at, const char* end) {
  while (at != end && is_space(*at)) ++at;
  return at;
}

const char* skip_figures(const char* at, const char* end) {
  while (at != end && is_figure(*at)) ++at;
  return at;
}

/// The end of the run that a stream collects from `at`, which is behind the sign.
const char* end_of_run(const char* at, const char* end) {
  const char* const begin = at;
  at = skip_figures(at, end);
  bool has_figures = at != begin;
  if (at != end && *at == '.') {
    const char* const fraction = ++at;
    at = skip_figures(at, end);
    has_figures = has_figures || at != fraction;
  }
  if (!has_figures || at == end || (*at != 'e' && *at != 'E')) return at;
  if (++at != end && is_sign(*at)) ++at;
  return skip_figures(at, end);
}

/// Whether whole numbers of 64 bits and the powers of ten below are exact in a `long double`. Then their
/// product or quotient is rounded once, as the number itself is, and is the number.
constexpr bool has_exact_numbers = std::numeric_limits<long double>::digits == 64;

constexpr auto exact_powers = [] {
  std::array<long double, 28> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

/// Adds the figures at `at` to a whole number.
const char* read_figures(const char* at, const char* end, std::uint64_t& value) {
  for (; at != end && is_figure(*at); ++at) value = value * 10 + static_cast<std::uint64_t>(*at - '0');
  return at;
}

/// Reads a run without a sign that is short enough to be exact. False: it is not, or it is no number.
bool read_exact(const char* at, const char* end, long double& value) {
  constexpr std::ptrdiff_t longest = std::numeric_limits<std::uint64_t>::digits10;
  if (!has_exact_numbers || end - at > longest || at == end) return false;
  std::uint64_t digits = 0;
  at = read_figures(at, end, digits);
  std::ptrdiff_t scale = 0;
  if (at != end && *at == '.') {
    const char* const fraction = ++at;
    at = read_figures(at, end, digits);
    scale = at - fraction;
  }
  const bool is_whole_run = at == end && is_figure(end[-1]);
  if (is_whole_run) value = static_cast<long double>(digits) / exact_powers[static_cast<std::size_t>(scale)];
  return is_whole_run;
}

/// Whether `from_chars` reads a `long double` to its full width. Some standard libraries read a `double`.
bool from_chars_reads_long_double() {
  static const bool reads = [] {
    constexpr std::string_view text = "1e-5";
    long double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value == 1e-5L;
  }();
  return reads;
}

/// The figures of a number without the zeros in front, and the power of ten that they are to be multiplied
/// with.
struct scaled_figures {
  std::string figures;
  std::int64_t power = 0;

  /// Takes no more figures than can bear on the value: what is behind them counts only by not being zero, as
  /// the last one kept tells then. Some runtimes take time by the square of the number of figures.
  void take(char figure) {
    // More than any number of a `long double`, or the middle between two, has.
    constexpr std::size_t enough = 12'000;
    if (figures.empty() && figure == '0') return;
    if (figures.size() < enough) {
      figures += figure;
      return;
    }
    ++power;
    if (figure != '0' && figures.back() == '0') figures.back() = '1';
  }

  std::string text() const {
    // Beyond this every number is zero or too large; runtimes do not bear any exponent.
    constexpr std::int64_t furthest = 19'999;
    if (figures.empty()) return "0";
    return figures + 'e' + std::to_string(std::clamp(power, -furthest, furthest));
  }
};

/// The exponent that a number ends with, no further from zero than that sums of it cannot wrap.
std::int64_t exponent_at(const char* at, const char* end) {
  constexpr std::int64_t furthest = std::int64_t{1} << 59;
  const bool is_negative = *at == '-';
  std::int64_t value = 0;
  for (at += is_sign(*at); at != end && value < furthest; ++at) value = value * 10 + (*at - '0');
  value = std::min(value, furthest);
  return is_negative ? -value : value;
}

/// The same number as the run from `at`, in a few thousand units at most.
std::string shortened(const char* at, const char* end) {
  scaled_figures number;
  for (; at != end && is_figure(*at); ++at) number.take(*at);
  if (at != end && *at == '.') {
    for (++at; at != end && is_figure(*at); ++at, --number.power) number.take(*at);
  }
  if (at != end) number.power += exponent_at(at + 1, end);
  return number.text();
}

/// The value that a stream extracts from a whole run, which begins behind the sign. A run that ends in its
/// exponent's letter or sign, or has no figures, is none.
template <typename Floating>
Floating read_run_from_stream(const char* at, const char* end, bool is_negative) {
  const bool is_number = at != end && (is_figure(end[-1]) || (end[-1] == '.' && end - at > 1));
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
  // Too large fails in a stream, too small does not: it knows which, and that the zero keeps its sign.
  if (error == std::errc::result_out_of_range)
    return read_run_from_stream<Floating>(unsigned_begin, run_end, number != unsigned_begin);
  return error == std::errc{} && read_to == run_end ? value : Floating{0};
}

template <typename Floating>
Floating read(std::string_view text, const std::locale& place) {
  if (place == std::locale::classic()) return read_classic<Floating>(text);
  return read_from_stream<Floating>(text, place);
}

}  // namespace

float str_to_float(std::string_view text) { return str_to_float(text, std::locale()); }
float str_to_float(std::string_view text, const std::locale& place) { return read<float>(text, place); }

double str_to_double(std::string_view text) { return str_to_double(text, std::locale()); }
double str_to_double(std::string_view text, const std::locale& place) { return read<double>(text, place); }

long double str_to_long_double(std::string_view text) { return str_to_long_double(text, std::locale()); }
long double str_to_long_double(std::string_view text, const std::locale& place) {
  return read<long double>(text, place);
}

}  // namespace ORVA_NAMESPACE::generic::convert
