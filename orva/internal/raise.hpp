/// `ORVA_RAISE`: the one way in which the library raises its exceptions.
///
///     ORVA_RAISE(exceptions::out_of_range, "month value out of valid range",
///                ORVA_QUALIFIED("system::date_time::date::month"));
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string_view>

#include "orva/exceptions/exception.hpp"

namespace ORVA_NAMESPACE::internal {

/// A source file by its path under the source root, without the ending:
///
///     "/any/where/orva/strings/code_page.cpp"  =>  "strings/code_page"
struct source_name {
  char text[256] = {};

  consteval explicit source_name(std::string_view path) {
    constexpr std::string_view root = "orva/";
    if (const auto at = path.rfind(root); at != path.npos) path.remove_prefix(at + root.size());
    path = path.substr(0, path.rfind('.'));
    for (std::size_t i = 0; i < path.size(); ++i) text[i] = path[i];
  }
};

}  // namespace ORVA_NAMESPACE::internal

/// Throws an exception of class `exception_class`.
///
/// `message` is the message, `function` the qualified name of the raising function. The macro adds the line
/// and the source file in which it is written; a function could not know them.
#define ORVA_RAISE(exception_class, message, function)                                                    \
  do {                                                                                                    \
    constexpr ::ORVA_NAMESPACE::internal::source_name orva_source_name{__FILE__};                         \
    throw exception_class(message, static_cast<unsigned int>(__LINE__), orva_source_name.text, function); \
  } while (false)
