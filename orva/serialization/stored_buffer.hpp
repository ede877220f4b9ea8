/// `stored_buffer`: the base of the binary and the text form: one byte string and a read position in it.
///
/// The position has 32 bits on every platform, and wraps. Its largest value, `past_end`, marks a reader that
/// has passed the end; data is limited to `max_size`, so that it has no such position.
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "orva/export.hpp"
#include "orva/serialization/serialize_buffer.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::serialization {

class ORVA_API stored_buffer : public serialize_buffer {
 public:
  /// The read position of a reader that has passed the end.
  static constexpr types::uint32 past_end = 0xFFFFFFFF;
  /// The longest data: 4294967294 bytes, or 2147483647 where pointers have 32 bits, as no string is longer.
  /// Longer data throws `std::length_error`, "string too long".
  static constexpr std::size_t max_size =
      std::min<std::size_t>(past_end - 1, std::numeric_limits<std::ptrdiff_t>::max());

  serialize_buffer& assign(const char* data, int length) override;
  serialize_buffer& assign(const std::string& data) override;
  serialize_buffer& assign(const serialize_buffer& other) override;
  const std::string& as_str() const override { return data_; }

  /// `past_end` needs no test of its own: it is larger than `max_size`.
  bool at_end() const override { return position_ >= data_.size(); }
  void reset_read() const override { position_ = 0; }

 protected:
  stored_buffer() noexcept = default;
  explicit stored_buffer(std::string data) : data_(std::move(data)) { require_room(0); }
  /// Copies the read position too.
  stored_buffer(const stored_buffer&) = default;
  /// Leaves the source empty, with the read position 0.
  stored_buffer(stored_buffer&& other) noexcept
      : serialize_buffer(other), data_(std::move(other.data_)), position_(other.position_) {
    other.clear();
  }
  stored_buffer& operator=(const stored_buffer& other) {
    data_ = other.data_;
    position_ = other.position_;
    return *this;
  }
  stored_buffer& operator=(stored_buffer&& other) noexcept {
    if (this == &other) return *this;
    data_ = std::move(other.data_);
    position_ = other.position_;
    other.clear();
    return *this;
  }

  std::string_view data() const noexcept { return data_; }
  types::uint32& position() const noexcept { return position_; }

  void append(std::string_view bytes) {
    if (!has_capacity(bytes.size())) return append_growing(bytes);
    data_.append(bytes.data(), bytes.size());
  }

  /// Appends all three pieces, or none if there is no room. `bytes` may be the data itself.
  void append(std::string_view head, const std::string& bytes, std::string_view tail) {
    const std::size_t length = bytes.size();
    if (!has_capacity(head.size() + length + tail.size())) return append_growing(head, bytes, tail);
    data_.append(head.data(), head.size());
    // By its length: if `bytes` is the data itself, it has grown by `head`.
    data_.append(bytes.data(), length);
    data_.append(tail.data(), tail.size());
  }

 private:
  /// Written like the string's own test of its capacity, so that the compiler drops that one after it: an
  /// append of a few bytes is a few instructions.
  bool has_capacity(std::size_t more) const noexcept {
    return data_.size() + more <= data_.capacity() && data_.size() + more <= max_size;
  }

  void require_room(std::size_t more) const;
  void append_growing(std::string_view bytes);
  void append_growing(std::string_view head, const std::string& bytes, std::string_view tail);
  void clear() noexcept {
    data_.clear();
    position_ = 0;
  }

  std::string data_;
  mutable types::uint32 position_ = 0;
};

}  // namespace ORVA_NAMESPACE::serialization
