/// Which parts of a document store a key.
///
/// Internal: not installed. A later part overwrites what an earlier one stores under the same path. A path is
/// stored by a line of its own, or as an element of an array.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "orva/config/internal/document_text.hpp"

namespace ORVA_NAMESPACE::config::_private {

struct value_source {
  std::size_t part = 0;
  /// The number in its array, if the path is that of an element.
  std::optional<std::size_t> element;
};

/// The source whose value counts.
std::optional<value_source> last_source(const document_text& document, std::string_view path);

/// All lines of a key, also those that store nothing.
std::vector<std::size_t> lines_of(const document_text& document, std::string_view path);

/// The line by which a key is edited: the one that counts or, if nothing is stored, the last one.
std::optional<std::size_t> line_to_edit(const document_text& document, std::string_view path);

std::optional<strings::ustring8> find_value(const document_text& document, std::string_view path);
std::optional<elements> find_array(const document_text& document, std::string_view path);

/// Whether an array of `count` elements alone decides which elements the path has: later parts store none,
/// and earlier ones none that stay visible. The array is, or will be, between the parts up to `earlier_end`
/// and those from `later_begin` on.
bool array_is_alone(const document_text& document, std::string_view path, std::size_t earlier_end,
                    std::size_t later_begin, std::size_t count);

/// Whether the path and, if one of its lines has an array, all elements come from these lines only.
bool stored_by_these_only(const document_text& document, std::string_view path,
                          const std::vector<std::size_t>& lines);

}  // namespace ORVA_NAMESPACE::config::_private
