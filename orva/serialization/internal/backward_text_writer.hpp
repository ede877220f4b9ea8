/// Writes strings of the text form from the last to the first.
///
/// Internal: not installed.
#pragma once

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "orva/internal/number_text/integer_text.hpp"
#include "orva/serialization/internal/text_form_items.hpp"
#include "orva/serialization/stored_buffer.hpp"

namespace ORVA_NAMESPACE::serialization::_private {

class backward_text_writer {
 public:
  /// Replaces the content of `target`, which holds the text after `finish`. Its memory is used again.
  explicit backward_text_writer(std::string& target) : units_(target), begin_(target.size()) {}

  std::size_t size() const { return units_.size() - begin_; }

  /// Writes a string of two pieces, with its length before it.
  void prepend_string(std::string_view bytes, std::string_view tail = {}) {
    close_string();
    prepend(tail);
    prepend(bytes);
    open_string(bytes.size() + tail.size());
  }

  /// Write the separator after the bytes of a string, and the length before them.
  void close_string() { prepend({&separator, 1}); }
  void open_string(std::size_t length) {
    close_string();
    char digits[internal::integer_text_size];
    prepend({digits, internal::write_integer(length, digits)});
  }

  void finish() { units_.erase(0, begin_); }

 private:
  void prepend(std::string_view bytes) {
    if (bytes.size() > stored_buffer::max_size - size()) throw std::length_error("string too long");
    if (bytes.size() > begin_) grow(bytes.size());
    begin_ -= bytes.size();
    std::copy(bytes.begin(), bytes.end(), units_.begin() + static_cast<std::ptrdiff_t>(begin_));
  }

  /// Adds free space before the text: at least its size again, if a string can hold that.
  void grow(std::size_t needed) {
    const std::size_t used = size();
    const std::size_t wanted = std::max<std::size_t>(2 * used, 256) + needed;
    std::string larger(std::min(wanted, stored_buffer::max_size), '\0');
    larger.replace(larger.size() - used, used, units_, begin_, used);
    begin_ = larger.size() - used;
    units_ = std::move(larger);
  }

  std::string& units_;
  /// The beginning of the text, after the free space.
  std::size_t begin_;
};

}  // namespace ORVA_NAMESPACE::serialization::_private
