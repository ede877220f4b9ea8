/// `plural_number`: a number as it is shown, which decides between the plural forms of a language.
///
///     plural_number(5)                        5
///     plural_number::read("1.50")             one and a half, shown with two digits after the point
///     plural_number::read("1.2c6")            1.2 million, shown as "1.2M"
///     plural_number::read("1,5")              std::nullopt
///
/// In English "1 hour" is right and "1.0 hour" is not, so a `double` is not enough: give the text of the
/// number as it is shown, in the plain form with a point. Signs do not count.
///
/// The members are the operands of UTS #35, part 3, "Plural Operand Meanings". Those of more than 17 digits
/// are replaced by a number of 18 digits that is in the same ranges of all rules.
#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <string_view>
#include <type_traits>

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::i18n {

/// A value; its functions never allocate.
class ORVA_API plural_number {
 public:
  template <std::integral Integer>
  requires(!std::same_as<Integer, bool>) constexpr plural_number(Integer number) noexcept
      : integer_(magnitude(number)) {}
  /// Read the text that is shown.
  plural_number(std::floating_point auto) = delete;
  plural_number(std::same_as<bool> auto) = delete;

  /// Reads `[+-]digits[.digits][c digits]`; `e` is the same as `c`, the power of ten in a compact form. Its
  /// digits are one or two. `std::nullopt` for any other text.
  [[nodiscard]] static std::optional<plural_number> read(std::string_view text) noexcept;

  /// i: the digits before the point.
  constexpr std::uint64_t integer() const noexcept { return integer_; }
  /// v: the number of digits after the point.
  constexpr std::uint64_t fraction_length() const noexcept { return fraction_length_; }
  /// f: the digits after the point, as a number.
  constexpr std::uint64_t fraction() const noexcept { return fraction_; }
  /// t: the same without zeros at the end.
  constexpr std::uint64_t trimmed_fraction() const noexcept { return trimmed_fraction_; }
  /// e: the power of ten of a compact form, or 0.
  constexpr std::uint32_t exponent() const noexcept { return exponent_; }

  friend constexpr bool operator==(const plural_number&, const plural_number&) = default;

 private:
  template <typename Integer>
  static constexpr std::uint64_t magnitude(Integer number) noexcept {
    const auto bits = static_cast<std::uint64_t>(number);
    if constexpr (std::is_signed_v<Integer>) {
      if (number < 0) return 0 - bits;
    }
    return bits;
  }

  std::uint64_t integer_ = 0;
  std::uint64_t fraction_length_ = 0;
  std::uint64_t fraction_ = 0;
  std::uint64_t trimmed_fraction_ = 0;
  std::uint32_t exponent_ = 0;
};

}  // namespace ORVA_NAMESPACE::i18n
