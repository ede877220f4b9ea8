/// `text_argument`: the parameter of an operation that takes text of any width and works in UTF-8.
///
/// The caller passes what it has: a string of the library, a standard string, a view, a literal, or a
/// `std::filesystem::path`.
///
///     void set_title(const text_argument& title) { title_ = title.view(); }
///     set_title("plain");
///     set_title(u"wide");
///     set_title(some_std_string);
///
/// Text in UTF-8 is borrowed, not copied, and must live as long as the argument does: until the end of the
/// call, as every temporary does. Bytes are taken as UTF-8 without a check. Text of another width is
/// converted into a string that the argument owns, by the rules of `strings/unicode.hpp`, so that bad text
/// arrives as "-1". UTF-16 may begin with 0xFFFE, which is then a character like any other.
///
/// `basic_text_argument<Unit>` is the same for an operation that works in another width, such as
/// `system::path_argument`. An argument belongs to one call and to its thread.
///
/// Edge cases: docs/edges.md#strings
#pragma once

#include <concepts>
#include <optional>
#include <string_view>
#include <type_traits>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/strings/ustring_for.hpp"
#include "orva/strings/well_formed.hpp"

namespace ORVA_NAMESPACE::strings {

namespace _private {

/// What the transform from one width to the other gives, for UTF-16 that begins with 0xFFFE too.
template <code_unit To, code_unit From>
ORVA_API basic_ustring<To> converted(std::basic_string_view<From> text);

extern template ustring8 converted(ustring16::view);
extern template ustring8 converted(ustring32::view);
extern template ustring16 converted(ustring8::view);
extern template ustring16 converted(ustring32::view);
extern template ustring32 converted(ustring8::view);
extern template ustring32 converted(ustring16::view);

}  // namespace _private

template <code_unit Unit>
class basic_text_argument {
 public:
  using string = basic_ustring<Unit>;
  using string_view = std::basic_string_view<Unit>;

  /// Borrows `text`, for `get` too.
  basic_text_argument(const string& text) noexcept : borrowed_(text), string_(&text) {}

  /// Borrows text of the argument's width, and converts any other.
  template <any_text Text>
  basic_text_argument(const Text& text) {
    using text_unit = typename ustring_for<Text>::value_type;
    const std::basic_string_view<text_unit> units = text;
    if constexpr (std::is_same_v<text_unit, Unit>) {
      borrowed_ = units;
    } else {
      owned_ = _private::converted<Unit>(units);
    }
  }

  /// Takes the native text of the path, in the same way. One that is not well-formed becomes a single zero
  /// unit, which names nothing: what it is converted to would be the name of another file. Paths of 16 bits
  /// need no conversion on a system that has them, and are not checked.
  template <file_path Path>
  basic_text_argument(const Path& path) : basic_text_argument(path.native()) {
    constexpr bool as_it_is =
        std::is_same_v<Unit, typename Path::value_type> && std::is_same_v<Unit, code_unit16>;
    if (!as_it_is && !is_well_formed(path.native())) owned_.emplace(1, Unit{});
  }

  /// The text, without a copy.
  string_view view() const noexcept { return owned_ ? string_view(*owned_) : borrowed_; }
  operator string_view() const noexcept { return view(); }

  /// The text as a string of the library. One that the caller passed is returned itself. Other text of the
  /// same width is copied when this is first called: use `view` where a view is enough.
  const string& get() const {
    if (string_ != nullptr) return *string_;
    if (!owned_) owned_.emplace(borrowed_);
    return *owned_;
  }
  operator const string&() const { return get(); }

 private:
  string_view borrowed_;
  const string* string_ = nullptr;
  mutable std::optional<string> owned_;
};

using text_argument = basic_text_argument<char>;

/// What a `text_argument` is made from and a `ustring8` is not: views, paths, and text of another width.
template <typename Text>
concept other_text =
    !std::convertible_to<const Text&, ustring8> && std::convertible_to<const Text&, text_argument>;

}  // namespace ORVA_NAMESPACE::strings
