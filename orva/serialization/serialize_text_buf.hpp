/// `serialize_text_buf`: the text form of a `serialize_buffer`, readable by people and by other programs.
///
///     serialize_text_buf buffer;
///     buffer.append_int32(-5);
///     buffer.append_string("ab");                       // the data is "-5~2~ab~"
///     buffer.read_int32();                              // -5
///     buffer.read_string();                             // "ab"
///
/// Each item is text, closed by the byte 0x01, which is shown as ~ here:
///
///     append_int32(-5)                    -5~
///     append_uint8(200)                   200~
///     append_double(3.14159265, 3)        3.14~              significant digits, as in an output stream
///     append_double(1500000.0, 2)         1.5e+06~
///     append_string("ab")                 2~ab~              the length, then the bytes, which may be any
///     append_string("")                   0~~
///     append_buffer(other)                the same with the bytes of other.as_str()
///
/// Numbers are read leniently. A number that is too large reads as the limit of its type. A prefix (0x, 0b,
/// 0) selects the radix. Text that is not a number reads as the number that it begins with, or as 0. Floating
/// values use the global C++ locale, as streams do.
///
///     data            read            result
///     70000~          read_int16      32767
///     12              read_int32      12, then past the end: at_end is true, every number is 0
///     -4~             read_string     "", then the position is 0: a length below 0 moves back
///     9~abc           read_string     "abc", then past the end: the next number throws std::out_of_range,
///                                     "invalid string position"
///
/// After the last item, numbers read as 0 without end. `read_string` and `read_buffer` return empty text and
/// move the position to 0: the next read gets the first item again. Callers use this to read a list of
/// strings in a circle; test `at_end` before each read to stop at the end.
///
/// `checked_reader` reads the same data and reports what is wrong, and where.
///
/// Edge cases: docs/edges.md#serialization
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
  /// Copies the bytes of a buffer of any class; the read position is 0.
  explicit serialize_text_buf(const serialize_buffer& other) : stored_buffer(other.as_str()) {}
  explicit serialize_text_buf(std::string data) : stored_buffer(std::move(data)) {}
  ~serialize_text_buf() override;

  /// Copies data and read position of a text buffer; the other assignments are `assign`.
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
  /// Trailing zeros are not written, and a precision of 0 means one digit. To read back the same value, use 9
  /// digits for a `float` and 17 for a `double`. Infinity and NaN are written as streams write them, and read
  /// as 0.
  void append_float(const float& value, const types::uint32& precision) override;
  void append_double(const double& value, const types::uint32& precision) override;
  /// The shortest text that reads back as the same value, with a point in every locale. `checked_reader`
  /// reads it exactly, in every locale and also `inf` and `nan`; `read_float` and `read_double` do where the
  /// global locale has a point.
  void append_exact(float value);
  void append_exact(double value);
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
  /// The length is read as by `read_int32`: of a longer string the first 2147483647 bytes are returned.
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
