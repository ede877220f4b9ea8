/// `serialize_buffer`: flattens values into bytes, and reads them back in the order in which they were
/// written.
///
///     void save(serialize_buffer& buffer) {
///       buffer.append_string("/home");
///       buffer.append_uint32(1500);
///     }
///     void load(serialize_buffer& buffer) {
///       const std::string path = buffer.read_string();
///       const types::uint32 size = buffer.read_uint32();
///     }
///
/// The data holds no types, so writer and reader must agree on the order of the calls. There are two forms:
/// `serialize_binary_buf` and `serialize_text_buf`. Code that uses this class works with both.
///
/// The buffer keeps a read position. Appending does not move it, so appends and reads may be mixed. Reads
/// past the end return 0, an empty string or no buffer; only `at_end` distinguishes them from stored values.
/// Reads of the binary form never fail. In the text form, a read that begins past the end of the data throws
/// `std::out_of_range`, "invalid string position": after a length that is too large, or after `assign` of
/// shorter data.
///
/// `checked_reader` reads the data of both forms and reports what is wrong, and where. The data has no
/// checksum: store it in a frame (frame.hpp), and every reader finds damage.
///
/// A buffer belongs to one thread: reading moves the position even of a const buffer. Buffers may be held by
/// `memory::pointers::rc_pointer`.
///
/// Edge cases: docs/edges.md#serialization
#pragma once

#include <string>

#include "orva/export.hpp"
#include "orva/generic/abilities/clone_ability.hpp"
#include "orva/generic/abilities/create_ability.hpp"
#include "orva/generic/abilities/reference_count_pointer_ability.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::serialization {

class ORVA_API serialize_buffer
    : public generic::abilities::create_ability,
      public generic::abilities::clone_ability,
      public generic::abilities::reference_count_pointer_ability<serialize_buffer> {
 public:
  serialize_buffer() noexcept = default;
  serialize_buffer(const serialize_buffer&) noexcept = default;
  ~serialize_buffer() override;

  /// The same as `assign`; keeps the read position.
  serialize_buffer& operator=(const serialize_buffer& other) { return assign(other); }
  serialize_buffer& operator=(const std::string& data) { return assign(data); }

  /// Replaces the data and keeps the read position: call `reset_read` before reading the new data. Any bytes
  /// are allowed, zeros too. A negative length, or data of more than `stored_buffer::max_size` bytes, throws
  /// `std::length_error`, "string too long".
  virtual serialize_buffer& assign(const char* data, int length) = 0;
  virtual serialize_buffer& assign(const std::string& data) = 0;
  /// Assigns the `as_str` of the other buffer. Assigning a buffer to itself does nothing.
  virtual serialize_buffer& assign(const serialize_buffer& other) = 0;

  /// All data, appended or assigned. The inverse is `assign`. Valid until the data changes.
  virtual const std::string& as_str() const = 0;

  // Each append throws `std::length_error`, "string too long", if the data would exceed
  // `stored_buffer::max_size` bytes. The data is unchanged then.

  virtual void append_int8(const signed char& value) = 0;
  virtual void append_int16(const short& value) = 0;
  virtual void append_int32(const types::int32& value) = 0;
  virtual void append_int64(const long long& value) = 0;
  virtual void append_uint8(const unsigned char& value) = 0;
  virtual void append_uint16(const unsigned short& value) = 0;
  virtual void append_uint32(const types::uint32& value) = 0;
  virtual void append_uint64(const unsigned long long& value) = 0;
  /// `precision` is the number of significant digits in the text form; the binary form keeps every bit.
  virtual void append_float(const float& value, const types::uint32& precision) = 0;
  virtual void append_double(const double& value, const types::uint32& precision) = 0;
  /// Any bytes are allowed.
  virtual void append_string(const std::string& text) = 0;
  /// Appends the `as_str` of a buffer of any class, also of this one, as one item.
  virtual void append_buffer(const serialize_buffer& other) = 0;

  virtual signed char read_int8() const = 0;
  virtual short read_int16() const = 0;
  virtual types::int32 read_int32() const = 0;
  virtual long long read_int64() const = 0;
  virtual unsigned char read_uint8() const = 0;
  virtual unsigned short read_uint16() const = 0;
  virtual types::uint32 read_uint32() const = 0;
  virtual unsigned long long read_uint64() const = 0;
  virtual float read_float() const = 0;
  virtual double read_double() const = 0;
  virtual std::string read_string() = 0;
  /// A new buffer of the same class with the nested bytes, at its beginning. The caller owns it, for example
  /// in an `rc_pointer`. At the end of the data the binary form returns null, the text form an empty buffer.
  virtual serialize_buffer* read_buffer() const = 0;

  /// Whether no data is left to read.
  virtual bool at_end() const = 0;
  /// Moves the read position to the first value.
  virtual void reset_read() const = 0;

  /// A new empty buffer of the same class; the caller owns it.
  virtual serialize_buffer* create() const = 0;
  /// A new copy, also of the read position; the caller owns it.
  virtual serialize_buffer* clone() const = 0;
};

}  // namespace ORVA_NAMESPACE::serialization
