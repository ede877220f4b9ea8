/// The rules by which `serialize_text_buf` and the reader of the flat form find the items of the text form.
///
/// Internal: not installed. Each caller keeps a position of its own.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string_view>

#include "orva/generic/convert/str_to_x.hpp"
#include "orva/serialization/stored_buffer.hpp"
#include "orva/types/integers.hpp"
#include "orva/types/radix.hpp"

namespace ORVA_NAMESPACE::serialization::_private {

/// Closes each item. It is in no number, and rare in text.
inline constexpr char separator = '\x01';

/// The data from `position` on.
inline std::string_view rest_of(std::string_view data, types::uint32 position) {
  if (position > data.size()) throw std::out_of_range("invalid string position");
  return data.substr(position);
}

/// Returns the text of the number at `position` and moves the position after its separator, or to
/// `stored_buffer::past_end` if there is none. There every number is empty. A position past the end of the
/// data throws.
inline std::string_view take_number(std::string_view data, types::uint32& position) {
  if (position == stored_buffer::past_end) return {};
  const types::uint32 begin = position;
  const std::size_t end = data.find(separator, begin);
  const bool closed = end != std::string_view::npos;
  position = closed ? static_cast<types::uint32>(end) + 1 : stored_buffer::past_end;
  return rest_of(data, begin).substr(0, closed ? end - begin : end);
}

/// Converts the text of a number by a reader of `generic/convert/str_to_x.hpp`. Empty text is 0; the readers
/// take a size of 0 for something else.
template <auto read>
auto number_of(std::string_view text) {
  using number = decltype(read(text.data(), text.size(), types::radix_t::prefix, false));
  return text.empty() ? number{0} : read(text.data(), text.size(), types::radix_t::prefix, false);
}

/// Takes the length of a string or buffer as `take_number` does.
inline types::int32 take_length(std::string_view data, types::uint32& position) {
  return number_of<generic::convert::str_to_int32<char>>(take_number(data, position));
}

/// Returns the bytes of a string or buffer whose length was read before, cut at the end of the data. Moves
/// the position by that length and the closing separator, and wraps at 32 bits: a length below 0 moves it
/// back, and after a length without a separator, which leaves `past_end`, an empty string moves it to 0.
/// Callers rely on the latter to read a buffer again.
inline std::string_view take_bytes(std::string_view data, types::uint32& position, types::int32 length) {
  const types::uint32 begin = position;
  const auto count = static_cast<types::uint32>(length);
  position = begin + 1 + count;
  if (length == 0) return {};
  return rest_of(data, begin).substr(0, count);
}

}  // namespace ORVA_NAMESPACE::serialization::_private
