/// `failure`: why the walk over a document stopped. Its numbers are those of `xml_parser::parse_error`, which
/// describes them.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <utility>

#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::internal::xml {

struct failure {
  enum error_type {
    no_error = 0,
    unexpected_eof,
    mismatched_end_element,
    no_root_element,
    bad_header,
    unexpected_character,
    missing_quote,
    unknown_entity,
    missing_equals,
    attribute_redefined,
    data_after_root,
  };

  error_type type = no_error;
  types::uint32 line = 0;
  strings::ustring8 data;
  /// A place of the text, or its end.
  const char* place = nullptr;

  /// The same as a struct of the parser, without an open element. `first` is the beginning of the text.
  template <typename Error>
  Error as(const char* first) && {
    return Error{static_cast<typename Error::error_type>(type),
                 line,
                 std::move(data),
                 static_cast<std::size_t>(place - first),
                 {}};
  }
};

}  // namespace ORVA_NAMESPACE::internal::xml
