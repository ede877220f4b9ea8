#include "orva/serialization/stored_buffer.hpp"

#include <algorithm>
#include <stdexcept>

namespace ORVA_NAMESPACE::serialization {

serialize_buffer::~serialize_buffer() = default;

namespace {

[[noreturn]] void refuse() { throw std::length_error("string too long"); }

}  // namespace

serialize_buffer& stored_buffer::assign(const char* data, int length) {
  if (length < 0) refuse();
  data_.assign(data, static_cast<std::size_t>(length));
  return *this;
}

serialize_buffer& stored_buffer::assign(const std::string& data) {
  if (data.size() > max_size) refuse();
  data_ = data;
  return *this;
}

serialize_buffer& stored_buffer::assign(const serialize_buffer& other) { return assign(other.as_str()); }

void stored_buffer::require_room(std::size_t more) const {
  if (data_.size() > max_size || more > max_size - data_.size()) refuse();
}

void stored_buffer::append_growing(std::string_view bytes) {
  require_room(bytes.size());
  data_.append(bytes);
}

void stored_buffer::append_growing(std::string_view head, const std::string& bytes, std::string_view tail) {
  const std::size_t length = bytes.size();
  const std::size_t more = head.size() + length + tail.size();
  require_room(more);
  // Doubled, as the string itself grows. After this nothing can fail.
  data_.reserve(std::max(data_.size() + more, std::min(2 * data_.capacity(), data_.max_size())));
  data_.append(head);
  data_.append(bytes, 0, length);
  data_.append(tail);
}

// On Windows a program that refers to them by their addresses imports them.
constexpr types::uint32 stored_buffer::past_end;
constexpr std::size_t stored_buffer::max_size;

}  // namespace ORVA_NAMESPACE::serialization
