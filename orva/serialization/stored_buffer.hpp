/// `stored_buffer`: what the binary and the text form have in common, the data as one byte string and the
/// read position in it.
///
/// The position has 32 bits on every platform and wraps, and the data ends one byte before the position that
/// marks a reader which ran out of data: no position of the data is ever the mark.
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
  /// The longest data; anything longer throws `std::length_error`, "string too long". No string is longer
  /// than a difference of pointers, which is less on a machine of 32 bits.
  static constexpr std::size_t max_size =
      std::min<std::size_t>(past_end - 1, std::numeric_limits<std::ptrdiff_t>::max());

  serialize_buffer& assign(const char* data, int length) override;
  serialize_buffer& assign(const std::string& data) override;
  serialize_buffer& assign(const serialize_buffer& other) override;
  const std::string& as_str() const override { return data_; }

  /// No test for the mark: it lies behind the longest data.
  bool at_end() const override { return position_ >= data_.size(); }
  void reset_read() const override { position_ = 0; }

 protected:
  stored_buffer() noexcept = default;
  explicit stored_buffer(std::string data) : data_(std::move(data)) { require_room(0); }
  /// Copies take the read position over.
  stored_buffer(const stored_buffer&) = default;
  /// The source is left empty, at its beginning.
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

  /// Appends all three or nothing. `bytes` may be the data itself.
  void append(std::string_view head, const std::string& bytes, std::string_view tail) {
    const std::size_t length = bytes.size();
    if (!has_capacity(head.size() + length + tail.size())) return append_growing(head, bytes, tail);
    data_.append(head.data(), head.size());
    // By length: if the bytes are the data itself, they are longer by now.
    data_.append(bytes.data(), length);
    data_.append(tail.data(), tail.size());
  }

 private:
  /// In the words in which the string tests for itself: behind this test the compiler drops the string's own,
  /// and an append of a few bytes is a few instructions.
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
