/// The places of offsets that grow, by the rules of `diagnostics::place_of`: all of them together read the
/// text once, however long its lines are.
///
///     place_cursor places(text);
///     places.place_of(5); places.place_of(300);
///
/// Internal: not installed. Refers to the text.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "orva/diagnostics/place.hpp"
#include "orva/internal/text/well_formed_utf8.hpp"
#include "orva/strings/byte_order_mark.hpp"

namespace ORVA_NAMESPACE::config::_private {

class place_cursor {
 public:
  explicit place_cursor(std::string_view text) : text_(text) {
    const std::string_view mark = strings::byte_order_mark_in(strings::unicode_encoding::utf8);
    if (text.starts_with(mark)) at_ = mark.size();
  }

  /// REQUIRES: the offset is not below that of the last call.
  diagnostics::place place_of(std::size_t offset) {
    if (offset <= at_) return place_;
    const std::string_view between = text_.substr(at_, offset - at_);
    if (const std::size_t last = between.rfind('\n'); last != between.npos) {
      place_.line += static_cast<std::size_t>(std::ranges::count(between, '\n'));
      place_.column = 1;
      at_ += last + 1;
    }
    while (at_ < offset) {
      const std::size_t units = internal::text::decode_well_formed(text_.substr(at_)).units;
      if (units > offset - at_) break;
      at_ += units;
      ++place_.column;
    }
    return place_;
  }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
  diagnostics::place place_{1, 1};
};

}  // namespace ORVA_NAMESPACE::config::_private
