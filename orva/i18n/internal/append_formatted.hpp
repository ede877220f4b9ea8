/// The formatters in the form that messages use: each appends to a text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "orva/i18n/internal/format_attributes.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

// Each appends what the formatter of the same name returns. If the attributes are refused, it appends nothing
// and returns false.

bool append_int(std::string& text, std::int64_t value, std::string_view attrs);
bool append_double(std::string& text, double value, std::string_view attrs);
bool append_memory(std::string& text, const types::variant& value, std::string_view attrs);
bool append_memory_unit(std::string& text, const types::variant& value, std::string_view attrs);
bool append_metric(std::string& text, const types::variant& value, std::string_view attrs);
bool append_metric_unit(std::string& text, const types::variant& value, std::string_view attrs);
bool append_duration(std::string& text, double seconds, std::string_view attrs);

/// The text that `append` appends, or `refused_value`.
template <typename Value>
strings::ustring8 text_or_refused(bool (*append)(std::string&, Value, std::string_view), Value value,
                                  std::string_view attrs) {
  strings::ustring8 text;
  return append(text, value, attrs) ? text : refused();
}

}  // namespace ORVA_NAMESPACE::i18n::_private
