/// The attributes of a floating value, for all formatters that show one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "orva/i18n/internal/format_attributes.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

struct double_attributes {
  int precision = 2;
  std::int64_t fieldsize = 0;

  bool set(std::string_view key, std::string_view value) {
    if (selects(key, "precision")) {
      precision = to_number(value);
      return true;
    }
    if (!selects(key, "fieldsize")) return false;
    fieldsize = to_number(value);
    return true;
  }

  bool is_valid() const { return precision >= 0; }
};

/// Appends what `format_double` returns. REQUIRES: `attributes.is_valid()`.
void append_double_text(std::string& text, double value, const double_attributes& attributes);

}  // namespace ORVA_NAMESPACE::i18n::_private
