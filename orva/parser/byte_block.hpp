/// Eight bytes of text looked at in one step, for scanners that skip what is of no interest to them.
///
/// Internal: not installed. The answers are about the block as a whole; a scanner that stops at a block goes on byte
/// by byte to find the place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ORVA_2_18::parser::_private {

class byte_block {
 public:
  static constexpr std::size_t size = 8;

  /// REQUIRES: eight bytes can be read from `bytes` on.
  explicit byte_block(const char* bytes) noexcept { std::memcpy(&bytes_, bytes, size); }

  bool holds(char wanted) const noexcept {
    const std::uint64_t zero_where_equal = bytes_ ^ (ones * static_cast<unsigned char>(wanted));
    return ((zero_where_equal - ones) & ~zero_where_equal & high_bits) != 0;
  }

  /// True if two neighbours in the block are spaces or control characters.
  bool holds_two_blanks_in_a_row() const noexcept {
    const std::uint64_t above_space = ((bytes_ & ~high_bits) + ones * (0x7F - ' ')) | bytes_;
    const std::uint64_t blanks = ~above_space & high_bits;
    return (blanks & (blanks >> 8)) != 0;
  }

 private:
  static constexpr std::uint64_t ones = 0x0101010101010101;
  static constexpr std::uint64_t high_bits = 0x8080808080808080;

  std::uint64_t bytes_;
};

}  // namespace ORVA_2_18::parser::_private
