#include "orva/i18n/message.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <unordered_set>

#include "orva/i18n/format_attributes.hpp"
#include "orva/i18n/formatters.hpp"
#include "orva/i18n/scaled_value.hpp"
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

/// Room for a placeholder's text, so that most messages are allocated once.
constexpr std::size_t likely_length = 16;

bool is_placeholder(const message_item& item) { return item.type() != message_item::text; }

/// A placeholder's data, cut at the first separator.
struct placeholder {
  std::string_view name;
  std::string_view attributes;

  explicit placeholder(std::string_view data) : name(data.substr(0, data.find(_private::field_separator))) {
    if (name.size() < data.size()) attributes = data.substr(name.size() + 1);
  }
};

ustring8 number_of(const std::optional<_private::scaled_value>& value) {
  return value ? value->number() : _private::refused();
}

ustring8 unit_of(const std::optional<_private::scaled_value>& value) {
  return value ? ustring8(value->unit) : _private::refused();
}

ustring8 format(message_item::type_t type, const types::variant& value, std::string_view attributes) {
  switch (type) {
    case message_item::string:
      return value.as_string();
    case message_item::integer:
      return _private::format_int(value.as_int64(), attributes);
    case message_item::real:
      return _private::format_double(value.as_double(), attributes);
    case message_item::memory:
      return number_of(_private::scale_memory(value, attributes));
    case message_item::memory_unit:
      return unit_of(_private::scale_memory(value, attributes));
    case message_item::metric:
      return number_of(_private::scale_metric(value, attributes));
    case message_item::metric_unit:
      return unit_of(_private::scale_metric(value, attributes));
    case message_item::duration:
      return _private::format_duration(value.as_double(), attributes);
    case message_item::text:
    case message_item::number:
    case message_item::time:
    case message_item::date:
      break;
  }
  return _private::refused();
}

/// The text of a placeholder, which is `invalid` if it cannot be shown.
ustring8 render(const message_item& item, std::string_view data, const generic::varg_list& args) {
  const placeholder parts(data);
  const auto argument = find_argument(args, parts.name);
  if (argument == args.end()) return ustring8(message_item::invalid);
  ustring8 result = format(item.type(), argument->value(), parts.attributes);
  if (result == _private::refused_value) return ustring8(message_item::invalid);
  return result;
}

}  // namespace

ustring8 message_item::name() const { return ustring8(placeholder(data_).name); }

ustring8 message_item::as_string(const generic::varg_list& args) const {
  if (type_ == text) return data_;
  ustring8 result = render(*this, data_, args);
  if (result == invalid) {
    platform::debug_output("Failure -- " + data_);
    platform::debug_output("\n");
  }
  return result;
}

std::string message_t::as_string(const generic::varg_list& args) const {
  std::size_t length = 0;
  for (const message_item& item : items_) length += std::max(item.data_.size(), likely_length);
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
    return !is_placeholder(item) || find_argument(args, placeholder(item.data_).name) != args.end();
  });
}

}  // namespace ORVA_2_18::i18n
