/// Where the items of the text form begin and end.
///
/// Internal: not installed. `serialize_text_buf` and the parser of labeled buffers read by these rules, each
/// with a position of its own.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string_view>

#include "orva/serialization/stored_buffer.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::serialization::_private {

/// Closes each item. It stands in no number, and is rare in text.
inline constexpr char separator = '\x01';

/// What is left of `data` from `position` on.
inline std::string_view rest_of(std::string_view data, types::uint32 position) {
  if (position > data.size()) throw std::out_of_range("invalid string position");
  return data.substr(position);
}

/// The text of the number at `position`, which then stands behind its separator. Without one it becomes
/// `stored_buffer::past_end`, from where every number is empty. A position behind the data throws.
inline std::string_view take_number(std::string_view data, types::uint32& position) {
  if (position == stored_buffer::past_end) return {};
  const types::uint32 begin = position;
  const std::size_t end = data.find(separator, begin);
  const bool closed = end != std::string_view::npos;
  position = closed ? static_cast<types::uint32>(end) + 1 : stored_buffer::past_end;
  return rest_of(data, begin).substr(0, closed ? end - begin : end);
}

/// The bytes of a string or buffer whose length was read before, cut at the end of the data. The position
/// goes over them and the closing separator by the length as it was read, wrapping: behind a length that had
/// no separator, it stands at the mark, and an empty text takes it to the beginning. Callers rely on this to
/// read a buffer again.
inline std::string_view take_bytes(std::string_view data, types::uint32& position, types::int32 length) {
  const types::uint32 begin = position;
  const auto count = static_cast<types::uint32>(length);
  position = begin + 1 + count;
  if (length == 0) return {};
  return rest_of(data, begin).substr(0, count);
}

}  // namespace ORVA_NAMESPACE::serialization::_private
