/// `read_size` and `read_duration` with any bytes, compared with arithmetic on decimal digits, and what they
/// read written and read again.
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include "fuzz/config/fuzz_input.hpp"
#include "fuzz/require.hpp"
#include "orva/config/duration_text.hpp"
#include "orva/config/size_text.hpp"
#include "tests/support/reference_quantity.hpp"

namespace {

using namespace ORVA_NAMESPACE::config;
using namespace orva_test;
using orva_fuzz::require;

/// The number and the unit at the front of a text that was accepted.
struct written_quantity {
  std::string integer;
  std::string fraction;
  std::string unit;
  std::size_t length = 0;
};

bool is_digit(char unit) { return unit >= '0' && unit <= '9'; }

std::string digits_at(std::string_view text, std::size_t position) {
  std::size_t end = position;
  while (end < text.size() && is_digit(text[end])) ++end;
  return std::string(text.substr(position, end - position));
}

written_quantity quantity_at(std::string_view text) {
  written_quantity found;
  found.integer = digits_at(text, 0);
  found.length = found.integer.size();
  if (text.substr(found.length).starts_with('.')) found.fraction = digits_at(text, found.length + 1);
  if (!found.fraction.empty()) found.length += 1 + found.fraction.size();
  while (found.length < text.size() && text[found.length] == ' ') ++found.length;
  while (found.length < text.size() && text[found.length] != ' ' && !is_digit(text[found.length])) {
    found.unit += text[found.length++];
  }
  return found;
}

std::uint64_t bytes_of(std::string unit) {
  for (char& letter : unit) letter = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 32) : letter;
  if (unit.empty() || unit == "B") return 1;
  const std::uint64_t base = unit.size() == 2 ? 1000 : 1024;
  std::uint64_t bytes = 1;
  const auto power = std::string_view("KMGTPE").find(unit[0]);
  require(power != std::string_view::npos);
  for (std::size_t i = 0; i <= power; ++i) bytes *= base;
  return bytes;
}

void check_size(std::string_view text) {
  const auto [value, length, error] = read_size(text);
  require(length <= text.size());
  require((length == 0) == (error == size_error::no_size));
  require((length == 0) == (text.empty() || !is_digit(text[0])));
  require(parse_size(text).has_value() == (error == size_error::none && length == text.size()));
  require(parse_size(text).has_value() == describe(read_size(text), text).code.empty());
  require(parse_size(write_size(value)) == value);
  if (length == 0) return;
  const auto written = quantity_at(text.substr(0, length));
  require(written.length == length);
  const auto expected = quantity_of(written.integer, written.fraction, bytes_of(written.unit));
  const std::string greatest = std::to_string(std::numeric_limits<std::uint64_t>::max());
  const bool fits = decimal_at_most(expected.whole, greatest);
  require(fits == (error != size_error::too_large));
  require(std::to_string(value) == (fits ? expected.whole : greatest));
  if (fits) require(expected.is_whole == (error == size_error::none));
}

std::uint64_t nanoseconds_of(std::string_view unit) {
  constexpr std::uint64_t second = 1'000'000'000;
  if (unit == "w") return 604800 * second;
  if (unit == "d") return 86400 * second;
  if (unit == "h") return 3600 * second;
  if (unit == "m" || unit == "min") return 60 * second;
  if (unit == "s" || unit == "sec") return second;
  if (unit == "ms") return 1'000'000;
  if (unit == "us" || unit == "\xC2\xB5s" || unit == "\xCE\xBCs") return 1'000;
  require(unit == "ns");
  return 1;
}

void check_duration(std::string_view text) {
  const auto [value, length, error] = read_duration(text);
  require(length <= text.size());
  require((length == 0) == (error == duration_error::no_duration));
  require(parse_duration(text).has_value() == (error == duration_error::none && length == text.size()));
  require(parse_duration(text).has_value() == describe(read_duration(text), text).code.empty());
  require(parse_duration(write_duration(value)) == value);
  std::string sum = "0";
  bool is_whole = true;
  std::string_view rest = text.substr(0, length);
  std::uint64_t last = std::numeric_limits<std::uint64_t>::max();
  while (!rest.empty()) {
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    const auto written = quantity_at(rest);
    rest.remove_prefix(written.length);
    if (written.unit.empty()) {
      require(written.integer.find_first_not_of('0') == std::string::npos && rest.empty());
      continue;
    }
    const std::uint64_t unit = nanoseconds_of(written.unit);
    require(unit < last);
    last = unit;
    const auto part = quantity_of(written.integer, written.fraction, unit);
    sum = decimal_sum(sum, part.whole);
    is_whole = is_whole && part.is_whole;
  }
  sum.erase(0, std::min(sum.find_first_not_of('0'), sum.size() - 1));
  const std::string greatest = std::to_string(std::chrono::nanoseconds::max().count());
  const bool fits = decimal_at_most(sum, greatest);
  require(fits == (error != duration_error::too_large));
  require(std::to_string(value.count()) == (fits ? sum : greatest));
  if (fits && length != 0) require(is_whole == (error == duration_error::none));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 160) return 0;  // the reference takes quadratic time
  // A buffer of the exact size, so that sanitizers detect a read outside it.
  const auto units = std::make_unique<char[]>(size);
  std::copy_n(data, size, reinterpret_cast<std::uint8_t*>(units.get()));
  const std::string_view text(units.get(), size);
  check_size(text);
  check_duration(text);
  return 0;
}
