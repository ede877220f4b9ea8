/// `ustring_for<Text>`: the library's string of the same width as some text, for operations whose result has
/// the class of their argument.
///
///     const char*, char[N], std::string, std::string_view, ustring8       =>  ustring8
///     the same of code_unit16: const code_unit16*, wide_string, ustring16  =>  ustring16
///     the same of code_unit32: const code_unit32*, ustring32               =>  ustring32
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::strings {

namespace _private {

// Declared for deduction only: a class derived from a standard string or view deduces its base.
template <code_unit Unit>
basic_ustring<Unit> same_width(const std::basic_string<Unit>&);
template <code_unit Unit>
basic_ustring<Unit> same_width(const std::basic_string_view<Unit>&);
template <code_unit Unit>
basic_ustring<Unit> same_width(const Unit*);

}  // namespace _private

template <typename Text>
using ustring_for = decltype(_private::same_width(std::declval<const Text&>()));

/// Anything that is text of one of the three widths.
template <typename Text>
concept any_text = requires {
  typename ustring_for<Text>;
};

/// `std::filesystem::path`, whose native text is of one of the three widths. It is recognised by its members,
/// since <filesystem> would make this header much larger. A class derived from it does not count.
template <typename Path>
concept file_path = std::is_class_v<Path> && requires(const Path& path) {
  { path.native() } -> std::same_as<const std::basic_string<typename Path::value_type>&>;
  { path.parent_path() } -> std::same_as<Path>;
  requires code_unit<typename Path::value_type>;
};

}  // namespace ORVA_NAMESPACE::strings
