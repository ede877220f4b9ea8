/// Durations as people write them: "1h30m", "250ms", "1.5 s".
///
///     read_duration("1h30m later")      =>  value 5400 s, length 5, error none
///     parse_duration("1.5s")            =>  1500000000 ns
///     parse_duration("90")              =>  nullopt: no unit
///     write_duration(5400s)             =>  "1h30m"
///
/// `read_duration` reads a duration at the front of a text, as `generic::convert::read_number` reads a
/// number, and `parse_duration` a text that is wholly a duration. A duration is a number of nanoseconds, up
/// to 292 years, and is exact: no floating value is involved. Reading does not throw, and allocates nothing.
/// Any thread may call.
///
/// The units are w, d, h, m or min, s or sec, ms, us or µs, and ns, in lower case. A day has 24 hours.
///
///     text            value, length, error
///     1h30m           =>  5400 s, 5, none
///     1 h 30 min      =>  5400 s, 10, none            blanks before units, and between the parts
///     1.5h            =>  5400 s, 4, none
///     30m1h           =>  1800 s, 3, none             each unit is smaller than the one before
///     0               =>  0, 1, none                  only a zero needs no unit
///     90              =>  0, 0, no_duration
///     1hour           =>  0, 0, no_duration           a letter follows the unit
///     0.5ns           =>  0 ns, 5, too_fine
///     300000d         =>  9223372036854775807 ns, 7, too_large
///     -1s, .5s        =>  0, 0, no_duration           no sign; a digit before the point
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string_view>

#include "orva/diagnostics/finding.hpp"
#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

/// What is wrong with a duration that was read.
enum class duration_error {
  /// The text begins with a duration.
  none,
  /// The text does not begin with a number and a unit.
  no_duration,
  /// The duration is above the greatest number of nanoseconds.
  too_large,
  /// The duration is not a whole number of nanoseconds.
  too_fine,
};

struct read_duration_result {
  /// For `too_large` the greatest value, for `too_fine` the whole part, for `no_duration` 0.
  std::chrono::nanoseconds value;
  /// How many bytes of text the duration has; the text after it begins there. A duration out of range is read
  /// to its end.
  std::size_t length;
  duration_error error;

  friend bool operator==(const read_duration_result&, const read_duration_result&) = default;
};

/// Reads the duration at the front of a text. Time is in proportion to the text that is read.
///
/// Inverse: `write_duration`.
[[nodiscard]] ORVA_API read_duration_result read_duration(std::string_view text) noexcept;

/// Why a text is not wholly a duration. It has line and column, and is a note without a code if nothing is
/// wrong.
///
///     describe(read_duration("1h, 30m"), "1h, 30m", "a.txt")
///         =>  a.txt:1:3: error: Other text follows the duration 1h. [duration.rest]
///
/// The codes are "duration." and the name of the error, and "duration.rest" where other text follows the
/// duration. docs/diagnostic_codes.md explains each. `text` is what was read, and `file` the name that the
/// user knows.
[[nodiscard]] ORVA_API diagnostics::finding describe(const read_duration_result& result,
                                                     std::string_view text, std::string_view file = {});

/// The duration that the whole text is, and nothing if it is not one, or is not exact.
[[nodiscard]] ORVA_API std::optional<std::chrono::nanoseconds> parse_duration(std::string_view text) noexcept;

/// The duration in the units d, h, m, s, ms, us and ns. `parse_duration` reads the same value back, if it is
/// not negative; a negative one is written with a minus in front.
///
///     90 s          =>  "1m30s"
///     1500 ms       =>  "1s500ms"
///     0             =>  "0s"
[[nodiscard]] ORVA_API strings::ustring8 write_duration(std::chrono::nanoseconds duration);

}  // namespace ORVA_NAMESPACE::config
