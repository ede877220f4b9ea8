/// `byte_block`: eight bytes of text that are searched in one step, for scanners that skip plain text.
///
/// Internal: not installed. A search gives the set of places where a byte was found; sets are joined with |.
/// The first place of a set is exact. Places after it may be wrong: a borrow of the subtraction marks a byte
/// that was not searched for.
///
///     const byte_block block(text);
///     const auto ends = block.of('<') | block.of('&');
///     if (!ends.empty()) text += ends.first();
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::internal::xml {

class byte_block {
 public:
  static constexpr std::size_t size = 8;

  class places {
   public:
    explicit constexpr places(std::uint64_t high_bits_of_bytes) noexcept : bits_(high_bits_of_bytes) {}

    friend constexpr places operator|(places left, places right) noexcept {
      return places(left.bits_ | right.bits_);
    }

    constexpr bool empty() const noexcept { return bits_ == 0; }
    /// `size` if there is none.
    constexpr std::size_t first() const noexcept {
      return static_cast<std::size_t>(std::countr_zero(bits_)) / 8;
    }

   private:
    std::uint64_t bits_;
  };

  /// REQUIRES: eight bytes can be read from `bytes` on.
  explicit byte_block(const char* bytes) noexcept {
    std::memcpy(&bytes_, bytes, size);
    if constexpr (std::endian::native == std::endian::big) bytes_ = swapped(bytes_);
  }

  places of(char wanted) const noexcept {
    const std::uint64_t zero_where_equal = bytes_ ^ (ones * static_cast<unsigned char>(wanted));
    return places((zero_where_equal - ones) & ~zero_where_equal & high_bits);
  }

  /// Where a space or control character is followed by another one in the block.
  places of_two_blanks_in_a_row() const noexcept {
    const std::uint64_t above_space = ((bytes_ & ~high_bits) + ones * (0x7F - ' ')) | bytes_;
    const std::uint64_t blanks = ~above_space & high_bits;
    return places(blanks & (blanks >> 8));
  }

 private:
  static constexpr std::uint64_t ones = 0x0101010101010101;
  static constexpr std::uint64_t high_bits = 0x8080808080808080;

  static constexpr std::uint64_t swapped(std::uint64_t bytes) noexcept {
    std::uint64_t result = 0;
    for (std::size_t i = 0; i < size; ++i, bytes >>= 8) result = result << 8 | (bytes & 0xFF);
    return result;
  }

  // The first byte is the lowest.
  std::uint64_t bytes_;
};

}  // namespace ORVA_NAMESPACE::internal::xml
