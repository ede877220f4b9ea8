/// The flat form of a labeled buffer, read.
///
/// Internal: not installed.
#pragma once

#include <string_view>

#include "orva/serialization/labeled_text_buffer.hpp"

namespace ORVA_NAMESPACE::serialization::_private {

/// Stores what `text` tells in `target`. The text must not be the target's to change.
void read_flat_form(std::string_view text, labeled_text_buffer& target);

}  // namespace ORVA_NAMESPACE::serialization::_private
