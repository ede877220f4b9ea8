#include "orva/i18n/message.hpp"

#include <algorithm>
#include <cstddef>
#include <unordered_set>

#include "orva/i18n/format_attributes.hpp"
#include "orva/i18n/formatters.hpp"
#include "orva/platform/debug_output.hpp"
#include "orva/strings/unicode.hpp"

namespace ORVA_2_18::i18n {

using strings::ustring8;

namespace {

/// The first argument of that name, or the end. The name need not be a string of its own.
auto find_argument(const generic::varg_list& args, std::string_view name) {
  return std::find_if(args.begin(), args.end(),
                      [&](const generic::argument& argument) { return argument.name() == name; });
}

bool is_placeholder(const message_item& item) { return item.type() != message_item::text; }

using scaling_formatter = decltype(&_private::format_memory);

/// The unit alone; the number only if it is a refusal.
ustring8 unit_of(scaling_formatter format, const types::variant& value, std::string_view attributes) {
  ustring8 unit;
  ustring8 number = format(value, attributes, unit);
  return number == _private::refused_value ? number : unit;
}

ustring8 number_of(scaling_formatter format, const types::variant& value, std::string_view attributes) {
  ustring8 unit;
  return format(value, attributes, unit);
}

}  // namespace

std::string_view message_item::argument_name() const {
  return std::string_view(data_).substr(0, data_.find(_private::field_separator));
}

std::string_view message_item::attributes() const {
  const std::size_t separator = data_.find(_private::field_separator);
  return separator == data_.npos ? std::string_view() : std::string_view(data_).substr(separator + 1);
}

ustring8 message_item::as_string(const generic::varg_list& args) const {
  if (type_ == text) return data_;
  ustring8 result = placeholder_text(args);
  if (result == invalid) {
    platform::debug_output("Failure -- " + data_);
    platform::debug_output("\n");
  }
  return result;
}

ustring8 message_item::placeholder_text(const generic::varg_list& args) const {
  const auto argument = find_argument(args, argument_name());
  if (argument == args.end()) return ustring8(invalid);
  ustring8 result = format(argument->value());
  return result == _private::refused_value ? ustring8(invalid) : result;
}

ustring8 message_item::format(const types::variant& value) const {
  switch (type_) {
    case string:
      return value.as_string();
    case integer:
      return _private::format_int(value.as_int64(), attributes());
    case real:
      return _private::format_double(value.as_double(), attributes());
    case memory:
      return number_of(_private::format_memory, value, attributes());
    case memory_unit:
      return unit_of(_private::format_memory, value, attributes());
    case metric:
      return number_of(_private::format_metric, value, attributes());
    case metric_unit:
      return unit_of(_private::format_metric, value, attributes());
    case duration:
      return _private::format_duration(value.as_double(), attributes());
    case text:
    case number:
    case time:
    case date:
      break;
  }
  return ustring8(invalid);
}

std::string message_t::as_string(const generic::varg_list& args) const {
  std::size_t length = 0;
  for (const message_item& item : items_) length += item.data_.size();
  std::string result;
  result.reserve(length);
  for (const message_item& item : items_) {
    if (is_placeholder(item)) {
      result += item.as_string(args);
    } else {
      result += item.data_;
    }
  }
  return result;
}

ustring8 message_t::as_utf8(const generic::varg_list& args) const { return as_string(args); }

strings::ustring16 message_t::as_utf16(const generic::varg_list& args) const {
  return strings::utf8_to_utf16(as_string(args));
}

strings::ustring32 message_t::as_utf32(const generic::varg_list& args) const {
  return strings::utf8_to_utf32(as_string(args));
}

strings::wide_string message_t::as_wstring(const generic::varg_list& args) const { return as_utf16(args); }

strings::wide_string message_t::as_ustring(const generic::varg_list& args) const { return as_utf16(args); }

types::uint32 message_t::argument_count() const {
  return static_cast<types::uint32>(std::count_if(items_.begin(), items_.end(), is_placeholder));
}

generic::varg_list message_t::arguments() const {
  generic::varg_list result;
  std::unordered_set<std::string_view> seen;
  for (const message_item& item : items_) {
    if (!is_placeholder(item) || !seen.insert(item.data_).second) continue;
    // Named in place: adding by name would look through the whole list each time.
    result.push_back(generic::argument());
    (result.end() - 1)->name(item.data_);
  }
  return result;
}

bool message_t::has_valid_args(const generic::varg_list& args) const {
  if (items_.empty() || args.size() < argument_count()) return false;
  return std::all_of(items_.begin(), items_.end(), [&](const message_item& item) {
    return !is_placeholder(item) || find_argument(args, item.argument_name()) != args.end();
  });
}

}  // namespace ORVA_2_18::i18n
