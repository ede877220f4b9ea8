/// `serialize_binary_buf`: the binary form of a `serialize_buffer`.
///
///     serialize_binary_buf buffer;
///     buffer.append_string("abc");
///     buffer.append_int16(0x1234);
///     serialize_binary_buf received(buffer.as_str());
///     received.read_string();                           // "abc"
///
/// Items follow each other without tags, padding or header, the least significant byte first on every
/// platform:
///
///     append_int8, append_uint8           1 byte
///     append_int16(0x1234)                34 12
///     append_uint32(1)                    01 00 00 00
///     append_int64, append_uint64         8 bytes
///     append_float(1.5f, any)             00 00 C0 3F                  IEEE 754, every bit
///     append_double(1.0, any)             00 00 00 00 00 00 F0 3F
///     append_string("abc")                03 00 00 00 61 62 63         length, then the bytes
///     append_buffer(other)                the same with the bytes of other.as_str()
///
/// No byte outside the data is read. If the data ends within a number, its missing bytes are zero; if it ends
/// within a string or buffer, that is cut. The position moves by the stored length, in 32 bits: a length
/// close to 4 GiB moves it back. A loop until `at_end` over untrusted data must count the items that it
/// reads.
///
/// `checked_reader` reads the same data and reports where it ends too early.
///
/// Edge cases: docs/edges.md#serialization
#pragma once

#include <bit>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "orva/export.hpp"
#include "orva/generic/convert/byte_order.hpp"
#include "orva/serialization/stored_buffer.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::serialization {

/// Final, with inline operations: if the class is known to the compiler, appends and reads are not virtual
/// calls.
class ORVA_API serialize_binary_buf final : public stored_buffer {
 public:
  serialize_binary_buf() noexcept = default;
  serialize_binary_buf(const serialize_binary_buf&) = default;
  serialize_binary_buf(serialize_binary_buf&&) noexcept = default;
  /// Copies the bytes of a buffer of any class; the read position is 0.
  explicit serialize_binary_buf(const serialize_buffer& other) : stored_buffer(other.as_str()) {}
  explicit serialize_binary_buf(std::string data) : stored_buffer(std::move(data)) {}
  ~serialize_binary_buf() override;

  /// Copies data and read position of a binary buffer; the other assignments are `assign`.
  serialize_binary_buf& operator=(const serialize_binary_buf&) = default;
  serialize_binary_buf& operator=(serialize_binary_buf&&) noexcept = default;
  using serialize_buffer::operator=;

  void append_int8(const signed char& value) override { append_number(value); }
  void append_int16(const short& value) override { append_number(value); }
  void append_int32(const types::int32& value) override { append_number(value); }
  void append_int64(const long long& value) override { append_number(value); }
  void append_uint8(const unsigned char& value) override { append_number(value); }
  void append_uint16(const unsigned short& value) override { append_number(value); }
  void append_uint32(const types::uint32& value) override { append_number(value); }
  void append_uint64(const unsigned long long& value) override { append_number(value); }
  void append_float(const float& value, const types::uint32&) override { append_number(value); }
  void append_double(const double& value, const types::uint32&) override { append_number(value); }
  void append_string(const std::string& text) override {
    // If the size does not fit into 32 bits, the text does not fit into the data, and `append` throws.
    const auto length = bytes_of(static_cast<types::uint32>(text.size()));
    append({length.data(), length.size()}, text, {});
  }
  void append_buffer(const serialize_buffer& other) override { append_string(other.as_str()); }

  signed char read_int8() const override { return read_number<signed char>(); }
  short read_int16() const override { return read_number<short>(); }
  types::int32 read_int32() const override { return read_number<types::int32>(); }
  long long read_int64() const override { return read_number<long long>(); }
  unsigned char read_uint8() const override { return read_number<unsigned char>(); }
  unsigned short read_uint16() const override { return read_number<unsigned short>(); }
  types::uint32 read_uint32() const override { return read_number<types::uint32>(); }
  unsigned long long read_uint64() const override { return read_number<unsigned long long>(); }
  float read_float() const override { return read_number<float>(); }
  double read_double() const override { return read_number<double>(); }
  std::string read_string() override { return std::string(read_bytes().value_or(std::string_view())); }
  /// Null at the end of the data, and also after the length: an empty buffer as the last item reads as null,
  /// anywhere else as an empty buffer.
  serialize_binary_buf* read_buffer() const override;

  serialize_binary_buf* create() const override;
  serialize_binary_buf* clone() const override;

 private:
  template <typename Number>
  static generic::convert::_private::number_bytes<Number> bytes_of(const Number& value) {
    return generic::convert::_private::to_bytes<std::endian::little>(value);
  }

  template <typename Number>
  void append_number(const Number& value) {
    const auto bytes = bytes_of(value);
    append({bytes.data(), bytes.size()});
  }

  template <typename Number>
  Number read_number() const {
    if (at_end()) return 0;
    const std::string_view rest = data().substr(position());
    position() += types::uint32{sizeof(Number)};
    return generic::convert::_private::read_bytes<Number, std::endian::little>(rest.data(), rest.size());
  }

  /// The bytes of a string or buffer; empty at the end of the data.
  std::optional<std::string_view> read_bytes() const {
    const auto length = read_number<types::uint32>();
    if (at_end()) return std::nullopt;
    const std::string_view bytes = data().substr(position(), length);
    position() += length;
    return bytes;
  }
};

}  // namespace ORVA_NAMESPACE::serialization
