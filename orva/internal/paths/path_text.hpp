/// Path text across widths.
///
/// The library works on 16-bit paths. A system that takes bytes gets UTF-8, in which an unpaired surrogate is
/// the three bytes of its value. The conversions never fail, and each 16-bit path has a UTF-8 text of its
/// own; the transforms of `strings/unicode.hpp` do neither.
///
///     u"a/\u00E4"      =>  "a/\xC3\xA4"
///     { 0xD800 }       =>  "\xED\xA0\x80"
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "orva/internal/text/block.hpp"
#include "orva/internal/text/code_point.hpp"
#include "orva/strings/code_unit.hpp"

namespace ORVA_NAMESPACE::internal::paths {

using strings::code_unit;
using strings::code_unit16;

/// Calls `take` with each code point of `text`. A unit that is part of no sequence counts as its value: an
/// unpaired surrogate, or a byte that no nameable text has.
template <code_unit Unit, typename Take>
void each_code_point(std::basic_string_view<Unit> text, Take take) {
  for (std::size_t i = 0; i < text.size();) {
    auto found = internal::text::decode(text.data() + i, text.size() - i);
    if (found.units == 0) found = {internal::text::value_of(text[i]), 1};
    take(found.code_point);
    i += found.units;
  }
}

/// Appends `text` in the width of `to`.
template <code_unit To, code_unit From>
void append_text(std::basic_string<To>& to, std::basic_string_view<From> text) {
  if constexpr (std::is_same_v<To, From>) {
    to.append(text);
  } else {
    each_code_point(text, [&to](std::uint32_t code_point) {
      To units[4] = {static_cast<To>(code_point)};
      To* end = units + 1;
      if constexpr (sizeof(To) == 1) end = internal::text::encode(code_point, units);
      if constexpr (sizeof(To) == 2)
        end = code_point < 0x10000 ? end : internal::text::encode_pair(code_point, units);
      to.append(units, end);
    });
  }
}

}  // namespace ORVA_NAMESPACE::internal::paths
