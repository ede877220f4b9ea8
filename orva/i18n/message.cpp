#include "orva/i18n/message.hpp"

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <unordered_set>

#include "orva/i18n/formatters.hpp"
#include "orva/i18n/internal/append_formatted.hpp"
#include "orva/i18n/internal/format_attributes.hpp"
#include "orva/internal/stored_text.hpp"
#include "orva/platform/debug_output.hpp"
#include "orva/strings/unicode.hpp"

namespace ORVA_NAMESPACE::i18n {

using strings::ustring8;

namespace {

/// The first argument of that name, or the end. Unlike `varg_list::find` it takes a part of a string as name.
auto find_argument(const generic::varg_list& args, std::string_view name) {
  return std::find_if(args.begin(), args.end(),
                      [&](const generic::argument& argument) { return argument.name() == name; });
}

/// Memory reserved for the text of a placeholder, so that most messages need one allocation.
constexpr std::size_t typical_length = 16;

bool is_placeholder(const message_item& item) { return item.type() != message_item::text; }

/// A placeholder's data, split at the first separator.
struct placeholder {
  std::string_view name;
  std::string_view attributes;

  explicit placeholder(std::string_view data) : name(data.substr(0, data.find(_private::field_separator))) {
    if (name.size() < data.size()) attributes = data.substr(name.size() + 1);
  }
};

/// Appends `value.as_string()`.
void append_text(std::string& text, const types::variant& value) {
  const ustring8* const stored = types::_private::stored_text(value);
  if (stored != nullptr) {
    text += *stored;
  } else {
    text += value.as_string();
  }
}

/// Appends the formatted value. Returns false if there is no formatter or it refuses the attributes.
bool append_value(std::string& text, message_item::type_t type, const types::variant& value,
                  std::string_view attributes) {
  switch (type) {
    case message_item::string:
      append_text(text, value);
      return true;
    case message_item::integer:
      return _private::append_int(text, value.as_int64(), attributes);
    case message_item::real:
      return _private::append_double(text, value.as_double(), attributes);
    case message_item::memory:
      return _private::append_memory(text, value, attributes);
    case message_item::memory_unit:
      return _private::append_memory_unit(text, value, attributes);
    case message_item::metric:
      return _private::append_metric(text, value, attributes);
    case message_item::metric_unit:
      return _private::append_metric_unit(text, value, attributes);
    case message_item::duration:
      return _private::append_duration(text, value.as_double(), attributes);
    case message_item::text:
    case message_item::number:
    case message_item::time:
    case message_item::date:
      break;
  }
  return false;
}

/// Appends the text of a placeholder, or `invalid` if it cannot be rendered.
void append_placeholder(std::string& text, message_item::type_t type, std::string_view data,
                        const generic::varg_list& args) {
  const std::size_t begin = text.size();
  const auto appended = [&] { return std::string_view(text).substr(begin); };
  const placeholder parts(data);
  const auto argument = find_argument(args, parts.name);
  const bool is_rendered =
      argument != args.end() && append_value(text, type, argument->value(), parts.attributes);
  if (!is_rendered || appended() == _private::refused_value) {
    text.replace(begin, text.npos, message_item::invalid);
  }
  if (appended() == message_item::invalid) {
    platform::debug_output(std::string("Failure -- ").append(data));
    platform::debug_output("\n");
  }
}

}  // namespace

ustring8 message_item::name() const { return ustring8(placeholder(data_).name); }

void message_item::append_to(std::string& result, const generic::varg_list& args) const {
  if (type_ == text) {
    result += data_;
  } else {
    append_placeholder(result, type_, data_, args);
  }
}

ustring8 message_item::as_string(const generic::varg_list& args) const {
  ustring8 result;
  append_to(result, args);
  return result;
}

std::string message_t::as_string(const generic::varg_list& args) const {
  std::size_t length = 0;
  for (const message_item& item : items_) length += std::max(item.data_.size(), typical_length);
  std::string result;
  result.reserve(length);
  for (const message_item& item : items_) item.append_to(result, args);
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
    // The name is set afterwards: `push_back` with a name searches the whole list for it.
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

namespace _private {

std::ostream& write(std::ostream& stream, const message_t& message) { return stream << message.as_string(); }

void write_quoted(std::ostream& stream, const message_t& message) {
  stream << '"' << message.as_string() << '"';
}

}  // namespace _private

// On Windows a program that refers to it by its address imports it.
constexpr std::string_view message_item::invalid;

}  // namespace ORVA_NAMESPACE::i18n
