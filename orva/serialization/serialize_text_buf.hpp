/// `serialize_text_buf`: the text form of a `serialize_buffer`.
///
/// Every value is text, closed by the byte 0x01, which is written ~ here:
///
///     append_int32(-5)                    -5~
///     append_uint8(200)                   200~
///     append_double(3.14159265, 3)        3.14~              significant digits, as an output stream writes them
///     append_double(1500000.0, 2)         1.5e+06~
///     append_string("ab")                 2~ab~              the length, then the bytes, which may be any
///     append_string("")                   0~~
///     append_buffer(other)                the same, with other.as_str() for the bytes
///
/// Numbers are read leniently: a value saturates at the limits of the type read, a prefix (0x, 0b, 0) chooses
/// the radix, text that is no number reads as the number it begins with, or 0. Floating values follow the
/// global C++ locale, as streams do.
///
///     data            reads as
///     70000~          read_int16 => 32767
///     12              read_int32 => 12, and the reader has passed the end: at_end, and every number is 0
///     -4~             read_string => "", and reading begins again: a length below 0 leads back
///     9~abc           read_string => "abc"; the position is behind the data, and a number read there throws
///                     std::out_of_range, "invalid string position"
///
/// Past the last item, numbers are 0 and stay so, whereas `read_string` and `read_buffer` are empty and
/// rewind: the next read gets the first item again. Callers read a list of strings round and round in this
/// way; a loop that is to end tests `at_end` before each read.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "orva/export.hpp"
#include "orva/serialization/stored_buffer.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::serialization {

class ORVA_API serialize_text_buf : public stored_buffer {
 public:
  serialize_text_buf() noexcept = default;
  serialize_text_buf(const serialize_text_buf&) = default;
  serialize_text_buf(serialize_text_buf&&) noexcept = default;
  /// Takes the bytes of a buffer of any class, and begins to read at the first.
  explicit serialize_text_buf(const serialize_buffer& other) : stored_buffer(other.as_str()) {}
  explicit serialize_text_buf(std::string data) : stored_buffer(std::move(data)) {}
  ~serialize_text_buf() override;

  /// From a text buffer takes data and read position; from anything else as `assign`.
  serialize_text_buf& operator=(const serialize_text_buf&) = default;
  serialize_text_buf& operator=(serialize_text_buf&&) noexcept = default;
  using serialize_buffer::operator=;

  void append_int8(const signed char& value) override;
  void append_int16(const short& value) override;
  void append_int32(const types::int32& value) override;
  void append_int64(const long long& value) override;
  void append_uint8(const unsigned char& value) override;
  void append_uint16(const unsigned short& value) override;
  void append_uint32(const types::uint32& value) override;
  void append_uint64(const unsigned long long& value) override;
  /// Trailing zeros are not kept, and a precision of 0 is one digit. To read back the same value take 9
  /// digits for a `float` and 17 for a `double`. What is not finite is written in the stream's words and
  /// reads as 0.
  void append_float(const float& value, const types::uint32& precision) override;
  void append_double(const double& value, const types::uint32& precision) override;
  void append_string(const std::string& text) override;
  void append_buffer(const serialize_buffer& other) override { append_string(other.as_str()); }

  signed char read_int8() const override;
  short read_int16() const override;
  types::int32 read_int32() const override;
  long long read_int64() const override;
  unsigned char read_uint8() const override;
  unsigned short read_uint16() const override;
  types::uint32 read_uint32() const override;
  unsigned long long read_uint64() const override;
  float read_float() const override;
  double read_double() const override;
  /// The length is read by `read_int32`: of a text longer than 2 GiB the first 2147483647 bytes are read.
  std::string read_string() override { return std::string(read_bytes()); }
  /// Never null: an empty buffer at the end of the data.
  serialize_text_buf* read_buffer() const override;

  serialize_text_buf* create() const override;
  serialize_text_buf* clone() const override;

 private:
  template <typename Integer>
  void append_integer(Integer value);
  template <typename Floating>
  void append_floating(Floating value, types::uint32 precision);

  std::string_view take_number() const;
  std::string_view read_bytes() const;
};

}  // namespace ORVA_NAMESPACE::serialization
