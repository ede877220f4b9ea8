/// `message_t`: a localised message, and `message_item`, a piece of one.
///
///     const message_t message("disk_free", {message_item("Free: "),
///                                           message_item("n\001precision\0011", message_item::memory),
///                                           message_item(" "),
///                                           message_item("n\001precision\0011",
///                                                        message_item::memory_unit)});
///     message.as_utf8(generic::argument("n", 1500))  =>  "Free: 1.5 KB"
///     message.as_utf8()                              =>  "Free: ?invalid? ?invalid?"
///
/// A message is a name and a sequence of pieces: plain text, and placeholders. A placeholder names an
/// argument and a format. Rendering a message with a list of arguments gives text in any of the library's
/// string classes. Messages usually come from the catalogs of `message_catalogs`.
///
/// Without arguments, a message is text wherever text is written or joined; its placeholders read "?invalid?"
/// then, so render a message that has some with `as_utf8(args)` and its like:
///
///     std::cout << message                           writes message.as_utf8()
///     "Error: " + message, message + name            a ustring8
///     ustring16, ustring32 + message                 the same class, by as_utf16() and as_utf32()
///
/// Messages are values. Threads: any number of threads may render a message while none changes it.
///
/// Edge cases: docs/edges.md#messages.
#pragma once

#include <concepts>
#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "orva/export.hpp"
#include "orva/generic/varg_list.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/strings/ustring_for.hpp"
#include "orva/types/integers.hpp"
#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::i18n {

/// A piece of a message.
class ORVA_API message_item {
 public:
  /// The kind of a piece: plain text, or the format of an argument.
  enum type_t {
    /// Plain text: the data, unchanged.
    text = 0,
    /// `variant::as_string`.
    string = 1,
    /// Reserved: a placeholder of this type is never shown.
    number = 2,
    /// `format_int`.
    integer = 3,
    /// `format_double`.
    real = 4,
    /// Reserved: a placeholder of this type is never shown.
    time = 5,
    /// Reserved: a placeholder of this type is never shown.
    date = 6,
    /// The number of `format_memory`.
    memory = 7,
    /// The unit of `format_memory`.
    memory_unit = 8,
    /// The number of `format_metric`.
    metric = 9,
    /// The unit of `format_metric`.
    metric_unit = 10,
    /// `format_duration`.
    duration = 11,
  };

  /// The text of a placeholder that cannot be rendered.
  static constexpr std::string_view invalid = "?invalid?";

  message_item(strings::ustring8 data) noexcept : data_(std::move(data)) {}
  message_item(strings::ustring8 data, type_t type) noexcept : data_(std::move(data)), type_(type) {}

  message_item& assign(const message_item& other) { return *this = other; }

  type_t type() const { return type_; }

  /// The text of a text item. For a placeholder the argument's name, followed by a byte 0x01 and the
  /// attributes of the formatter if there are any.
  strings::ustring8 data() const { return data_; }

  /// `data` up to the first byte 0x01:  "n|precision|1"  =>  "n"
  strings::ustring8 name() const;

  /// Renders the piece with these arguments, in UTF-8.
  ///
  /// The result is "?invalid?" if the argument is missing, the type is reserved, or the formatter refuses its
  /// attributes. The line "Failure -- " with `data` is then written to the platform's debug output.
  /// Formatters report a failure by the text "-0", so an argument that reads "-0" is shown as "?invalid?",
  /// too.
  strings::ustring8 as_string(const generic::varg_list& args) const;

 private:
  friend class message_t;

  void append_to(std::string& result, const generic::varg_list& args) const;

  strings::ustring8 data_;
  type_t type_ = text;
};

/// A named sequence of pieces. The nil message has no name, no pieces and no note, and renders as empty text.
class ORVA_API message_t {
 public:
  using item_list = std::vector<message_item>;
  using iterator = item_list::iterator;
  using const_iterator = item_list::const_iterator;

  message_t() = default;
  message_t(const types::nil_t&) {}
  message_t(item_list items) noexcept : items_(std::move(items)) {}
  message_t(strings::ustring8 name, item_list items, strings::ustring8 meta = {},
            strings::ustring8 original_locale = {}) noexcept
      : name_(std::move(name)),
        items_(std::move(items)),
        orginal_locale_(std::move(original_locale)),
        meta_(std::move(meta)) {}

  message_t& assign(const message_t& other) { return *this = other; }
  message_t& assign(const types::nil_t&) { return *this = message_t(); }
  message_t& operator=(const types::nil_t& nil) { return assign(nil); }

  // Rendering never fails: a piece that cannot be rendered becomes "?invalid?", and the other pieces are
  // shown as usual. The forms other than UTF-8 are converted by `strings/unicode.hpp`, which gives "-1" for
  // invalid text.

  strings::ustring8 as_utf8(const generic::varg_list& args = generic::varg_list()) const;
  std::string as_string(const generic::varg_list& args = generic::varg_list()) const;
  strings::ustring16 as_utf16(const generic::varg_list& args = generic::varg_list()) const;
  strings::ustring32 as_utf32(const generic::varg_list& args = generic::varg_list()) const;
  strings::wide_string as_wstring(const generic::varg_list& args = generic::varg_list()) const;
  /// The same as `as_wstring`.
  strings::wide_string as_ustring(const generic::varg_list& args = generic::varg_list()) const;

  /// The number of pieces.
  types::uint32 count() const { return static_cast<types::uint32>(items_.size()); }
  types::uint32 size() const { return count(); }

  /// The number of placeholders. An argument that is shown twice counts twice.
  types::uint32 argument_count() const;

  /// One argument per placeholder, in order. Its name is the whole `data` of the placeholder, attributes
  /// included, and its value is nil. A list of arguments has each name once, so a placeholder that is
  /// repeated with the same attributes is listed once.
  generic::varg_list arguments() const;

  /// Whether the message has pieces, and `args` has at least `argument_count()` entries and the argument of
  /// each placeholder.
  bool has_valid_args(const generic::varg_list& args) const;

  iterator begin() { return items_.begin(); }
  iterator end() { return items_.end(); }
  const_iterator begin() const { return items_.begin(); }
  const_iterator end() const { return items_.end(); }

  // Getters, and setters that return the new value:

  const strings::ustring8& name() const { return name_; }
  const strings::ustring8& name(const strings::ustring8& name) { return name_ = name; }
  /// The translator's note.
  const strings::ustring8& meta() const { return meta_; }
  const strings::ustring8& meta(const strings::ustring8& meta) { return meta_ = meta; }
  /// The locale that the message was loaded from.
  const strings::ustring8& _orginal_locale() const { return orginal_locale_; }
  const strings::ustring8& _orginal_locale(const strings::ustring8& locale) {
    return orginal_locale_ = locale;
  }

  /// Whether this is the nil message. The locale is not considered.
  bool equal(const types::nil_t&) const { return name_.empty() && items_.empty() && meta_.empty(); }
  bool operator==(const types::nil_t& nil) const { return equal(nil); }

  /// Does nothing: a message has no references to other messages.
  void resolve(const std::map<strings::ustring8, strings::ustring8>&) {}

 private:
  strings::ustring8 name_;
  item_list items_;
  strings::ustring8 orginal_locale_;
  strings::ustring8 meta_;
};

namespace _private {

ORVA_API std::ostream& write(std::ostream& stream, const message_t& message);
/// The text in quotation marks.
ORVA_API void write_quoted(std::ostream& stream, const message_t& message);

/// `as_utf8`, `as_utf16` or `as_utf32`.
template <typename Ustring>
Ustring rendered_as(const message_t& message) {
  if constexpr (std::is_same_v<Ustring, strings::ustring16>) {
    return message.as_utf16();
  } else if constexpr (std::is_same_v<Ustring, strings::ustring32>) {
    return message.as_utf32();
  } else {
    return message.as_utf8();
  }
}

}  // namespace _private

// These are templates, so that what only converts to a message is no operand of them, and so that a program's
// own operators for messages are preferred.

/// Writes `as_utf8()`, as one field of the stream.
template <std::same_as<message_t> Message>
std::ostream& operator<<(std::ostream& stream, const Message& message) {
  return _private::write(stream, message);
}

/// Text of any width and a message: the library's string of that width. The forms other than UTF-8 are those
/// of `as_utf16` and `as_utf32`, which are the text "-1" for a message that is not well-formed.
template <strings::any_text Text, std::same_as<message_t> Message>
strings::ustring_for<Text> operator+(const Text& text, const Message& message) {
  return text + _private::rendered_as<strings::ustring_for<Text>>(message);
}

template <std::same_as<message_t> Message, strings::any_text Text>
strings::ustring_for<Text> operator+(const Message& message, const Text& text) {
  return _private::rendered_as<strings::ustring_for<Text>>(message) + text;
}

/// How GoogleTest shows a message; it would list the pieces without this.
template <std::same_as<message_t> Message>
void PrintTo(const Message& message, std::ostream* stream) {
  _private::write_quoted(*stream, message);
}

}  // namespace ORVA_NAMESPACE::i18n
