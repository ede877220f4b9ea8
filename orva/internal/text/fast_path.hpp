/// Fast conversion of well-formed text.
///
/// Each `fast_path` converts characters from the front and stops before the first one that it does not
/// handle. It may stop before any character, even the first. The plain loop of the transform handles that
/// character and alone decides what bad text gives.
///
/// The output needs room for the most units that the rest of the text can give. Units after the result's `to`
/// may be overwritten.
///
/// Internal: not installed.
#pragma once

#include <cstddef>

#include "orva/internal/text/block.hpp"

namespace ORVA_NAMESPACE::internal::text {

/// The reading position of a transform in its text, and the writing position in its output.
template <typename From, typename To>
struct cursor {
  const From* from;
  To* to;
};

template <std::size_t Count, typename From, typename To>
cursor<From, To> copied(cursor<From, To> at) {
  copy_units<Count>(at.from, at.to);
  return {at.from + Count, at.to + Count};
}

template <typename From, typename To>
cursor<From, To> fast_path_ascii(cursor<From, To> at, const From* end) {
  while (end - at.from >= 8 && are_ascii<8>(at.from)) {
    at = has_block(at.from, end) && are_ascii<block>(at.from) ? copied<block>(at) : copied<8>(at);
  }
  return at;
}

inline bool is_pair(const code_unit16* from) {
  return ((value_of(from[0]) << 16 | value_of(from[1])) & 0xFC00FC00) == 0xD800DC00;
}

/// Converts surrogate pairs.
inline cursor<code_unit16, code_unit32> fast_path_pairs(cursor<code_unit16, code_unit32> at,
                                                        const code_unit16* end) {
  for (; end - at.from >= 2 && is_pair(at.from); at.from += 2) {
    *at.to++ = static_cast<code_unit32>((value_of(at.from[0]) << 10) + value_of(at.from[1]) - 0x35FDC00);
  }
  return at;
}

/// UTF-16 into UTF-32 and back, where both have the same values.
template <typename From, typename To>
cursor<From, To> fast_path(cursor<From, To> at, const From* end) {
  while (has_block(at.from, end) && (are_ascii<block>(at.from) || are_basic<block>(at.from))) {
    at = copied<block>(at);
  }
  return at;
}

}  // namespace ORVA_NAMESPACE::internal::text
