/// Reads the flat form of a labeled buffer; `flat_form_writer.hpp` writes it.
///
/// Internal: not installed.
#pragma once

#include <string_view>

#include "orva/serialization/labeled_text_buffer.hpp"

namespace ORVA_NAMESPACE::serialization::_private {

/// Stores the labels, values and groups of `text` in `target`.
///
/// REQUIRES: adding to `target` does not change `text`.
void read_flat_form(std::string_view text, labeled_text_buffer& target);

}  // namespace ORVA_NAMESPACE::serialization::_private
