/// `serialize_buffer`: values flattened into bytes, and taken back in the order in which they were written.
///
/// The writer appends values one after another; the reader takes them back through a read position that the
/// buffer keeps. Nothing in the data tells a type, so both sides agree on the order of the calls.
/// `serialize_binary_buf` and `serialize_text_buf` are the two forms; code written for this class runs on
/// either. Any mix of appends and reads may follow each other: appending does not move the read position.
///
/// Reading never fails for lack of data: at the end every read answers 0, an empty string or no buffer, and
/// `at_end` alone tells that from a stored zero. A reading buffer belongs to one thread, even where it is
/// const, for its position moves. Buffers may be held by `memory::pointers::rc_pointer`.
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

  /// Does what `assign` does, and so keeps the read position.
  serialize_buffer& operator=(const serialize_buffer& other) { return assign(other); }
  serialize_buffer& operator=(const std::string& data) { return assign(data); }

  /// Replaces the data and leaves the read position where it is: call `reset_read` to read the new data. The
  /// bytes may be any, zeros too. A negative length, or data of more than 4294967294 bytes, throws
  /// `std::length_error`, "string too long".
  virtual serialize_buffer& assign(const char* data, int length) = 0;
  virtual serialize_buffer& assign(const std::string& data) = 0;
  /// Takes the other's `as_str`. Nothing happens if that is this very data.
  virtual serialize_buffer& assign(const serialize_buffer& other) = 0;

  /// The whole data, written or received, without a header; its inverse is `assign`. Valid until the data
  /// changes.
  virtual const std::string& as_str() const = 0;

  // Appending throws `std::length_error`, "string too long", where the data would pass 4294967294 bytes, and
  // leaves the data as it was.

  virtual void append_int8(const signed char& value) = 0;
  virtual void append_int16(const short& value) = 0;
  virtual void append_int32(const types::int32& value) = 0;
  virtual void append_int64(const long long& value) = 0;
  virtual void append_uint8(const unsigned char& value) = 0;
  virtual void append_uint16(const unsigned short& value) = 0;
  virtual void append_uint32(const types::uint32& value) = 0;
  virtual void append_uint64(const unsigned long long& value) = 0;
  /// `precision` is the number of significant digits where the form is text; the binary form keeps every bit.
  virtual void append_float(const float& value, const types::uint32& precision) = 0;
  virtual void append_double(const double& value, const types::uint32& precision) = 0;
  /// The bytes may be any.
  virtual void append_string(const std::string& text) = 0;
  /// Nests the other's `as_str`, whatever its class; the buffer itself will do too.
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
  /// A new buffer of this class over the nested bytes, at its beginning. The caller owns it; an `rc_pointer`
  /// takes it. What it is at the end of the data, each form tells.
  virtual serialize_buffer* read_buffer() const = 0;

  /// Whether nothing is left to read.
  virtual bool at_end() const = 0;
  /// Reading begins again with the first value.
  virtual void reset_read() const = 0;

  /// A new empty buffer of the same class; the caller owns it.
  virtual serialize_buffer* create() const = 0;
  /// A new copy, the read position included; the caller owns it.
  virtual serialize_buffer* clone() const = 0;
};

}  // namespace ORVA_NAMESPACE::serialization
