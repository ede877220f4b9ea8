/// Numbers as bytes of a fixed width, for binary records of either byte order.
///
/// Three namespaces hold the same sixteen operations: `big_endian`, `little_endian`, and `generic::convert`
/// itself for the order of the host. `int16_to_bin_str` and its siblings write a number as a byte string of
/// exactly its width; `bin_str_to_int16` and its siblings are their inverse. Nothing marks the order or the
/// type: reader and writer agree on both. Floating values are their IEEE 754 bit patterns, so that every NaN
/// comes through; but on 32-bit x86, where functions return them by a register that makes a signalling NaN a
/// quiet one, a reader may do that too. All of it is pure, and any thread may call it.
///
///     big_endian::uint32_to_bin_str(0x01020304)       =>  01 02 03 04
///     little_endian::uint32_to_bin_str(0x01020304)    =>  04 03 02 01
///     uint32_to_bin_str(0x01020304)                   =>  04 03 02 01    where the host is little-endian
///     big_endian::double_to_bin_str(1.0)              =>  3F F0 00 00 00 00 00 00
///     big_endian::bin_str_to_int16(FF FE)             =>  -2
///     little_endian::bin_str_to_int16(FF FE)          =>  -257
///     big_endian::bin_str_to_int32(00 00 01)          =>  0              too short
///     big_endian::bin_str_to_int32(00 00 00 07 FF)    =>  7              bytes behind the width are ignored
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

/// What a reader takes: a byte string, which is tested for the width and reads as 0 if it is shorter; or a
/// pointer, which is not tested.
///
/// REQUIRES: a pointer has the width's bytes behind it, terminator or not.
class bin_str_argument {
 public:
  bin_str_argument(const std::string& bytes) noexcept : data_(bytes.data()), size_(bytes.size()) {}
  bin_str_argument(const char* bytes) noexcept : data_(bytes), size_(vouched_for) {}

  const char* data() const noexcept { return data_; }
  std::size_t size() const noexcept { return size_; }

 private:
  static constexpr std::size_t vouched_for = std::numeric_limits<std::size_t>::max();

  const char* data_;
  std::size_t size_;
};

namespace _private {

template <typename Number>
using number_bytes = std::array<char, sizeof(Number)>;

/// The same bytes for a value in memory and in the string: swapped where the orders differ.
template <std::endian order, std::size_t width>
std::array<char, width> ordered(std::array<char, width> bytes) noexcept {
  if constexpr (order != std::endian::native) std::reverse(bytes.begin(), bytes.end());
  return bytes;
}

template <std::endian order, typename Number>
number_bytes<Number> to_bytes(const Number& value) noexcept {
  return ordered<order>(std::bit_cast<number_bytes<Number>>(value));
}

/// Reads a number of which no more than `available` bytes are there; a missing byte is zero.
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

/// The reader of every type and order. A string of less than `required` bytes reads as 0; of one that is as
/// long but shorter than the type, the missing bytes are zero.
template <typename Number, std::endian order = std::endian::native, std::size_t required = sizeof(Number)>
Number from_bin_str(const bin_str_argument& bytes) noexcept {
  if (bytes.size() < required) return 0;
  return _private::read_bytes<Number, order>(bytes.data(), bytes.size());
}

// In the order of the host, as the value lies in memory.

inline std::string int16_to_bin_str(const short& value) { return to_bin_str(value); }
inline std::string int32_to_bin_str(const types::int32& value) { return to_bin_str(value); }
inline std::string int64_to_bin_str(const long long& value) { return to_bin_str(value); }
inline std::string uint16_to_bin_str(const unsigned short& value) { return to_bin_str(value); }
inline std::string uint32_to_bin_str(const types::uint32& value) { return to_bin_str(value); }
inline std::string uint64_to_bin_str(const unsigned long long& value) { return to_bin_str(value); }
inline std::string float_to_bin_str(const float& value) { return to_bin_str(value); }
inline std::string double_to_bin_str(const double& value) { return to_bin_str(value); }

inline short bin_str_to_int16(const bin_str_argument& bytes) { return from_bin_str<short>(bytes); }
inline types::int32 bin_str_to_int32(const bin_str_argument& bytes) {
  return from_bin_str<types::int32>(bytes);
}
inline long long bin_str_to_int64(const bin_str_argument& bytes) { return from_bin_str<long long>(bytes); }
inline unsigned short bin_str_to_uint16(const bin_str_argument& bytes) {
  return from_bin_str<unsigned short>(bytes);
}
inline types::uint32 bin_str_to_uint32(const bin_str_argument& bytes) {
  return from_bin_str<types::uint32>(bytes);
}
inline unsigned long long bin_str_to_uint64(const bin_str_argument& bytes) {
  return from_bin_str<unsigned long long>(bytes);
}

// Here a `float` wants a string of 8 bytes and a `double` takes one of 4: programs that probe with short
// strings depend on what they get. A pointer is read as everywhere.
//
//     bin_str_to_float(00 00 80 3F)       =>  0.0     1.0 by little_endian::bin_str_to_float
//     bin_str_to_double(00 00 F0 3F)      =>  the bits 00 00 F0 3F 00 00 00 00

inline float bin_str_to_float(const bin_str_argument& bytes) {
  return from_bin_str<float, std::endian::native, sizeof(double)>(bytes);
}
inline double bin_str_to_double(const bin_str_argument& bytes) {
  return from_bin_str<double, std::endian::native, sizeof(float)>(bytes);
}

/// Most significant byte first.
namespace big_endian {

inline constexpr auto order = std::endian::big;

inline std::string int16_to_bin_str(const short& value) { return to_bin_str<order>(value); }
inline std::string int32_to_bin_str(const types::int32& value) { return to_bin_str<order>(value); }
inline std::string int64_to_bin_str(const long long& value) { return to_bin_str<order>(value); }
inline std::string uint16_to_bin_str(const unsigned short& value) { return to_bin_str<order>(value); }
inline std::string uint32_to_bin_str(const types::uint32& value) { return to_bin_str<order>(value); }
inline std::string uint64_to_bin_str(const unsigned long long& value) { return to_bin_str<order>(value); }
inline std::string float_to_bin_str(const float& value) { return to_bin_str<order>(value); }
inline std::string double_to_bin_str(const double& value) { return to_bin_str<order>(value); }

inline short bin_str_to_int16(const bin_str_argument& bytes) { return from_bin_str<short, order>(bytes); }
inline types::int32 bin_str_to_int32(const bin_str_argument& bytes) {
  return from_bin_str<types::int32, order>(bytes);
}
inline long long bin_str_to_int64(const bin_str_argument& bytes) {
  return from_bin_str<long long, order>(bytes);
}
inline unsigned short bin_str_to_uint16(const bin_str_argument& bytes) {
  return from_bin_str<unsigned short, order>(bytes);
}
inline types::uint32 bin_str_to_uint32(const bin_str_argument& bytes) {
  return from_bin_str<types::uint32, order>(bytes);
}
inline unsigned long long bin_str_to_uint64(const bin_str_argument& bytes) {
  return from_bin_str<unsigned long long, order>(bytes);
}
inline float bin_str_to_float(const bin_str_argument& bytes) { return from_bin_str<float, order>(bytes); }
inline double bin_str_to_double(const bin_str_argument& bytes) { return from_bin_str<double, order>(bytes); }

}  // namespace big_endian

/// Least significant byte first.
namespace little_endian {

inline constexpr auto order = std::endian::little;

inline std::string int16_to_bin_str(const short& value) { return to_bin_str<order>(value); }
inline std::string int32_to_bin_str(const types::int32& value) { return to_bin_str<order>(value); }
inline std::string int64_to_bin_str(const long long& value) { return to_bin_str<order>(value); }
inline std::string uint16_to_bin_str(const unsigned short& value) { return to_bin_str<order>(value); }
inline std::string uint32_to_bin_str(const types::uint32& value) { return to_bin_str<order>(value); }
inline std::string uint64_to_bin_str(const unsigned long long& value) { return to_bin_str<order>(value); }
inline std::string float_to_bin_str(const float& value) { return to_bin_str<order>(value); }
inline std::string double_to_bin_str(const double& value) { return to_bin_str<order>(value); }

inline short bin_str_to_int16(const bin_str_argument& bytes) { return from_bin_str<short, order>(bytes); }
inline types::int32 bin_str_to_int32(const bin_str_argument& bytes) {
  return from_bin_str<types::int32, order>(bytes);
}
inline long long bin_str_to_int64(const bin_str_argument& bytes) {
  return from_bin_str<long long, order>(bytes);
}
inline unsigned short bin_str_to_uint16(const bin_str_argument& bytes) {
  return from_bin_str<unsigned short, order>(bytes);
}
inline types::uint32 bin_str_to_uint32(const bin_str_argument& bytes) {
  return from_bin_str<types::uint32, order>(bytes);
}
inline unsigned long long bin_str_to_uint64(const bin_str_argument& bytes) {
  return from_bin_str<unsigned long long, order>(bytes);
}
inline float bin_str_to_float(const bin_str_argument& bytes) { return from_bin_str<float, order>(bytes); }
inline double bin_str_to_double(const bin_str_argument& bytes) { return from_bin_str<double, order>(bytes); }

}  // namespace little_endian

}  // namespace ORVA_NAMESPACE::generic::convert
