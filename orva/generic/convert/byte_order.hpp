/// Numbers as bytes of a fixed width, for binary records of either byte order.
///
///     big_endian::uint32_to_bin_str(0x01020304)       =>  01 02 03 04
///     little_endian::uint32_to_bin_str(0x01020304)    =>  04 03 02 01
///     big_endian::bin_str_to_int32(00 00 00 07 FF)    =>  7              bytes after the width are ignored
///     big_endian::bin_str_to_int32(00 00 01)          =>  0              too short
///
/// Three namespaces hold the same sixteen functions: `big_endian`, `little_endian`, and `generic::convert`
/// itself for the order of the host. `int16_to_bin_str` and its siblings return a number as a byte string of
/// exactly its width; `bin_str_to_int16` and its siblings are the inverse. A byte string contains no mark of
/// its order or type. All functions are pure, and any thread may call them.
///
/// Only strings are measured. **A reader that is given a pointer reads as many bytes as the number has**: 2,
/// 4 or 8, with or without a terminator among them.
///
///     uint32_to_bin_str(0x01020304)                   =>  04 03 02 01    on a little-endian host
///     big_endian::double_to_bin_str(1.0)              =>  3F F0 00 00 00 00 00 00
///     big_endian::bin_str_to_int16(FF FE)             =>  -2
///     little_endian::bin_str_to_int16(FF FE)          =>  -257
///
/// Floating values are their IEEE 754 bit patterns, so that the bits of a NaN are kept. On 32-bit x86 a
/// reader may make a signalling NaN quiet, because functions return floating values in an x87 register.
///
/// Edge cases: docs/edges.md#numbers
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <limits>
#include <string>

#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::generic::convert {

/// The argument of a reader: a byte string, which reads as 0 if it is shorter than the number, or a pointer.
///
/// REQUIRES: at least as many bytes as the number has can be read at a pointer. They are not counted.
class bin_str_argument {
 public:
  bin_str_argument(const std::string& bytes) noexcept : data_(bytes.data()), size_(bytes.size()) {}
  bin_str_argument(const char* bytes) noexcept : data_(bytes), size_(unmeasured) {}

  const char* data() const noexcept { return data_; }
  /// The size of the string; for a pointer, more than any number has.
  std::size_t size() const noexcept { return size_; }

 private:
  static constexpr std::size_t unmeasured = std::numeric_limits<std::size_t>::max();

  const char* data_;
  std::size_t size_;
};

namespace _private {

template <typename Number>
using number_bytes = std::array<char, sizeof(Number)>;

/// Converts between memory and byte string, in either direction: reverses the bytes where the orders differ.
template <std::endian order, std::size_t width>
std::array<char, width> ordered(std::array<char, width> bytes) noexcept {
  if constexpr (order != std::endian::native) std::reverse(bytes.begin(), bytes.end());
  return bytes;
}

template <std::endian order, typename Number>
number_bytes<Number> to_bytes(const Number& value) noexcept {
  return ordered<order>(std::bit_cast<number_bytes<Number>>(value));
}

/// Reads a number from at most `available` bytes; a missing byte is zero.
template <typename Number, std::endian order>
Number read_bytes(const char* data, std::size_t available) noexcept {
  // A copy of constant length is one instruction; nearly every read is one.
  if (available >= sizeof(Number)) {
    number_bytes<Number> bytes;
    std::memcpy(bytes.data(), data, sizeof(Number));
    return std::bit_cast<Number>(ordered<order>(bytes));
  }
  number_bytes<Number> bytes{};
  std::copy_n(data, available, bytes.begin());
  return std::bit_cast<Number>(ordered<order>(bytes));
}

static_assert(std::numeric_limits<float>::is_iec559 && sizeof(float) == 4);
static_assert(std::numeric_limits<double>::is_iec559 && sizeof(double) == 8);

}  // namespace _private

/// The writer of every type and order.
template <std::endian order = std::endian::native, typename Number>
std::string to_bin_str(const Number& value) {
  const auto bytes = _private::to_bytes<order>(value);
  return std::string(bytes.data(), bytes.size());
}

/// The reader of every type and order. A string shorter than `required` bytes reads as 0. Bytes of the number
/// that a string of that length does not have are zero.
template <typename Number, std::endian order = std::endian::native, std::size_t required = sizeof(Number)>
Number from_bin_str(const bin_str_argument& bytes) noexcept {
  if (bytes.size() < required) return 0;
  return _private::read_bytes<Number, order>(bytes.data(), bytes.size());
}

// The functions by name are references to those two templates.

// In the order of the host, as the value is in memory.

inline constexpr auto& int16_to_bin_str = to_bin_str<std::endian::native, short>;
inline constexpr auto& int32_to_bin_str = to_bin_str<std::endian::native, types::int32>;
inline constexpr auto& int64_to_bin_str = to_bin_str<std::endian::native, long long>;
inline constexpr auto& uint16_to_bin_str = to_bin_str<std::endian::native, unsigned short>;
inline constexpr auto& uint32_to_bin_str = to_bin_str<std::endian::native, types::uint32>;
inline constexpr auto& uint64_to_bin_str = to_bin_str<std::endian::native, unsigned long long>;
inline constexpr auto& float_to_bin_str = to_bin_str<std::endian::native, float>;
inline constexpr auto& double_to_bin_str = to_bin_str<std::endian::native, double>;

inline constexpr auto& bin_str_to_int16 = from_bin_str<short, std::endian::native>;
inline constexpr auto& bin_str_to_int32 = from_bin_str<types::int32, std::endian::native>;
inline constexpr auto& bin_str_to_int64 = from_bin_str<long long, std::endian::native>;
inline constexpr auto& bin_str_to_uint16 = from_bin_str<unsigned short, std::endian::native>;
inline constexpr auto& bin_str_to_uint32 = from_bin_str<types::uint32, std::endian::native>;
inline constexpr auto& bin_str_to_uint64 = from_bin_str<unsigned long long, std::endian::native>;

// In this namespace a `float` requires a string of 8 bytes, and a `double` accepts one of 4. Programs that
// probe with short strings depend on it. Pointers are read as everywhere.
//
//     bin_str_to_float(00 00 80 3F)       =>  0.0     little_endian::bin_str_to_float returns 1.0
//     bin_str_to_double(00 00 F0 3F)      =>  the bits 00 00 F0 3F 00 00 00 00

inline constexpr auto& bin_str_to_float = from_bin_str<float, std::endian::native, sizeof(double)>;
inline constexpr auto& bin_str_to_double = from_bin_str<double, std::endian::native, sizeof(float)>;

/// Most significant byte first.
namespace big_endian {

inline constexpr auto order = std::endian::big;

inline constexpr auto& int16_to_bin_str = to_bin_str<order, short>;
inline constexpr auto& int32_to_bin_str = to_bin_str<order, types::int32>;
inline constexpr auto& int64_to_bin_str = to_bin_str<order, long long>;
inline constexpr auto& uint16_to_bin_str = to_bin_str<order, unsigned short>;
inline constexpr auto& uint32_to_bin_str = to_bin_str<order, types::uint32>;
inline constexpr auto& uint64_to_bin_str = to_bin_str<order, unsigned long long>;
inline constexpr auto& float_to_bin_str = to_bin_str<order, float>;
inline constexpr auto& double_to_bin_str = to_bin_str<order, double>;

inline constexpr auto& bin_str_to_int16 = from_bin_str<short, order>;
inline constexpr auto& bin_str_to_int32 = from_bin_str<types::int32, order>;
inline constexpr auto& bin_str_to_int64 = from_bin_str<long long, order>;
inline constexpr auto& bin_str_to_uint16 = from_bin_str<unsigned short, order>;
inline constexpr auto& bin_str_to_uint32 = from_bin_str<types::uint32, order>;
inline constexpr auto& bin_str_to_uint64 = from_bin_str<unsigned long long, order>;
inline constexpr auto& bin_str_to_float = from_bin_str<float, order>;
inline constexpr auto& bin_str_to_double = from_bin_str<double, order>;

}  // namespace big_endian

/// Least significant byte first.
namespace little_endian {

inline constexpr auto order = std::endian::little;

inline constexpr auto& int16_to_bin_str = to_bin_str<order, short>;
inline constexpr auto& int32_to_bin_str = to_bin_str<order, types::int32>;
inline constexpr auto& int64_to_bin_str = to_bin_str<order, long long>;
inline constexpr auto& uint16_to_bin_str = to_bin_str<order, unsigned short>;
inline constexpr auto& uint32_to_bin_str = to_bin_str<order, types::uint32>;
inline constexpr auto& uint64_to_bin_str = to_bin_str<order, unsigned long long>;
inline constexpr auto& float_to_bin_str = to_bin_str<order, float>;
inline constexpr auto& double_to_bin_str = to_bin_str<order, double>;

inline constexpr auto& bin_str_to_int16 = from_bin_str<short, order>;
inline constexpr auto& bin_str_to_int32 = from_bin_str<types::int32, order>;
inline constexpr auto& bin_str_to_int64 = from_bin_str<long long, order>;
inline constexpr auto& bin_str_to_uint16 = from_bin_str<unsigned short, order>;
inline constexpr auto& bin_str_to_uint32 = from_bin_str<types::uint32, order>;
inline constexpr auto& bin_str_to_uint64 = from_bin_str<unsigned long long, order>;
inline constexpr auto& bin_str_to_float = from_bin_str<float, order>;
inline constexpr auto& bin_str_to_double = from_bin_str<double, order>;

}  // namespace little_endian

}  // namespace ORVA_NAMESPACE::generic::convert
