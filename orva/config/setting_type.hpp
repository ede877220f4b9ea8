/// `setting_type`: what values a declared setting takes.
///
///     flag()                          yes or no
///     integer()                       any `int`; integer<std::int64_t>() for more
///     integer_between(1, 64)          both limits are allowed
///     number(), number_between(0, 1)  a finite floating value
///     text()                          any text
///     one_of({"fast", "small"})       one of these words
///     file_path()                     any text but the empty one
///     byte_size()                     "10 MiB", as config/size_text.hpp reads it
///     duration()                      "1h30m", as config/duration_text.hpp reads it
///     list_of(integer())              any number of these
///
/// How each is written, and as what `settings::get` returns it:
///
///     type         text                                                          type of the value
///     flag         true, yes, on, 1 or false, no, off, 0, in any case            bool
///     integer      decimal digits and a sign, or 0x and digits; 010 is ten       an integer with room for all
///     number       as `generic::convert::parse_number` reads it                  double
///     text, path   all of it                                                     std::string, ustring8
///     one_of       exactly the word                                              std::string, ustring8
///     byte_size    as `parse_size` reads it                                      an integer of 64 bits
///     duration     as `parse_duration` reads it                                  a duration, or double: seconds
///
/// A type is a plain value. A wrong type is an error of the program: an empty range, no word or the same word
/// twice, a comma in a word, a list of lists or flags throw `exceptions::invalid_argument_value`.
#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <string_view>
#include <vector>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

enum class value_kind { flag, integer, number, text, choice, path, size, duration };

/// Both limits belong to it.
template <typename Number>
struct value_range {
  Number min = std::numeric_limits<Number>::lowest();
  Number max = std::numeric_limits<Number>::max();

  constexpr bool contains(Number value) const { return min <= value && value <= max; }
  bool operator==(const value_range&) const = default;
};

class ORVA_API setting_type {
 public:
  [[nodiscard]] value_kind kind() const noexcept { return kind_; }
  [[nodiscard]] bool is_list() const noexcept { return is_list_; }
  /// Of an integer.
  [[nodiscard]] const value_range<std::int64_t>& integers() const noexcept { return integers_; }
  /// Of a number.
  [[nodiscard]] const value_range<double>& numbers() const noexcept { return numbers_; }
  /// The words of a choice.
  [[nodiscard]] const std::vector<strings::ustring8>& choices() const noexcept { return choices_; }

  bool operator==(const setting_type&) const = default;

 private:
  explicit setting_type(value_kind kind) : kind_(kind) {}

  friend ORVA_API setting_type flag();
  friend ORVA_API setting_type integer_between(std::int64_t min, std::int64_t max);
  friend ORVA_API setting_type number_between(double min, double max);
  friend ORVA_API setting_type text();
  friend ORVA_API setting_type one_of(std::vector<strings::ustring8> words);
  friend ORVA_API setting_type file_path();
  friend ORVA_API setting_type byte_size();
  friend ORVA_API setting_type duration();
  friend ORVA_API setting_type list_of(setting_type element);

  value_kind kind_;
  bool is_list_ = false;
  value_range<std::int64_t> integers_;
  value_range<double> numbers_;
  std::vector<strings::ustring8> choices_;
};

[[nodiscard]] ORVA_API setting_type flag();
[[nodiscard]] ORVA_API setting_type integer_between(std::int64_t min, std::int64_t max);
[[nodiscard]] ORVA_API setting_type number_between(double min, double max);
[[nodiscard]] ORVA_API setting_type text();
[[nodiscard]] ORVA_API setting_type one_of(std::vector<strings::ustring8> words);
[[nodiscard]] ORVA_API setting_type file_path();
[[nodiscard]] ORVA_API setting_type byte_size();
[[nodiscard]] ORVA_API setting_type duration();
[[nodiscard]] ORVA_API setting_type list_of(setting_type element);

/// Every integer that an `Integer` has.
template <std::signed_integral Integer = int>
[[nodiscard]] setting_type integer() {
  return integer_between(std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max());
}

/// Every finite number.
[[nodiscard]] inline setting_type number() {
  return number_between(std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max());
}

}  // namespace ORVA_NAMESPACE::config
