/// Sizes as people write them: "10 MiB", "1.5 GB", "4096".
///
///     read_size("10 MiB, or less")      =>  value 10485760, length 6, error none
///     parse_size("1.5 GB")              =>  1500000000
///     parse_size("10 apples")           =>  nullopt: not wholly a size
///     write_size(10485760)              =>  "10 MiB"
///
/// `read_size` reads a size at the front of a text, as `generic::convert::read_number` reads a number, and
/// `parse_size` a text that is wholly a size. A size is a number of bytes, and is exact: no floating value is
/// involved. Reading does not throw, and allocates nothing. Any thread may call.
///
///     text          value, length, error
///     4096          =>  4096, 4, none                        without a unit: bytes
///     512 B         =>  512, 5, none
///     4K, 4 KiB     =>  4096, 2, none and 4096, 5, none      one letter is a power of 1024, as in GNU's tools
///     4 kB, 4KB     =>  4000, 4, none and 4000, 3, none      kB, MB, GB, TB, PB, EB: powers of 1000
///     4 kib         =>  4096, 5, none                        any case of letters
///     1.5 KiB       =>  1536, 7, none
///     0.1 KiB       =>  102, 7, not_whole                    102.4 bytes
///     16 EiB        =>  18446744073709551615, 6, too_large
///     4 Kx          =>  4, 1, none                           no unit: a letter follows it
///     -1, .5        =>  0, 0, no_size                        no sign; a digit before the point
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "orva/diagnostics/finding.hpp"
#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

/// What is wrong with a size that was read.
enum class size_error {
  /// The text begins with a size.
  none,
  /// The text does not begin with a digit.
  no_size,
  /// The size is not below 2 to the 64 bytes.
  too_large,
  /// The size is not a whole number of bytes.
  not_whole,
};

struct read_size_result {
  /// The number of bytes. For `too_large` the greatest number, for `not_whole` the whole part, for `no_size`
  /// 0.
  std::uint64_t value;
  /// How many bytes of text the size has, its unit included; the text after it begins there.
  std::size_t length;
  size_error error;

  friend bool operator==(const read_size_result&, const read_size_result&) = default;
};

/// Reads the size at the front of a text: digits, perhaps with a point and digits after it, then blanks or
/// none, and a unit or none. Time is in proportion to the text that is read.
///
/// Inverse: `write_size`.
[[nodiscard]] ORVA_API read_size_result read_size(std::string_view text) noexcept;

/// Why a text is not wholly a size. It has line and column, and is a note without a code if nothing is wrong.
///
///     describe(read_size("0.1 KiB"), "0.1 KiB", "a.txt")
///         =>  a.txt:1:1: error: The size 0.1 KiB is not a whole number of bytes. [size.not_whole]
///
/// The codes are "size." and the name of the error, and "size.rest" where other text follows the size.
/// docs/diagnostic_codes.md explains each. `text` is what was read, and `file` the name that the user knows.
[[nodiscard]] ORVA_API diagnostics::finding describe(const read_size_result& result, std::string_view text,
                                                     std::string_view file = {});

/// The size that the whole text is, and nothing if it is not one, or is not exact.
[[nodiscard]] ORVA_API std::optional<std::uint64_t> parse_size(std::string_view text) noexcept;

/// The size in the greatest unit in which it is whole: KiB to EiB, else kB to EB for multiples of 1000, else
/// B. `parse_size` reads the same number back.
///
///     1536             =>  "1536 B"
///     1024, 1048576    =>  "1 KiB", "1 MiB"
///     1500000          =>  "1500 kB"
///     0                =>  "0 B"
[[nodiscard]] ORVA_API strings::ustring8 write_size(std::uint64_t bytes);

}  // namespace ORVA_NAMESPACE::config
